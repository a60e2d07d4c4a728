#pragma once

#include "charges/ChargeColumns.h"
#include "charges/frmPostCharges.h"
#include "patients/FinderTarget.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>

/// frmPostCharges, shown and active, as the screen that waits for the patient finder.
class PostChargesGround : public ScreenTest {
  protected:
    PostChargesGround() {
        RegisterFinderTarget(QStringLiteral("Post"),
                             []() -> FinderTarget& { return Screens::Get<frmPostCharges>(); });
    }

    frmPostCharges& Open() {
        auto& screen = Screens::Get<frmPostCharges>();
        screen.Show();
        Activate(*screen.window());
        return screen;
    }

    /// Opens the screen with a patient in it, who enables its frames.
    frmPostCharges& OpenWithPatient() {
        frmPostCharges& screen = Open();
        const std::vector<std::pair<const char*, QString>> boxes = {
            {"txtPno", QStringLiteral("100085")},    {"txtId", QStringLiteral("104233")},
            {"txtRoom", QStringLiteral("301-A")},    {"txtDoctor", QStringLiteral("DR. LUIS CASTAÑEDA")},
            {"txtLastName", QStringLiteral("CRUZ")}, {"txtFirstName", QStringLiteral("JUAN")},
            {"txtMiddleName", QStringLiteral("SY")}, {"txtDocID", QStringLiteral("D003")}};
        for (const auto& [name, text] : boxes)
            Box(name).setText(text);
        return screen;
    }

    static QLineEdit& Box(const char* name) { return Find<QLineEdit>(Screens::Get<frmPostCharges>(), name); }
    static FlexGrid& Grid() { return Find<FlexGrid>(Screens::Get<frmPostCharges>(), "grdTable"); }
    static FlexCells& Cells() { return Grid().Cells(); }

    /// One line of the grid, its columns 1 to 4 and 6.
    static void PutLine(int row, const std::vector<QString>& texts) {
        const std::vector<int> columns = {Column::kDepartment, Column::kCode, Column::kParticular,
                                          kPostChargesDifferences.quantityCol, Column::kAmount};
        for (size_t i = 0; i < texts.size(); ++i)
            Cells().SetTextMatrix(row, columns[i], texts[i]);
    }
};
