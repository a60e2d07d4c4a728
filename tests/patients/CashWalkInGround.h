#pragma once

#include "components/shared.h"
#include "patients/commands.h"
#include "patients/FakeCashTarget.h"
#include "patients/frmCashWalkIn.h"
#include "patients/PatientContext.h"
#include "support/ErrorOf.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

/// A cash patient as the server lists one.
struct CashPatient {
    QString idNumber;
    QString hospitalNumber;
    QString name;
    Value date = {};
    QString admission = {};
};

inline std::shared_ptr<const RowData> CashPatients(const std::vector<CashPatient>& patients) {
    std::vector<std::vector<Value>> rows;
    for (const CashPatient& patient : patients)
        rows.push_back(
            {patient.idNumber, patient.hospitalNumber, patient.name, patient.date, patient.admission});
    return Rows({QStringLiteral("ADM. #"), QStringLiteral("HOSP. #"), QStringLiteral("PATIENT NAME"),
                 QStringLiteral("ADM. DATE"), QStringLiteral("AdmissionNum")},
                std::move(rows));
}

/// What the registration of a walk-in sends of whom nothing but the last name was keyed.
inline WalkInEntry NameAlone(const QString& lastName) {
    WalkInEntry entry;
    entry.lastName = lastName;
    entry.birthDate = QStringLiteral("/  /");
    entry.sex = QStringLiteral("M");
    return entry;
}

/// The cash patient list over a fake assessment, whose "Inpatient" is on.
class CashWalkInGround : public ScreenTest {
  protected:
    CashWalkInGround() {
        assessment.typeOn = 0;
        RegisterCashTarget([this]() -> CashTarget& { return assessment; });
        personFinder->FillAdmission();
        gCashSearchText = QStringLiteral("CRUZ");
    }
    ~CashWalkInGround() override { RegisterCashTarget({}); }

    void ExpectList(const QString& text, const QString& kind, const std::vector<CashPatient>& patients) {
        gateway.Expect(GetCashPatientCommand(text, kind), CashPatients(patients));
    }

    /// The list of the assessment's in-patients, opened over those patients and active.
    frmCashWalkIn& Open(const std::vector<CashPatient>& patients) {
        ExpectList(gCashSearchText.trimmed(), QString::number(assessment.typeOn + 1), patients);
        return OpenAsItStands();
    }

    static frmCashWalkIn& OpenAsItStands() {
        auto& list = Screens::Get<frmCashWalkIn>();
        list.Show();
        Activate(list);
        return list;
    }

    /// The number of the failure that opening raises; the list searches at its first touch.
    static int OpenFails() {
        return ErrorOf([] { Screens::Get<frmCashWalkIn>(); });
    }

    static FlexGrid& Grid(const Form& list) { return Find<FlexGrid>(list, "MSHFlexCash"); }

    static void DoubleClickRow(const Form& list, int row) {
        const FlexGrid& grid = Grid(list);
        DoubleClick(*grid.viewport(), grid.CellRect(row, 3).center() - grid.viewport()->pos());
    }

    FakeCashTarget assessment;
    const std::vector<CashPatient> two = {
        {QStringLiteral("104233"), QStringLiteral("100085"), QStringLiteral("CRUZ, ANA SY"),
         DateTime::FromFields({2026, 11, 3, 14, 15, 0, 0}).value(), QStringLiteral("A-104233")},
        {QStringLiteral("10231B"), QStringLiteral("100090"), QStringLiteral("CRUZ, EVA UY"),
         DateTime::FromFields({2026, 11, 4}).value(), QStringLiteral("10231B")}};
};
