#pragma once

#include "components/shared.h"
#include "patients/commands.h"
#include "patients/FakeFinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "support/ErrorOf.h"
#include "support/FakeWorkspace.h"
#include "support/ScreenTest.h"
#include "toolkit/ListView.h"
#include "toolkit/Screens.h"

#include <QHeaderView>
#include <QTest>

#include <map>

/// A patient as the server lists one.
struct Patient {
    QString hospitalNumber;
    QString admissionNumber;
    QString name;
    Value admissionDate = {};
    Value billingDate = {};
};

/// What the server answers; the columns stand in an order of their own, since they are read by name.
inline std::shared_ptr<const RowData> Patients(const std::vector<Patient>& patients) {
    std::vector<std::vector<Value>> rows;
    for (const Patient& patient : patients)
        rows.push_back({patient.name, patient.billingDate, patient.admissionDate, patient.admissionNumber,
                        patient.hospitalNumber});
    return Rows({QStringLiteral("Patient Name"), QStringLiteral("Billing Date"),
                 QStringLiteral("admission date"), QStringLiteral("Admission #"),
                 QStringLiteral("hospital #")},
                std::move(rows));
}

/// The finder inside a main window, with fake screens that wait for it in the three modes.
class SearchPatientGround : public ScreenTest {
  protected:
    SearchPatientGround() {
        for (const QString& mode :
             {QStringLiteral("Post"), QStringLiteral("List"), QStringLiteral("Ledger")}) {
            targets[mode].finderText = mode + QStringLiteral(" text");
        }
        personFinder->FillAdmission();
        gPatientType = QStringLiteral("I");
    }

    /// The finder of a mode, opened over those patients and active.
    frmSearchPatient& Open(const QString& mode, const std::vector<Patient>& patients) {
        gChargeMode = mode;
        if (targets.contains(mode))
            ExpectList(targets[mode].finderText, patients);
        auto& finder = Screens::Get<frmSearchPatient>();
        finder.Show();
        Activate(*finder.window());
        return finder;
    }

    void ExpectList(const QString& text, const std::vector<Patient>& patients) {
        gateway.Expect(GetPatientCommand(gPatientType, text), Patients(patients));
    }

    /// The number of the failure that opening raises; the screen is loaded at its first touch.
    static int OpenFails() {
        return ErrorOf([] { Screens::Get<frmSearchPatient>(); });
    }

    static ListView& List(const frmSearchPatient& finder) { return Find<ListView>(finder, "ListView1"); }

    static QString Cell(const frmSearchPatient& finder, int row, int column) {
        const QAbstractItemModel& rows = *List(finder).model();
        return rows.data(rows.index(row, column)).toString();
    }

    static std::vector<QString> Names(const frmSearchPatient& finder) {
        std::vector<QString> names;
        for (int row = 0; row < List(finder).RowCount(); ++row)
            names.push_back(Cell(finder, row, 2));
        return names;
    }

    static QPoint PlaceOf(const ListView& list, int row) {
        return list.visualRect(list.model()->index(row, 0)).center();
    }

    static void ClickRow(const frmSearchPatient& finder, int row) {
        QTest::mouseClick(List(finder).viewport(), Qt::LeftButton, {}, PlaceOf(List(finder), row));
    }

    static void DoubleClickRow(const frmSearchPatient& finder, int row) {
        DoubleClick(*List(finder).viewport(), PlaceOf(List(finder), row));
    }

    static void ClickHeader(const frmSearchPatient& finder, int column) {
        QHeaderView& header = *List(finder).horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(column) + 10, header.height() / 2));
    }

    void ExpectLoad(const QString& idNumber) {
        gateway.Expect(
            OutPatientCommand(idNumber),
            Rows({QStringLiteral("DoctorID1"), QStringLiteral("DoctorID2"), QStringLiteral("DoctorID3")}));
    }

    /// Whether the main window's item for the ledger was last enabled or disabled.
    bool LedgerItemIsEnabled() const {
        EXPECT_FALSE(workspace.menuItems.empty());
        for (const auto& [name, enabled] : workspace.menuItems)
            EXPECT_EQ(name, QStringLiteral("mnuMLedger"));
        return !workspace.menuItems.empty() && workspace.menuItems.back().second;
    }

    FakeWorkspace workspace;
    FakeFinderTargets targets;
    const std::vector<Patient> three = {
        {QStringLiteral("300"), QStringLiteral("A3"), QStringLiteral("CRUZ")},
        {QStringLiteral("100"), QStringLiteral("A1"), QStringLiteral("SANTOS")},
        {QStringLiteral("200"), QStringLiteral("A2"), QStringLiteral("ABAD")}};
};
