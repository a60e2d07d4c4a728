#include "support/hospital/HospitalTest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class WardRequests : public HospitalTest {
  protected:
    std::vector<QStringList> Queue() { return Rows(u"Clinical_Area..spEarCare_NurseRequest"_s); }
    /// A ward's request of today for three of an item, without a station.
    void Ask(const QString& hospitalNumber, const QString& idNumber, const QString& doctor,
             const QString& centre, const QString& item) {
        Run(u"INSERT INTO RADIOLOGY..tbNurseRequest (RequestDate, DeptCode, HospNum, IdNum, StationID, "
            u"DoctorID, "
            "RequestedBy, RevenueID, ItemID, Quantity) VALUES ('20261121','HC','%1','%2','','%3','REYES "
            "RN','%4',"
            "'%5',3)"_s.arg(hospitalNumber, idNumber, doctor, centre, item));
    }
    QString Pending() { return Cell(u"RADIOLOGY..spRadio_CheckPending 'HC'"_s); }
};

TEST_F(WardRequests, PendingCountIsThatOfTheQueue) {
    EXPECT_EQ(Columns(u"RADIOLOGY..spRadio_CheckPending 'HC'"_s), QStringList({u"TotalPending"_s}));
    EXPECT_EQ(Pending(), u"9"_s);
    EXPECT_EQ(Queue().size(), 9U);
    EXPECT_EQ(Cell(u"RADIOLOGY..spRadio_CheckPending 'XX'"_s), u"0"_s);
}

TEST_F(WardRequests, QueueHasTheColumnsThatTheScreenReadsByPosition) {
    const QStringList columns = Columns(u"Clinical_Area..spEarCare_NurseRequest"_s);
    ASSERT_EQ(columns.size(), 24);
    EXPECT_EQ(columns.mid(0, 9),
              QStringList({u"HospNum"_s, u"IDNum"_s, u"LastName"_s, u"Firstname"_s, u"Middlename"_s,
                           u"ItemID"_s, u"ItemDesc"_s, u"RevenueID"_s, u"Requesting Nurse"_s}));
    EXPECT_EQ(columns[12], u"Sex"_s);
    EXPECT_EQ(columns.mid(14, 6), QStringList({u"BirthDate"_s, u"Age"_s, u"AdmDate"_s, u"RoomID"_s,
                                               u"DoctorID"_s, u"Requesting Doctor"_s}));
    EXPECT_EQ(columns.mid(22), QStringList({u"PatientType"_s, u"RequestNum"_s}));
}

TEST_F(WardRequests, QueueRowTellsTheAdmission) {
    const QStringList row = Queue().front();
    const QStringList admission =
        Rows(u"SELECT m.HospNum, p.IdNum, m.LastName, m.FirstName, m.MiddleName, p.RoomID, m.Sex, "
             "CONVERT(varchar(10), p.AdmDate, 101) FROM PATIENT_DATA..tbpatient AS p INNER JOIN "
             "PATIENT_DATA..tbmaster AS m ON m.HospNum = p.HospNum WHERE p.IdNum = '%1'"_s.arg(row[1]))
            .front();
    EXPECT_EQ(row.mid(0, 5), admission.mid(0, 5));
    EXPECT_EQ(row[17], admission[5]);
    EXPECT_EQ(row[12], admission[6]);
    EXPECT_EQ(row[16], admission[7]);
    EXPECT_TRUE(row[19].startsWith("DR. "_L1));
    EXPECT_EQ(row[22], u"I"_s);
}

TEST_F(WardRequests, AgeCountsWholeYears) {
    Run(u"UPDATE PATIENT_DATA..tbmaster SET BirthDate = '19801121'"_s);
    EXPECT_EQ(Queue().front()[15], u"46"_s);
    Run(u"UPDATE PATIENT_DATA..tbmaster SET BirthDate = '19801122'"_s);
    EXPECT_EQ(Queue().front()[15], u"45"_s);
}

TEST_F(WardRequests, ABirthDateInTheFutureDoesNotKeepTheQueueFromTheScreen) {
    const size_t requests = Queue().size();
    Run(u"UPDATE PATIENT_DATA..tbmaster SET BirthDate = '21991121'"_s);
    EXPECT_EQ(Queue().size(), requests);
    EXPECT_EQ(Queue().front()[15], u"*"_s);
}

TEST_F(WardRequests, ComeFromAtLeastThreeStationsAndTwiceFromOnePatient) {
    QStringList stations = Column(Queue(), 11);
    stations.removeDuplicates();
    EXPECT_GE(stations.size(), 3);
    QStringList patients = Column(Queue(), 1);
    EXPECT_EQ(patients.removeDuplicates(), 1);
}

TEST_F(WardRequests, OldestComesFirst) {
    const RowSet rows = mGateway->Execute(u"Clinical_Area..spEarCare_NurseRequest"_s);
    const auto data = rows.Data();
    for (size_t row = 1; row < data->RowCount(); ++row)
        EXPECT_LE(data->Cell(row - 1, 9).ToDate(), data->Cell(row, 9).ToDate());
}

TEST_F(WardRequests, RevokedRequestLeavesTheQueueAndKeepsWhoDidIt) {
    const QStringList row = Queue().front();
    RunAs(u"CLERK"_s, Call(u"RADIOLOGY..spRadio_RevokeNurseRequest"_s, {row[23], u"CLERK"_s}));
    EXPECT_EQ(Pending(), u"8"_s);
    EXPECT_EQ(
        Rows(
            u"SELECT Status, ClosedBy, ClosedDate FROM RADIOLOGY..tbNurseRequest WHERE RequestNum = %1"_s.arg(
                row[23]))
            .front(),
        QStringList({u"X"_s, u"CLERK"_s, u"11/21/2026 10:15:00 AM"_s}));
    Run(Call(u"RADIOLOGY..spRadio_RevokeNurseRequest"_s, {u""_s, u"NURSE"_s}));
    EXPECT_EQ(Pending(), u"8"_s);
}

TEST_F(WardRequests, AreLoadedAsLinesOfTheChargeScreenPricedByTheRoomsClass) {
    const QString admission = Queue().front()[1];
    Run(u"UPDATE RADIOLOGY..tbNurseRequest SET Status = 'X' WHERE IdNum = '%1'"_s.arg(admission));
    for (const QString& item : {u"HC018"_s, u"HC042"_s})
        Run(u"INSERT INTO RADIOLOGY..tbNurseRequest (RequestDate, DeptCode, HospNum, IdNum, StationID, "
            u"DoctorID, "
            "RequestedBy, RevenueID, ItemID, Quantity) VALUES "
            "('20261121','HC','1','%1','2W','D005','REYES RN','HC','%2',3)"_s.arg(admission, item));
    const QString command = u"CLinical_Area..spEarCare_LoadExamEntry '%1'"_s.arg(admission);
    EXPECT_EQ(Columns(command).mid(0, 7),
              QStringList({u"Department"_s, u"Code"_s, u"Particular"_s, u"Quantity"_s, u"Price"_s,
                           u"Amount"_s, u"With Items"_s}));
    EXPECT_EQ(Columns(command).size(), 12);
    // Dialyzer reprocessing costs 350 in the ward and, for instance, half as much again in a suite.
    for (const auto& [roomClass, price, amount] :
         {std::tuple(u"A"_s, u"350.00"_s, u"1050.00"_s), std::tuple(u"E"_s, u"525.00"_s, u"1575.00"_s),
          std::tuple(u"H"_s, u"0.00"_s, u"0.00"_s)}) {
        Run(u"UPDATE PATIENT_DATA..tbpatient SET RoomID = (SELECT MIN(r.RoomID) FROM build_file..tbCoRoom AS "
            u"r WHERE "
            "r.RoomClassID = '%1') WHERE IdNum = '%2'"_s.arg(roomClass, admission));
        const auto rows = Rows(command);
        ASSERT_EQ(rows.size(), 2U);
        EXPECT_EQ(rows[0],
                  QStringList({u"HC"_s, u"HC018"_s, u"DIALYZER REPROCESSING"_s, u"3"_s, price, amount, u"Y"_s,
                               price == "0.00"_L1 ? u"Y"_s : u"N"_s, u"N"_s, u"HC"_s, u""_s, u""_s}));
        EXPECT_EQ(rows[1].mid(4, 4), QStringList({u"0.00"_s, u"0.00"_s, u"Y"_s, u"Y"_s}));
    }
}

TEST_F(WardRequests, RoomThatIsOnNoListIsPricedAsTheWard) {
    const QString admission = Queue().front()[1];
    Run(u"UPDATE RADIOLOGY..tbNurseRequest SET ItemID = 'HC018' WHERE IdNum = '%1' AND Status = 'P'"_s.arg(
        admission));
    Run(u"UPDATE PATIENT_DATA..tbpatient SET RoomID = 'NONE' WHERE IdNum = '%1'"_s.arg(admission));
    EXPECT_EQ(Rows(u"CLinical_Area..spEarCare_LoadExamEntry '%1'"_s.arg(admission)).front()[4], u"350.00"_s);
}

TEST_F(WardRequests, WhatIsNotOnFileIsListedAsWellAsCounted) {
    Ask(u"NONE"_s, u"NONE"_s, u"NONE"_s, u"QQ"_s, u"NONE"_s);
    EXPECT_EQ(Pending(), u"10"_s);
    ASSERT_EQ(Queue().size(), 10U);
    const QStringList row = Queue().back();
    EXPECT_EQ(row.mid(0, 9), QStringList({u"NONE"_s, u"NONE"_s, u"NULL"_s, u"NULL"_s, u"NULL"_s, u"NONE"_s,
                                          u""_s, u"QQ"_s, u"REYES RN"_s}));
    EXPECT_EQ(row.mid(12, 8),
              QStringList({u"NULL"_s, u"NULL"_s, u"NULL"_s, u"NULL"_s, u"NULL"_s, u""_s, u"NONE"_s, u""_s}));
    EXPECT_EQ(row[22], u"I"_s);
    EXPECT_EQ(Rows(u"CLinical_Area..spEarCare_LoadExamEntry 'NONE'"_s),
              (std::vector<QStringList>{{u"QQ"_s, u"NONE"_s, u""_s, u"3"_s, u"0.00"_s, u"0.00"_s, u"N"_s,
                                         u"Y"_s, u"N"_s, u""_s, u""_s, u""_s}}));
    const QStringList form = Rows(u"RADIOLOGY.dbo.spRadio_Consultation '%1'"_s.arg(row[23])).at(0);
    EXPECT_EQ(form.mid(4, 9), QStringList({u"NONE"_s, u"NONE"_s, u""_s, u""_s, u"NULL"_s, u"NULL"_s, u""_s,
                                           u"NULL"_s, u""_s}));
    EXPECT_EQ(form[16], u""_s);
}

TEST_F(WardRequests, OutPatientIsFoundInHisVisit) {
    const QStringList visit = Rows(u"SELECT TOP 1 o.HospNum, o.IdNum, m.LastName, CONVERT(varchar(10), "
                                   "o.AdmDate, 101) FROM PATIENT_DATA..tboutpatient AS o INNER JOIN "
                                   "PATIENT_DATA..tbmaster AS m ON m.HospNum = o.HospNum ORDER BY o.IdNum"_s)
                                  .front();
    Ask(visit[0], visit[1], u"D005"_s, u"HC"_s, u"HC018"_s);
    ASSERT_EQ(Queue().size(), 10U);
    const QStringList row = Queue().back();
    EXPECT_EQ(row.mid(0, 3), visit.mid(0, 3));
    EXPECT_EQ(row.mid(16, 2), QStringList({visit[3], u"OPD"_s}));
    EXPECT_EQ(row[22], u"O"_s);
    EXPECT_EQ(
        Rows(u"CLinical_Area..spEarCare_LoadExamEntry '%1'"_s.arg(visit[1])).at(0).mid(0, 6),
        QStringList({u"HC"_s, u"HC018"_s, u"DIALYZER REPROCESSING"_s, u"3"_s, u"350.00"_s, u"1050.00"_s}));
    const QStringList form = Rows(u"RADIOLOGY.dbo.spRadio_Consultation '%1'"_s.arg(row[23])).at(0);
    EXPECT_EQ(form[5], visit[1]);
    EXPECT_EQ(form.mid(9, 2), row.mid(16, 2));
}

TEST_F(WardRequests, StockItemIsLoadedAtItsInPatientPriceAndPostedFromStock) {
    const QStringList item = Rows(u"SELECT ItemName, CAST(SellingPriceIn AS decimal(12, 2)), "
                                  u"CAST(SellingPriceIn * 3 AS decimal(12, 2)) "
                                  "FROM INVENTORY..tbInvMaster WHERE ItemID = 'M0002'"_s)
                                 .front();
    const QString onHand =
        u"SELECT SUM(QtyIn) - SUM(QtyOut) FROM INVENTORY..tbInvStockCard WHERE ItemID = 'M0002'"_s;
    const double before = Cell(onHand).toDouble();
    Ask(u"100050"_s, u"700124"_s, u"D005"_s, u"HB"_s, u"M0002"_s);
    const QStringList row = Queue().back();
    EXPECT_EQ(row[6], item[0]);
    EXPECT_EQ(Rows(u"RADIOLOGY.dbo.spRadio_Consultation '%1'"_s.arg(row[23])).at(0)[16], item[0]);
    const auto lines = Rows(u"CLinical_Area..spEarCare_LoadExamEntry '700124'"_s);
    ASSERT_EQ(lines.size(), 1U);
    const QStringList& line = lines.front();
    EXPECT_EQ(line.mid(0, 4), QStringList({u"HB"_s, u"M0002"_s, item[0], u"3"_s}));
    EXPECT_EQ(line[4].toDouble(), item[1].toDouble());
    EXPECT_GT(line[4].toDouble(), 0);
    EXPECT_EQ(line[5].toDouble(), item[2].toDouble());
    EXPECT_EQ(line.mid(6, 4), QStringList({u"N"_s, u"N"_s, u"Y"_s, u"1"_s}));
    Run(Call(u"Clinical_Area..spEarCare_Append_Charging"_s,
             {row[0], row[1], u"11/21/2026 10:15"_s, line[0], u"D"_s, line[1], line[3], u"H1C"_s, line[5],
              u"NURSE"_s, row[17], row[18], u""_s, u"I"_s, line[2]}));
    EXPECT_EQ(Pending(), u"9"_s);
    EXPECT_EQ(Cell(onHand).toDouble(), before - 3);
}

TEST_F(WardRequests, AdmissionWithoutRequestsLoadsNoLines) {
    EXPECT_TRUE(Rows(u"CLinical_Area..spEarCare_LoadExamEntry 'NONE'"_s).empty());
}

TEST_F(WardRequests, ConsultationTellsOneRequestWithItsNames) {
    const QStringList row = Queue().front();
    const QString command = u"RADIOLOGY.dbo.spRadio_Consultation '%1'"_s.arg(row[23]);
    const auto rows = Rows(command);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0][2], row[23]);
    EXPECT_EQ(rows[0].mid(4, 2), row.mid(0, 2));
    EXPECT_EQ(rows[0][6], u"%1, %2 %3"_s.arg(row[2], row[3], row[4]));
    EXPECT_EQ(rows[0].mid(9, 2), row.mid(16, 2));
    EXPECT_EQ(rows[0][12], row[19]);
    EXPECT_EQ(rows[0].mid(15, 2), row.mid(5, 2));
    EXPECT_EQ(rows[0][0], Cell(u"SELECT company FROM PATIENT_DATA..tbhospitalInfo"_s));
    EXPECT_TRUE(Rows(u"RADIOLOGY.dbo.spRadio_Consultation '0'"_s).empty());
}

TEST_F(WardRequests, PostedRequestsLeaveTheQueueAndTheCount) {
    for (const QStringList& row : Queue()) {
        const auto lines = Rows(u"CLinical_Area..spEarCare_LoadExamEntry '%1'"_s.arg(row[1]));
        for (const QStringList& line : lines)
            Run(Call(u"Clinical_Area..spEarCare_Append_Charging"_s,
                     {row[0], row[1], u"11/21/2026 10:15"_s, line[0], u"D"_s, line[1], line[3], u"H1C"_s,
                      line[5], u"NURSE"_s, row[17], row[18], u""_s, u"I"_s, line[2]}));
        EXPECT_TRUE(Rows(u"CLinical_Area..spEarCare_LoadExamEntry '%1'"_s.arg(row[1])).empty());
    }
    EXPECT_EQ(Pending(), u"0"_s);
    EXPECT_TRUE(Queue().empty());
}

TEST_F(WardRequests, ChargedOnesNameTheSlipThatChargedThem) {
    EXPECT_NE(Cell(u"SELECT COUNT(*) FROM RADIOLOGY..tbNurseRequest WHERE Status = 'D'"_s), u"0"_s);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM RADIOLOGY..tbNurseRequest AS n WHERE n.Status = 'D' AND NOT EXISTS "
                   u"(SELECT "
                   "c.ChargeID FROM BILLING..tbPatientCharges AS c WHERE c.RefNum = n.SlipNo AND c.IdNum = "
                   "n.IdNum AND "
                   "c.RevenueID = n.RevenueID AND c.ItemID = n.ItemID)"_s),
              u"0"_s);
}

} // namespace
