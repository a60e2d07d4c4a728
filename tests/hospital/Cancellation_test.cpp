#include "support/FixedClock.h"
#include "support/hospital/HospitalTest.h"

using namespace Qt::StringLiterals;

namespace {

/// A slip H9001C with a treatment, two vials of a medicine and a fee, and what becomes of it.
class Cancellation : public HospitalTest {
  protected:
    void SetUp() override {
        Post(u"HC"_s, u"HC001"_s, u"1"_s, u"2800.00"_s, u"HEMODIALYSIS TREATMENT"_s);
        Post(u"HB"_s, u"M0002"_s, u"2"_s, u"2034.00"_s, u"EPOETIN ALFA 4000 IU"_s);
        Post(u"MD"_s, u"D003"_s, u""_s, u"1500.00"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s);
    }
    void Post(const QString& centre, const QString& code, const QString& quantity, const QString& amount,
              const QString& particular, const QString& slip = u"H9001C"_s) {
        Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026 10:15:07 "
            u"AM','%1','D','%2','%3', "
            "'%6','%4','NURSE','W201','D005','SANTOS, EMMANUEL CRUZ', 'I','%5'"_s.arg(
                centre, code, quantity, amount, particular, slip));
    }
    QString ListCommand() const {
        return u"Clinical_Area..SpEarCare_List_AllCharges '100050','700124','HC'"_s;
    }
    std::vector<QStringList> Slip() {
        std::vector<QStringList> rows = Rows(ListCommand());
        std::erase_if(rows, [](const QStringList& row) { return row[5] != "H9001C"_L1; });
        return rows;
    }
    void CancelService(const QString& centre, const QString& code, const QString& quantity,
                       const QString& amount) {
        RunAs(u"CLERK"_s, Call(u"Clinical_ARea..spEarCare_UpdateCharging"_s,
                               {u"100050"_s, u"700124"_s, code, amount, quantity, u"11/21/2026 10:20:00 AM"_s,
                                centre, u"CLERK"_s, u"I"_s, u"C"_s, u"W201"_s, u"H9001C"_s, u""_s}));
    }
    void CancelStock(const QString& code, const QString& quantity, const QString& amount,
                     const QString& line) {
        RunAs(u"CLERK"_s, Call(u"INVENTORY..spStock_AppendStockCard"_s,
                               {u"100050"_s, u"700124"_s, code, u"11/21/2026 10:20:00 AM"_s, u"H9001C"_s,
                                quantity, amount, u"CLERK"_s, line, u"W201"_s, u"C"_s, u"I"_s}));
    }
    /// A line of one unit at 180 that the laboratory has entered.
    void PostByTheLaboratory(const QString& centre, const QString& code) {
        Run(u"INSERT INTO BILLING..tbPatientCharges (HospNum, IdNum, PatientType, TransDate, RevenueID, "
            "RecordType, ItemID, Description, Quantity, Units, Amount, RefNum, UserID, RoomID, DoctorID, "
            "DoctorName, SourceDept, EntryDate) VALUES ('100050', '700124', 'I', '20261121', '%1', 'D', "
            "'%2', 'CREATININE', '1', 1, 180, 'H9001C', 'LAB', 'W201', 'D005', '', 'LB', '20261121')"_s.arg(
                centre, code));
    }
    std::vector<QStringList> Left(const QString& centre, const QString& code) {
        return Rows(
            Call(u"Clinical_Area..spEarCare_VerifyCharges"_s, {u"700124"_s, code, u"H9001C"_s, centre}));
    }
    QString OnHand(const QString& code) {
        return Cell(
            u"SELECT SUM(QtyIn) - SUM(QtyOut) FROM INVENTORY..tbInvStockCard WHERE ItemID = '%1'"_s.arg(
                code));
    }
};

TEST_F(Cancellation, ListHasTheColumnsThatTheScreenReadsByPosition) {
    EXPECT_EQ(Columns(ListCommand()),
              QStringList({u"Dept."_s, u"Item. #"_s, u"Item Description"_s, u"QTY"_s, u"Amount"_s,
                           u"ChargeSlip #"_s, u"Date"_s, u"User"_s, u"Line #"_s}));
    ASSERT_EQ(Slip().size(), 3U);
    EXPECT_EQ(Slip()[1].mid(0, 8),
              QStringList({u"HB"_s, u"M0002"_s, u"EPOETIN ALFA 4000 IU"_s, u"2"_s, u"2034"_s, u"H9001C"_s,
                           u"11/21/2026 10:15:07 AM"_s, u"NURSE"_s}));
}

TEST_F(Cancellation, ListLeavesOutOtherDepartmentsAndOtherAdmissions) {
    PostByTheLaboratory(u"LB"_s, u"LB001"_s);
    EXPECT_EQ(Slip().size(), 3U);
    EXPECT_TRUE(Rows(u"Clinical_Area..SpEarCare_List_AllCharges '100051','700124','HC'"_s).empty());
}

TEST_F(Cancellation, WhatIsLeftOfALineIsItsAmountUntilItIsCancelled) {
    EXPECT_EQ(Left(u"HC"_s, u"HC001"_s).front()[0], u"2800"_s);
    CancelService(u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s);
    EXPECT_EQ(Left(u"HC"_s, u"HC001"_s).front()[0], u"0"_s);
    EXPECT_TRUE(Left(u"HC"_s, u"HC002"_s).empty());
    EXPECT_TRUE(Left(u""_s, u""_s).empty());
}

TEST_F(Cancellation, ServiceIsReversedOnTheAccount) {
    CancelService(u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s);
    ASSERT_EQ(Slip().size(), 4U);
    EXPECT_EQ(Slip()[3].mid(0, 8),
              QStringList({u"HC"_s, u"HC001"_s, u"HEMODIALYSIS TREATMENT"_s, u"-1"_s, u"-2800"_s, u"H9001C"_s,
                           u"11/21/2026 10:20:00 AM"_s, u"CLERK"_s}));
}

TEST_F(Cancellation, FeeIsReversedWithoutQuantity) {
    CancelService(u"MD"_s, u"D003"_s, u""_s, u"1500"_s);
    EXPECT_EQ(Slip()[3].mid(3, 2), QStringList({u""_s, u"-1500"_s}));
}

TEST_F(Cancellation, NothingIsReversedTwice) {
    CancelService(u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s);
    CancelService(u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s);
    CancelService(u"HC"_s, u"HC001"_s, u"-1"_s, u"-2800"_s);
    EXPECT_EQ(Slip().size(), 4U);
}

TEST_F(Cancellation, OneOfTwoFeesOfTheSameDoctorIsReversedAlone) {
    Post(u"MD"_s, u"D003"_s, u""_s, u"500.00"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s);
    CancelService(u"MD"_s, u"D003"_s, u""_s, u"500"_s);
    EXPECT_EQ(Left(u"MD"_s, u"D003"_s).front()[0], u"1500"_s);
}

TEST_F(Cancellation, StockItemIsReversedOnTheAccountAndGoesBackToStock) {
    const double before = OnHand(u"M0002"_s).toDouble();
    CancelStock(u"M0002"_s, u"2"_s, u"-2034"_s, Slip()[1][8]);
    EXPECT_EQ(OnHand(u"M0002"_s).toDouble(), before + 2);
    ASSERT_EQ(Slip().size(), 4U);
    EXPECT_EQ(Slip()[3].mid(0, 6), QStringList({u"HB"_s, u"M0002"_s, u"EPOETIN ALFA 4000 IU"_s, u"-2"_s,
                                                u"-2034"_s, u"H9001C"_s}));
    EXPECT_EQ(Left(u"HB"_s, u"M0002"_s).front()[0], u"0"_s);
}

TEST_F(Cancellation, StockItemIsTakenBackOnce) {
    const QString line = Slip()[1][8];
    CancelStock(u"M0002"_s, u"2"_s, u"-2034"_s, line);
    const QString onHand = OnHand(u"M0002"_s);
    CancelStock(u"M0002"_s, u"2"_s, u"-2034"_s, line);
    EXPECT_EQ(OnHand(u"M0002"_s), onHand);
    EXPECT_EQ(Slip().size(), 4U);
}

TEST_F(Cancellation, BlankRowCancelsNothing) {
    CancelStock(u""_s, u"0"_s, u"0"_s, u""_s);
    EXPECT_EQ(Slip().size(), 3U);
}

TEST_F(Cancellation, PackageItemIsIssuedWithoutACharge) {
    const double before = OnHand(u"S0018"_s).toDouble();
    Run(u"INVENTORY..spStock_AppendStockCard '100050','700124','S0018','11/21/2026 10:20:00 "
        u"AM','H9001C','2','111',"
        "'NURSE'"_s);
    EXPECT_EQ(OnHand(u"S0018"_s).toDouble(), before - 2);
    EXPECT_EQ(Slip().size(), 3U);
    Run(u"UPDATE INVENTORY..tbInvStockCard SET PackageID = 'PK001' WHERE ItemID = 'S0018' AND RefNum = 'H9001C'"_s);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard WHERE PackageID = 'PK001'"_s), u"1"_s);
}

TEST_F(Cancellation, ReprintPutsTheSlipIntoThePrintTableAndIsRecorded) {
    CancelService(u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'OLD','1','1','HC','OLD', 'O'"_s);
    Run(u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s);
    EXPECT_EQ(
        Rows(u"SELECT ItemID, Amount, Quantity FROM Clinical_Area..tbEarCareChargePrint ORDER BY PrintID"_s),
        (std::vector<QStringList>{{u"HC001"_s, u"2800"_s, u"1"_s},
                                  {u"M0002"_s, u"2034"_s, u"2"_s},
                                  {u"D003"_s, u"1500"_s, u""_s},
                                  {u"HC001"_s, u"-2800"_s, u"-1"_s}}));
    EXPECT_EQ(Rows(u"SELECT Event, AuditDate, UserID FROM BILLING..tbAuditTrail WHERE RefNum = 'H9001C'"_s),
              (std::vector<QStringList>{{u"REPRINT"_s, u"11/21/2026 10:15:00 AM"_s, u"NURSE"_s}}));
}

TEST_F(Cancellation, ReprintOfNoSlipIsNotRecorded) {
    const QString before = Cell(u"SELECT COUNT(*) FROM BILLING..tbAuditTrail"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'OLD','1','1','HC','OLD', 'O'"_s);
    for (const QString& number : {u""_s, u"H9999C"_s})
        Run(u"Clinical_Area..spEarCare_ReprintChargeSlip '%1'"_s.arg(number));
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM BILLING..tbAuditTrail"_s), before);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM Clinical_Area..tbEarCareChargePrint"_s), u"0"_s);
}

TEST_F(Cancellation, LineOfAnItemThatIsTwiceOnTheSlipIsNotReversedTwice) {
    Post(u"MD"_s, u"D003"_s, u""_s, u"500.00"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s);
    for (const QString& amount : {u"1500"_s, u"500"_s}) {
        CancelService(u"MD"_s, u"D003"_s, u""_s, amount);
        const QString left = Left(u"MD"_s, u"D003"_s).front()[0];
        CancelService(u"MD"_s, u"D003"_s, u""_s, amount);
        EXPECT_EQ(Left(u"MD"_s, u"D003"_s).front()[0], left) << amount.toStdString();
    }
    EXPECT_EQ(Left(u"MD"_s, u"D003"_s).front()[0], u"0"_s);
}

TEST_F(Cancellation, StockLineOfAnItemThatIsTwiceOnTheSlipIsNotTakenBackTwice) {
    Post(u"HB"_s, u"M0002"_s, u"1"_s, u"1017.00"_s, u"EPOETIN ALFA 4000 IU"_s);
    const QString line = Slip()[3][8];
    CancelStock(u"M0002"_s, u"1"_s, u"-1017"_s, line);
    const QString onHand = OnHand(u"M0002"_s);
    CancelStock(u"M0002"_s, u"1"_s, u"-1017"_s, line);
    EXPECT_EQ(OnHand(u"M0002"_s), onHand);
    EXPECT_EQ(Left(u"HB"_s, u"M0002"_s).front()[0], u"2034"_s);
}

TEST_F(Cancellation, EachReprintIsRecordedWithItsTimeUserAndCount) {
    Post(u"HC"_s, u"HC001"_s, u"1"_s, u"2800.00"_s, u"HEMODIALYSIS TREATMENT"_s, u"H9002C"_s);
    Run(u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9002C'"_s);
    Run(u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s);
    const auto clock = FixedClock(DateTime::FromMilliseconds(Moment().Milliseconds() + 60'000));
    RunAs(u"CLERK"_s, u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s);
    EXPECT_EQ(
        Rows(u"SELECT AuditDate, UserID, Times FROM BILLING..tbAuditTrail WHERE RefNum = 'H9001C' ORDER BY "
             "AuditID"_s),
        (std::vector<QStringList>{{u"11/21/2026 10:15:00 AM"_s, u"NURSE"_s, u"1"_s},
                                  {u"11/21/2026 10:16:00 AM"_s, u"CLERK"_s, u"2"_s}}));
    EXPECT_EQ(Cell(u"SELECT Times FROM BILLING..tbAuditTrail WHERE RefNum = 'H9002C'"_s), u"1"_s);
}

TEST_F(Cancellation, LineThatIsNeitherServiceNorStockIsReversedOnTheAccountAlone) {
    Post(u"AM"_s, u"AM001"_s, u""_s, u"750.00"_s, u"AMBULANCE"_s);
    const QString movements = Cell(u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard"_s);
    CancelStock(u"AM001"_s, u"0"_s, u"-750"_s, Slip()[3][8]);
    ASSERT_EQ(Slip().size(), 5U);
    EXPECT_EQ(Slip()[4].mid(0, 6),
              QStringList({u"AM"_s, u"AM001"_s, u"AMBULANCE"_s, u""_s, u"-750"_s, u"H9001C"_s}));
    EXPECT_EQ(Left(u"AM"_s, u"AM001"_s).front()[0], u"0"_s);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard"_s), movements);
}

TEST_F(Cancellation, OutPatientsServiceIsReversedInTheRoomThatTheScreenNames) {
    Run(Call(u"Clinical_ARea..spEarCare_UpdateCharging"_s,
             {u"100050"_s, u"700124"_s, u"HC001"_s, u"2800"_s, u"1"_s, u"11/21/2026 10:20:00 AM"_s, u"HC"_s,
              u"NURSE"_s, u"O"_s, u"C"_s, u"OPD/ER"_s, u"H9001C"_s, u""_s}));
    EXPECT_EQ(Rows(u"SELECT RoomID, RecordType, RefNum, ItemID FROM BILLING..tbPatientCharges WHERE RefNum = "
                   "'H9001C' AND RecordType = 'C'"_s),
              (std::vector<QStringList>{{u"OPD/ER"_s, u"C"_s, u"H9001C"_s, u"HC001"_s}}));
}

TEST_F(Cancellation, LineOfAnotherDepartmentIsNotTakenBack) {
    PostByTheLaboratory(u"LB"_s, u"LB001"_s);
    PostByTheLaboratory(u"HB"_s, u"M0002"_s);
    const QString line = Cell(u"SELECT MAX(ChargeID) FROM BILLING..tbPatientCharges"_s);
    const QString lines = Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges"_s);
    const QString onHand = OnHand(u"M0002"_s);
    CancelService(u"LB"_s, u"LB001"_s, u"1"_s, u"180"_s);
    CancelStock(u"M0002"_s, u"1"_s, u"-180"_s, line);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges"_s), lines);
    EXPECT_EQ(OnHand(u"M0002"_s), onHand);
}

TEST_F(Cancellation, ReversalIsOfThePatientsTypeOfItsLine) {
    const QString stockLine = Slip()[1][8];
    Run(Call(u"Clinical_ARea..spEarCare_UpdateCharging"_s,
             {u"100050"_s, u"700124"_s, u"HC001"_s, u"2800"_s, u"1"_s, u"11/21/2026 10:20:00 AM"_s, u"HC"_s,
              u"NURSE"_s, u"O"_s, u"C"_s, u"W201"_s, u"H9001C"_s, u""_s}));
    Run(Call(u"INVENTORY..spStock_AppendStockCard"_s,
             {u"100050"_s, u"700124"_s, u"M0002"_s, u"11/21/2026 10:20:00 AM"_s, u"H9001C"_s, u"2"_s,
              u"-2034"_s, u"NURSE"_s, stockLine, u"W201"_s, u"C"_s, u"O"_s}));
    for (const QString& table : {u"BILLING..tbPatientCharges"_s, u"INVENTORY..tbInvStockCard"_s})
        EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM %1 WHERE RefNum = 'H9001C' AND RecordType = 'C' AND "
                       "PatientType <> 'I'"_s.arg(table)),
                  u"0"_s)
            << table.toStdString();
    EXPECT_EQ(
        Cell(
            u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C' AND RecordType = 'C'"_s),
        u"2"_s);
}

TEST_F(Cancellation, IssuerOfASlipIsFoundByWhatTheDuplicateAsks) {
    const QString command = u"Select * from PASSWORD..tbPasswordMain where EmployeeID = 'NURSE'"_s;
    EXPECT_EQ(Rows(command).size(), 1U);
    EXPECT_TRUE(Columns(command).contains(u"LastName"_s));
    EXPECT_TRUE(Columns(command).contains(u"FirstName"_s));
}

TEST_F(Cancellation, OlderSlipLayoutReadsThePrintTableInItsOrder) {
    Run(u"delete Clinical_Area..tbEarCareChargePrint"_s);
    Run(u"Hemodialysis..spKidney_SaveChargePrint 'MDD003','1500.00','','MD','FEE'"_s);
    Run(u"Hemodialysis..spKidney_SaveChargePrint 'HCHC001','2800.00','1','HC','TREATMENT'"_s);
    EXPECT_EQ(Rows(u"REPORTS.dbo.spReports_ChargeSlip"_s),
              (std::vector<QStringList>{{u"MDD003"_s, u"MD"_s, u"FEE"_s, u""_s, u"1500"_s},
                                        {u"HCHC001"_s, u"HC"_s, u"TREATMENT"_s, u"1"_s, u"2800"_s}}));
}

TEST_F(Cancellation, DuplicateListsTheUnitsLinesOfTheAccount) {
    const QString command = u"Hemodialysis..spKidney_ChargesbyPatient '700124'"_s;
    EXPECT_EQ(Columns(command), QStringList({u"RefNum"_s, u"TransDate"_s, u"ItemID"_s, u"Description"_s,
                                             u"Quantity"_s, u"Amount"_s, u"UserId"_s, u"RevenueID"_s}));
    const QStringList fee = Rows(command).back();
    EXPECT_EQ(fee, QStringList({u"H9001C"_s, u"11/21/2026 10:15:07 AM"_s, u"D003"_s,
                                u"(PF) DR. CASTAÑEDA, LUIS"_s, u"0"_s, u"1500"_s, u"NURSE"_s, u"MD"_s}));
    Run(u"delete Clinical_Area..tbEarCareChargePrint"_s);
    Run(u"Hemodialysis..spKidney_SaveChargePrint 'MDD003','1500.00','','MD','(PF) DR. CASTAÑEDA, LUIS'"_s);
    Run(u"Hemodialysis..spKidney_SaveChargePrint 'HCHC042','','1','HC','DIETARY COUNSELLING'"_s);
    EXPECT_EQ(
        Rows(u"SELECT ItemID, Amount, Quantity FROM Clinical_Area..tbEarCareChargePrint ORDER BY PrintID"_s),
        (std::vector<QStringList>{{u"MDD003"_s, u"1500"_s, u""_s}, {u"HCHC042"_s, u"0"_s, u"1"_s}}));
}

} // namespace
