#include "support/hospital/HospitalTest.h"

#include <QHash>
#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// What must agree in the trial hospital as it is made.
class Reconciliation : public HospitalTest {
  protected:
    QString Count(const QString& from) { return Cell(u"SELECT COUNT(*) FROM "_s + from); }
};

TEST_F(Reconciliation, SlipNumbersRiseWithoutAGapAndTheCounterIsBeyondTheLast) {
    int expected = 0;
    QString last;
    QString date;
    const RowSet rows =
        mGateway->Execute(u"SELECT RefNum, TransDate FROM BILLING..tbPatientCharges WHERE SourceDept = "
                          "'HC' AND RecordType = 'D' ORDER BY ChargeID"_s);
    const auto data = rows.Data();
    DateTime before;
    for (size_t row = 0; row < data->RowCount(); ++row) {
        const QString slip = data->Cell(row, 0).ToText();
        const int number = slip.mid(1).chopped(1).toInt();
        EXPECT_EQ(slip, u"H%1C"_s.arg(number));
        EXPECT_TRUE(row == 0 || number == expected || number == expected + 1) << slip.toStdString();
        EXPECT_GE(data->Cell(row, 1).ToDate(), before);
        before = data->Cell(row, 1).ToDate();
        expected = number;
    }
    EXPECT_EQ(Cell(u"SELECT ChargeSlip FROM Clinical_Area..tbEarCareChargeSlip"_s),
              QString::number(expected + 1));
}

TEST_F(Reconciliation, EverySlipIsOnOneAccountAndTheAccountsAreTheSumOfTheirSlips) {
    EXPECT_TRUE(Rows(u"SELECT RefNum FROM BILLING..tbPatientCharges GROUP BY RefNum HAVING MIN(IdNum) <> "
                     u"MAX(IdNum) OR "
                     "MIN(UserID) <> MAX(UserID) AND SUM(CASE WHEN RecordType = 'C' THEN 1 ELSE 0 END) = 0"_s)
                    .empty());
    EXPECT_EQ(Cell(u"SELECT SUM(x.Total) FROM (SELECT SUM(c.Amount) AS Total FROM BILLING..tbPatientCharges "
                   u"AS c GROUP "
                   "BY c.IdNum) AS x"_s),
              Cell(u"SELECT SUM(x.Total) FROM (SELECT SUM(c.Amount) AS Total FROM BILLING..tbPatientCharges "
                   u"AS c GROUP "
                   "BY c.RefNum) AS x"_s));
}

TEST_F(Reconciliation, EveryLineBelongsToAnAdmissionOrVisitThatWasOpenThen) {
    EXPECT_EQ(
        Count(
            u"BILLING..tbPatientCharges AS c WHERE c.PatientType = 'I' AND NOT EXISTS (SELECT p.IdNum FROM "
            "PATIENT_DATA..tbpatient AS p WHERE p.IdNum = c.IdNum AND p.HospNum = c.HospNum AND p.AdmDate <= "
            "c.TransDate AND (p.DcrDate IS NULL OR p.DcrDate >= c.TransDate) AND p.RoomID = c.RoomID)"_s),
        u"0"_s);
    EXPECT_EQ(
        Count(
            u"BILLING..tbPatientCharges AS c WHERE c.PatientType = 'O' AND NOT EXISTS (SELECT p.IdNum FROM "
            "PATIENT_DATA..tboutpatient AS p WHERE p.IdNum = c.IdNum AND p.HospNum = c.HospNum AND p.AdmDate "
            "<= c.TransDate AND (p.DcrDate IS NULL OR p.DcrDate >= c.TransDate) AND c.RoomID = 'OPD')"_s),
        u"0"_s);
    EXPECT_NE(Count(u"BILLING..tbPatientCharges WHERE PatientType = 'I'"_s), u"0"_s);
    EXPECT_NE(Count(u"BILLING..tbPatientCharges WHERE PatientType = 'O'"_s), u"0"_s);
}

TEST_F(Reconciliation, ServicesCostTheRateOfThePatientsClassTimesTheQuantity) {
    int compared = 0;
    for (
        const QStringList& row : Rows(
            u"SELECT c.Units, c.Amount, r.RoomClassID, s.RateA, s.RateB, s.RateC, s.RateD, s.RateE, s.RateF, "
            u"s.RateG, "
            "s.RateH FROM BILLING..tbPatientCharges AS c INNER JOIN build_file..tbCoOtherRevenue AS s ON "
            "s.RevenueID "
            "= c.RevenueID AND s.ItemID = c.ItemID INNER JOIN build_file..tbCoRoom AS r ON r.RoomID = c.RoomID"_s)) {
        const int rate = 3 + row[2].at(0).unicode() - u'A';
        EXPECT_DOUBLE_EQ(row[1].toDouble(), row[0].toDouble() * row[rate].toDouble());
        ++compared;
    }
    EXPECT_GT(compared, 2000);
}

TEST_F(Reconciliation, StockCostsItsInPatientPriceTimesTheQuantity) {
    int compared = 0;
    for (const QStringList& row :
         Rows(u"SELECT c.Units, c.Amount, i.SellingPriceIn FROM BILLING..tbPatientCharges AS c "
              "INNER JOIN INVENTORY..tbInvMaster AS i ON i.ItemID = c.ItemID WHERE "
              "c.RevenueID = 'HB' OR c.RevenueID = 'HD'"_s)) {
        EXPECT_NEAR(row[1].toDouble(), row[0].toDouble() * row[2].toDouble(), 0.0001);
        ++compared;
    }
    EXPECT_GT(compared, 1500);
}

TEST_F(Reconciliation, QuantityAsKeyedAndAsANumberAreTheSame) {
    EXPECT_EQ(Count(u"BILLING..tbPatientCharges WHERE CAST(Quantity AS float) <> Units"_s), u"0"_s);
    EXPECT_EQ(Count(u"BILLING..tbPatientCharges WHERE RevenueID = 'MD' AND Quantity <> ''"_s), u"0"_s);
    EXPECT_NE(Count(u"BILLING..tbPatientCharges WHERE RevenueID = 'MD'"_s), u"0"_s);
}

TEST_F(Reconciliation, EveryReversalTakesBackALineOfItsSlip) {
    EXPECT_NE(Count(u"BILLING..tbPatientCharges WHERE RecordType = 'C'"_s), u"0"_s);
    EXPECT_EQ(
        Count(
            u"BILLING..tbPatientCharges AS c WHERE c.RecordType = 'C' AND NOT EXISTS (SELECT o.ChargeID FROM "
            "BILLING..tbPatientCharges AS o WHERE o.RecordType = 'D' AND o.RefNum = c.RefNum AND o.ItemID = "
            "c.ItemID AND o.RevenueID = c.RevenueID AND o.Amount + c.Amount = 0 AND o.Units + c.Units = 0 "
            "AND "
            "o.TransDate <= c.TransDate)"_s),
        u"0"_s);
}

TEST_F(Reconciliation, StockCardsAreInStepWithTheChargesAndNothingIsBelowZero) {
    const auto charged =
        Rows(u"SELECT c.ItemID, SUM(c.Units) AS n, SUM(c.Amount) AS a FROM BILLING..tbPatientCharges AS "
             "c WHERE c.RevenueID = 'HB' OR c.RevenueID = 'HD' GROUP BY c.ItemID ORDER BY c.ItemID"_s);
    EXPECT_EQ(
        charged,
        Rows(u"SELECT ItemID, SUM(QtyOut) - SUM(QtyIn) AS n, SUM(Amount) AS a FROM "
             "INVENTORY..tbInvStockCard WHERE RecordType = 'I' OR RecordType = 'C' GROUP BY ItemID ORDER "
             "BY ItemID"_s));
    EXPECT_FALSE(charged.empty());
    EXPECT_TRUE(
        Rows(
            u"SELECT ItemID FROM INVENTORY..tbInvStockCard GROUP BY ItemID HAVING SUM(QtyIn) < SUM(QtyOut)"_s)
            .empty());
    EXPECT_EQ(
        Count(u"INVENTORY..tbInvMaster AS i WHERE NOT EXISTS (SELECT s.StockCardID FROM "
              "INVENTORY..tbInvStockCard AS s WHERE s.ItemID = i.ItemID AND s.SectionID = i.SectionID AND "
              "s.RecordType = 'B')"_s),
        u"0"_s);
}

TEST_F(Reconciliation, LaboratoryPostsToTheSameAccounts) {
    EXPECT_NE(Count(u"BILLING..tbPatientCharges WHERE SourceDept = 'LB'"_s), u"0"_s);
    EXPECT_EQ(
        Count(
            u"BILLING..tbPatientCharges WHERE SourceDept = 'LB' AND (RevenueID <> 'LB' OR LEFT(RefNum, 1) <> "
            "'L')"_s),
        u"0"_s);
}

TEST_F(Reconciliation, ClosedAccountsGetNoMoreCharges) {
    EXPECT_EQ(Count(u"BILLING..tbPatientCharges AS c INNER JOIN PATIENT_DATA..tbpatient AS p ON p.IdNum = "
                    u"c.IdNum WHERE "
                    "p.BillingDate < c.TransDate"_s),
              u"0"_s);
}

TEST_F(Reconciliation, PaidAssessmentsHaveAReceiptOfOneDateForAllTheirLines) {
    EXPECT_EQ(
        Count(
            u"BILLING..tbCashAssessment WHERE ORNum IS NULL AND ORDate IS NOT NULL OR ORNum IS NOT NULL AND "
            "ORDate IS NULL OR ORNum IS NOT NULL AND RevokeDate IS NOT NULL"_s),
        u"0"_s);
    EXPECT_TRUE(
        Rows(u"SELECT ORNum FROM BILLING..tbCashAssessment WHERE ORNum IS NOT NULL GROUP BY ORNum HAVING "
             "COUNT(DISTINCT Name) > 1"_s)
            .empty());
    EXPECT_EQ(Count(u"BILLING..tbCashAssessment WHERE RevokeDate IS NOT NULL"_s),
              Count(u"BILLING..tbAuditTrail WHERE Event = 'REVOKE'"_s));
}

TEST_F(Reconciliation, EveryActThatLeavesNoOtherTraceHasItsUser) {
    const QString isNoUser = u" NOT IN (SELECT u.EmployeeID FROM PASSWORD..tbPasswordMain AS u)"_s;
    EXPECT_EQ(Count(u"BILLING..tbAuditTrail WHERE UserID"_s + isNoUser), u"0"_s);
    EXPECT_EQ(Count(u"PATIENT_DATA..tbwalkin WHERE RegisteredBy"_s + isNoUser), u"0"_s);
    EXPECT_EQ(Count(u"BILLING..tbCashAssessment WHERE RevokeDate IS NOT NULL AND RevokedBy"_s + isNoUser),
              u"0"_s);
    EXPECT_EQ(
        Count(
            u"BILLING..tbCashAssessment WHERE (RevokeDate IS NULL AND RevokedBy IS NOT NULL) OR (RevokeDate "
            "IS NOT NULL AND RevokedBy IS NULL)"_s),
        u"0"_s);
    for (const QString& event : {u"REPRINT"_s, u"REVOKE"_s, u"WALK-IN"_s})
        EXPECT_NE(Count(u"BILLING..tbAuditTrail WHERE Event = '%1'"_s.arg(event)), u"0"_s)
            << event.toStdString();
}

TEST_F(Reconciliation, EveryNameThatACodeStandsForExists) {
    EXPECT_EQ(
        Count(
            u"PATIENT_DATA..tbpatient AS p WHERE NOT EXISTS (SELECT r.RoomID FROM build_file..tbCoRoom AS r "
            "WHERE r.RoomID = p.RoomID) OR NOT EXISTS (SELECT c.CompanyID FROM build_file..tbCoCompany AS c "
            "WHERE c.CompanyID = p.CompanyID) OR NOT EXISTS (SELECT d.DoctorID FROM build_file..tbCoDoctor "
            "AS d "
            "WHERE d.DoctorID = p.DoctorID1) OR NOT EXISTS (SELECT m.HospNum FROM PATIENT_DATA..tbmaster AS "
            "m "
            "WHERE m.HospNum = p.HospNum)"_s),
        u"0"_s);
    EXPECT_EQ(Count(u"PATIENT_DATA..tbmaster AS m WHERE NOT EXISTS (SELECT a.ZipCode FROM "
                    u"build_file..tbCoAddress AS a "
                    "WHERE a.ZipCode = m.ZipCode) OR NOT EXISTS (SELECT c.CivilStatusID FROM "
                    "build_file..tbCoCivilStatus AS c WHERE c.CivilStatusID = m.CivilStatusID)"_s),
              u"0"_s);
    EXPECT_EQ(Count(u"build_file..tbCoRoom AS r WHERE NOT EXISTS (SELECT s.StationID FROM "
                    u"build_file..tbCoStation AS s "
                    "WHERE s.StationID = r.StationID) OR NOT EXISTS (SELECT c.RoomClassID FROM "
                    "build_file..tbCoRoomClass AS c WHERE c.RoomClassID = r.RoomClassID)"_s),
              u"0"_s);
}

} // namespace
