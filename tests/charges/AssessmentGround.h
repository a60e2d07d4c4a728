#pragma once

#include "charges/ChargeColumns.h"
#include "charges/frmAssessment.h"
#include "patients/CashTarget.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

/// frmAssessment, shown and active, as the screen that waits for a cash patient.
class AssessmentGround : public ScreenTest {
  protected:
    AssessmentGround() {
        RegisterCashTarget([]() -> CashTarget& { return Screens::Get<frmAssessment>(); });
    }
    ~AssessmentGround() override { RegisterCashTarget({}); }

    frmAssessment& Open() {
        auto& screen = Screens::Get<frmAssessment>();
        screen.Show();
        Activate(*screen.window());
        return screen;
    }

    /// Opens the screen with a patient in it, as the list of cash patients leaves it.
    frmAssessment& OpenWithPatient() {
        frmAssessment& screen = Open();
        screen.EnableExams();
        const std::vector<std::pair<const char*, QString>> boxes = {
            {"txtSname", QStringLiteral("CRUZ, JUAN SY")},
            {"txtHospNum", QStringLiteral("100085")},
            {"txtIdnum", QStringLiteral("10231B")},
            {"txtDoctorID", QStringLiteral("D003")},
            {"txtDoctor", QStringLiteral("DR. LUIS CASTAÑEDA")}};
        for (const auto& [name, text] : boxes)
            Box(name).setText(text);
        return screen;
    }

    static QLineEdit& Box(const char* name) { return Find<QLineEdit>(Screens::Get<frmAssessment>(), name); }
    static QPushButton& Button(const char* name) {
        return Find<QPushButton>(Screens::Get<frmAssessment>(), name);
    }
    static QGroupBox& Frame(const char* name) { return Find<QGroupBox>(Screens::Get<frmAssessment>(), name); }
    static QRadioButton& Type(int index) {
        return Find<QRadioButton>(Screens::Get<frmAssessment>(),
                                  qPrintable(QStringLiteral("optType(%1)").arg(index)));
    }
    static FlexGrid& Grid() { return Find<FlexGrid>(Screens::Get<frmAssessment>(), "grdTable"); }
    static FlexCells& Cells() { return Grid().Cells(); }

    /// One line of the grid, its columns 1 to 6.
    static void PutLine(int row, const std::vector<QString>& texts) {
        for (size_t i = 0; i < texts.size(); ++i)
            Cells().SetTextMatrix(row, int(i) + 1, texts[i]);
    }
};
