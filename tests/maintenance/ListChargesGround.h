#pragma once

#include "components/shared.h"
#include "maintenance/commands.h"
#include "maintenance/frmListCharges.h"
#include "patients/FinderTarget.h"
#include "patients/PatientContext.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

/// A line as the list of charges answers it; the three last fields are the same for all.
struct ChargedLine {
    QString department;
    QString item;
    QString quantity;
    QString amount;
    QString slip = QStringLiteral("H1042C");
};

inline std::shared_ptr<const RowData> ChargedLines(const std::vector<ChargedLine>& lines) {
    std::vector<std::vector<Value>> rows;
    for (const ChargedLine& line : lines)
        rows.push_back({line.department, line.item, QStringLiteral("PARTICULAR"), line.quantity,
                        Decimal{line.amount}, line.slip, QStringLiteral("shown"), QStringLiteral("shown"),
                        QStringLiteral("LINE7")});
    std::vector<QString> names;
    for (int i = 1; i <= 9; ++i)
        names.push_back(QStringLiteral("Field%1").arg(i));
    return Rows(names, std::move(rows));
}

/// The list of charges, shown, with a patient in it.
class ListChargesGround : public ScreenTest {
  protected:
    ListChargesGround() {
        RegisterFinderTarget(QStringLiteral("List"), ListChargesTarget);
        gChargeMode = QStringLiteral("List");
        gAccountNumber = QStringLiteral("500123");
        gStationName = QStringLiteral("STATION 3");
        personFinder->FillAdmission();
    }
    ~ListChargesGround() override { RegisterFinderTarget(QStringLiteral("List"), {}); }

    frmListCharges& Open() {
        auto& screen = Screens::Get<frmListCharges>();
        screen.Show();
        Activate(screen);
        const std::vector<std::pair<const char*, QString>> boxes = {
            {"txtPno", QStringLiteral("100085")},      {"txtId", QStringLiteral("104233")},
            {"txtRoom", QStringLiteral("ROOM SHOWN")}, {"txtLastName", QStringLiteral(" CRUZ ")},
            {"txtFirstName", QStringLiteral("JUAN ")}, {"txtMiddleName", QStringLiteral(" SY")}};
        for (const auto& [name, text] : boxes)
            Box(name).setText(text);
        return screen;
    }

    void ExpectList(const std::vector<ChargedLine>& lines) {
        gateway.Expect(ListAllChargesCommand(QStringLiteral("100085"), QStringLiteral("104233")),
                       ChargedLines(lines));
    }

    /// The screen over those lines, listed by its button.
    void OpenList(const std::vector<ChargedLine>& lines) {
        Open();
        List(lines);
    }
    void List(const std::vector<ChargedLine>& lines) {
        ExpectList(lines);
        Click(ListButton());
    }

    static QLineEdit& Box(const char* name) { return Find<QLineEdit>(Screens::Get<frmListCharges>(), name); }
    static FlexGrid& Grid() { return Find<FlexGrid>(Screens::Get<frmListCharges>(), "mshflexList"); }
    static FlexCells& Cells() { return Grid().Cells(); }
    static QPushButton& Button(const char* name) {
        return Find<QPushButton>(Screens::Get<frmListCharges>(), name);
    }
    static QPushButton& ListButton() { return Button("cmdList"); }
    static QPushButton& Reprint() { return Button("cmdOption(0)"); }
    static QPushButton& Cancel() { return Button("cmdOption(1)"); }
    static QRadioButton& PatientType(int index) {
        return Find<QRadioButton>(Screens::Get<frmListCharges>(), index == 0 ? "Option1(0)" : "Option1(1)");
    }
    static bool OptionsAreEnabled() { return Reprint().isEnabled() && Cancel().isEnabled(); }
    static bool OptionsAreShown() { return Reprint().isVisible() && Cancel().isVisible(); }
    static bool NoOptionIsShown() { return !Reprint().isVisible() && !Cancel().isVisible(); }

    static QPoint PlaceOf(int row) { return Grid().CellRect(row, 3).center() - Grid().viewport()->pos(); }

    const ChargedLine service = {QStringLiteral("HC"), QStringLiteral("HC001"), QStringLiteral("1"),
                                 QStringLiteral("2800.0000")};
    const ChargedLine medicine = {QStringLiteral("HB"), QStringLiteral("M0002"), QStringLiteral("2"),
                                  QStringLiteral("2034.5000")};
};
