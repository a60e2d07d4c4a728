#pragma once

#include "components/shared.h"
#include "maintenance/commands.h"
#include "maintenance/frmReprint.h"
#include "patients/OutpatientSearch.h"
#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/// A line of the unit's charges as the database answers it.
struct ReprintLine {
    Value slip = QStringLiteral("H1042C");
    DateTime moment = DateTime::FromFields({2026, 11, 20, 14, 5, 30, 0}).value();
    QString item = QStringLiteral("HC001");
    Value description = QStringLiteral("TREATMENT");
    double quantity = 2;
    QString amount = QStringLiteral("2800.5000");
    QString encoder = QStringLiteral("CLERK");
    QString revenueCode = QStringLiteral("HC");
};

/// A visit search whose record the test sets.
class FakeOutpatientSearch : public OutpatientSearch {
  public:
    bool found = true;
    std::vector<QString> validated;

    bool ValidatePatient(QString& AdmNum) override {
        validated.push_back(AdmNum);
        return found;
    }
    QString IDNumber() const override { return QStringLiteral("104233B"); }
    QString HospitalNumber() const override { return QStringLiteral("100482"); }
    QString LastName() const override { return QStringLiteral("SANTOS "); }
    QString FirstName() const override { return QStringLiteral(" EVA "); }
    QString MiddleName() const override { return QStringLiteral("LIM "); }
    QString Company() const override { return QStringLiteral("MAXICARE"); }
};

/// The slip duplicate over scripted charges.
class ReprintGround : public ScreenTest {
  protected:
    ReprintGround() { personFinder->FillAdmission(); }
    ~ReprintGround() override { gOutpatientSearch = {}; }

    frmReprint& Open() {
        auto& screen = Screens::Get<frmReprint>();
        screen.Show();
        Activate(screen);
        return screen;
    }
    /// The screen with the in-patient 104233 and those charges.
    frmReprint& OpenPatient(const std::vector<ReprintLine>& lines) {
        frmReprint& screen = Open();
        Number().setText(QStringLiteral("104233"));
        ExpectCharges(QStringLiteral("104233"), lines);
        Press(Number(), Qt::Key_Return);
        return screen;
    }
    void SetOutpatient() { gOutpatientSearch = outpatient; }

    /// The fields come in an order of their own; the screen reads them by their names.
    void ExpectCharges(const QString& idNumber, const std::vector<ReprintLine>& lines) {
        std::vector<std::vector<Value>> rows;
        for (const ReprintLine& charge : lines)
            rows.push_back({charge.revenueCode, charge.encoder, Decimal{charge.amount}, charge.quantity,
                            charge.description, charge.item, charge.moment, charge.slip});
        gateway.Expect(ChargesByPatientCommand(idNumber),
                       Rows({QStringLiteral("RevenueID"), QStringLiteral("UserId"), QStringLiteral("Amount"),
                             QStringLiteral("Quantity"), QStringLiteral("Description"),
                             QStringLiteral("ItemID"), QStringLiteral("TransDate"), QStringLiteral("RefNum")},
                            std::move(rows)));
    }

    static QLineEdit& Box(const char* name) { return Find<QLineEdit>(Screens::Get<frmReprint>(), name); }
    static QLineEdit& Number() { return Box("txtIDNum"); }
    static QComboBox& PatientCode() { return Find<QComboBox>(Screens::Get<frmReprint>(), "cmbPatientCode"); }
    static FlexGrid& Grid() { return Find<FlexGrid>(Screens::Get<frmReprint>(), "grdTable"); }
    static FlexCells& Cells() { return Grid().Cells(); }
    static QPushButton& PrintButton() { return Find<QPushButton>(Screens::Get<frmReprint>(), "cmdPrint"); }
    static QPushButton& Close() { return Find<QPushButton>(Screens::Get<frmReprint>(), "cmdClose"); }
    static QStringList Row(int row) {
        QStringList texts;
        for (int col = 1; col <= 8; ++col)
            texts << Cells().TextMatrix(row, col);
        return texts;
    }
    static QPoint PlaceOf(int row) { return Grid().CellRect(row, 4).center() - Grid().viewport()->pos(); }
    static void ClickRow(int row) { QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, PlaceOf(row)); }

    const ReprintLine line;
    std::shared_ptr<FakeOutpatientSearch> outpatient = std::make_shared<FakeOutpatientSearch>();
};
