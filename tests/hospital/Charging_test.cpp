#include "support/hospital/HospitalTest.h"

using namespace Qt::StringLiterals;

namespace {

class Charging : public HospitalTest {
  protected:
    /// Posts one line for the in-patient, as the charge screen does.
    void Post(const QString& centre, const QString& code, const QString& quantity, const QString& amount,
              const QString& particular = u"PARTICULAR"_s) {
        Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026 10:15:07 "
            u"AM','%1','D','%2','%3', "
            "'H9001C','%4','NURSE','W201','D005','SANTOS, EMMANUEL CRUZ', 'I','%5'"_s.arg(
                centre, code, quantity, amount, particular));
    }
    std::vector<QStringList> Posted() {
        return Rows(u"SELECT * FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C' ORDER BY ChargeID"_s);
    }
    std::vector<QStringList> Issued() {
        return Rows(u"SELECT ItemID, SectionID, RecordType, QtyIn, QtyOut, Amount, IdNum, UserID FROM "
                    "INVENTORY..tbInvStockCard WHERE RefNum = 'H9001C'"_s);
    }
};

TEST_F(Charging, PostedLineStandsOnTheAccountWithEveryArgumentAndTheServersClock) {
    Post(u"HC"_s, u"HC001"_s, u"1"_s, u"2800.00"_s, u"HEMODIALYSIS TREATMENT"_s);
    ASSERT_EQ(Posted().size(), 1U);
    EXPECT_EQ(Posted().front().mid(1),
              QStringList({u"100050"_s, u"700124"_s, u"I"_s, u"11/21/2026 10:15:07 AM"_s, u"HC"_s, u"D"_s,
                           u"HC001"_s, u"HEMODIALYSIS TREATMENT"_s, u"1"_s, u"1"_s, u"2800"_s, u"H9001C"_s,
                           u"NURSE"_s, u"W201"_s, u"D005"_s, u"SANTOS, EMMANUEL CRUZ"_s, u"HC"_s,
                           u"11/21/2026 10:15:00 AM"_s}));
    EXPECT_TRUE(Issued().empty());
}

TEST_F(Charging, DoctorsFeeKeepsItsEmptyQuantity) {
    Post(u"MD"_s, u"D003"_s, u""_s, u"1500.00"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s);
    EXPECT_EQ(Posted().front()[9], u""_s);
    EXPECT_EQ(Posted().front()[10], u"0"_s);
    EXPECT_EQ(Posted().front()[8], u"(PF) DR. CASTAÑEDA, LUIS"_s);
}

TEST_F(Charging, LineWithoutCodeOrParticularIsPosted) {
    Post(u"MS"_s, u""_s, u"1"_s, u"150.00"_s, u""_s);
    EXPECT_EQ(Posted().size(), 1U);
}

TEST_F(Charging, LineWithoutAnAmountIsPostedForNothing) {
    Post(u"HC"_s, u"HC001"_s, u"1"_s, u""_s, u"HEMODIALYSIS TREATMENT"_s);
    EXPECT_EQ(Rows(u"SELECT ItemID, Amount FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C'"_s),
              (std::vector<QStringList>{{u"HC001"_s, u"0"_s}}));
}

TEST_F(Charging, PrintLineWithoutAnAmountIsKeptForNothing) {
    Run(u"Delete Clinical_Area..tbEarCareChargePrint"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'HC001','','1','HC','HEMODIALYSIS TREATMENT', 'O'"_s);
    EXPECT_EQ(Rows(u"SELECT ItemID, Amount FROM Clinical_Area..tbEarCareChargePrint"_s),
              (std::vector<QStringList>{{u"HC001"_s, u"0"_s}}));
}

TEST_F(Charging, StockLinesAreIssuedOnTheirCards) {
    Post(u"HB"_s, u"M0002"_s, u"2"_s, u"2034.00"_s);
    Post(u"HD"_s, u"S0018"_s, u"0.5"_s, u"27.75"_s);
    EXPECT_EQ(Issued(),
              (std::vector<QStringList>{
                  {u"M0002"_s, u"1"_s, u"I"_s, u"0"_s, u"2"_s, u"2034"_s, u"700124"_s, u"NURSE"_s},
                  {u"S0018"_s, u"52"_s, u"I"_s, u"0"_s, u"0.5"_s, u"27.75"_s, u"700124"_s, u"NURSE"_s}}));
}

TEST_F(Charging, StockLineWithACodeThatIsNotInItsSectionIsNotIssued) {
    Post(u"HD"_s, u"HC001"_s, u"1"_s, u"2800.00"_s);
    Post(u"HD"_s, u"M0002"_s, u"1"_s, u"1017.00"_s);
    Post(u"HC"_s, u"S0011"_s, u"1"_s, u"2220.00"_s);
    EXPECT_EQ(Posted().size(), 3U);
    EXPECT_TRUE(Issued().empty());
}

TEST_F(Charging, LineThatFailsLeavesNothingBehind) {
    EXPECT_THROW(Post(u"HB"_s, u"M0002"_s, u"1.2.3"_s, u"1017.00"_s), RunTimeError);
    EXPECT_THROW(Post(u"HB"_s, u"M0002"_s, u"1"_s, u"12,x"_s), RunTimeError);
    EXPECT_TRUE(Posted().empty());
    EXPECT_TRUE(Issued().empty());
}

TEST_F(Charging, PostingClosesTheWardsRequestForTheSameItem) {
    const auto pending = [this] {
        return Cell(
            u"SELECT COUNT(*) FROM RADIOLOGY..tbNurseRequest WHERE IdNum = '700124' AND Status = 'P'"_s);
    };
    Run(u"INSERT INTO RADIOLOGY..tbNurseRequest (RequestDate, DeptCode, HospNum, IdNum, StationID, DoctorID, "
        "RequestedBy, RevenueID, ItemID, Quantity) VALUES "
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC048',1),"
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC049',1)"_s);
    const int before = pending().toInt();
    Post(u"HC"_s, u"HC048"_s, u"1"_s, u"700.00"_s);
    EXPECT_EQ(pending().toInt(), before - 1);
    EXPECT_EQ(
        Rows(u"SELECT Status, SlipNo, ClosedBy, ClosedDate FROM RADIOLOGY..tbNurseRequest WHERE IdNum = "
             "'700124' AND ItemID = 'HC048'"_s)
            .front(),
        QStringList({u"D"_s, u"H9001C"_s, u"NURSE"_s, u"11/21/2026 10:15:00 AM"_s}));
}

TEST_F(Charging, PostingClosesNoMoreRequestsThanItsQuantityReachesTo) {
    const auto left = [this] {
        return Rows(u"SELECT SlipNo FROM RADIOLOGY..tbNurseRequest WHERE IdNum = '700124' AND ItemID = "
                    "'HC048' AND Status = 'P'"_s)
            .size();
    };
    Run(u"INSERT INTO RADIOLOGY..tbNurseRequest (RequestDate, DeptCode, HospNum, IdNum, StationID, DoctorID, "
        "RequestedBy, RevenueID, ItemID, Quantity) VALUES "
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC048',2),"
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC048',1),"
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC048',1),"
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC048',2),"
        "('20261121','HC','100050','700124','2W','D005','REYES RN','HC','HC048',3)"_s);
    ASSERT_EQ(left(), 5U);
    Post(u"HC"_s, u"HC048"_s, u"1"_s, u"700.00"_s);
    EXPECT_EQ(left(), 4U) << "the oldest one, though the ward asked for two";
    Post(u"HC"_s, u"HC048"_s, u"3"_s, u"2100.00"_s);
    EXPECT_EQ(left(), 2U) << "one and one, not the two behind them";
    Post(u"HC"_s, u"HC048"_s, u""_s, u"700.00"_s);
    EXPECT_EQ(left(), 1U);
    Post(u"HC"_s, u"HC048"_s, u"9"_s, u"6300.00"_s);
    EXPECT_EQ(left(), 0U);
}

TEST_F(Charging, PrintLinesKeepTheOrderInWhichTheyWereSaved) {
    Run(u"Delete Clinical_Area..tbEarCareChargePrint"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'HC001','2800.00','1','HC','HEMODIALYSIS TREATMENT', 'O'"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'D003','1500.00','','MD','(PF) DR. CASTAÑEDA, LUIS', 'O'"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'AAA','1.25','3','HB','A', 'O'"_s);
    EXPECT_EQ(Rows(u"SELECT ItemID, Amount, Quantity, RevenueID, Description, SlipKind FROM "
                   "Clinical_Area..tbEarCareChargePrint ORDER BY PrintID"_s),
              (std::vector<QStringList>{
                  {u"HC001"_s, u"2800"_s, u"1"_s, u"HC"_s, u"HEMODIALYSIS TREATMENT"_s, u"O"_s},
                  {u"D003"_s, u"1500"_s, u""_s, u"MD"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s, u"O"_s},
                  {u"AAA"_s, u"1.25"_s, u"3"_s, u"HB"_s, u"A"_s, u"O"_s}}));
}

TEST_F(Charging, SlipCounterIsOneRowThatAWorkstationCanBump) {
    RowSet counter = mGateway->Open(u"Select * from Clinical_Area..tbEarCareChargeSlip"_s,
                                    CursorType::Dynamic, LockType::Optimistic);
    const qint64 number = counter.Fields(u"ChargeSlip"_s).ToInteger();
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE RefNum = 'H%1C'"_s.arg(number)),
              u"0"_s);
    EXPECT_NE(Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE RefNum = 'H%1C'"_s.arg(number - 1)),
              u"0"_s);
    counter.SetField(u"ChargeSlip"_s, number + 1);
    counter.Update();
    EXPECT_EQ(Cell(u"Select * from Clinical_Area..tbEarCareChargeSlip"_s), QString::number(number + 1));
}

} // namespace
