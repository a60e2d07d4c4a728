#include "ManyWorkstations.h"

using namespace Qt::StringLiterals;

// NURSE and CLERK on two workstations do the same at the same moment.

namespace {

constexpr int kEach = 20;

class TwoClerks : public ManyWorkstations {
  protected:
    /// Posts a slip with so many lines of an item and gives the numbers of the lines.
    QStringList Post(const QString& centre, const QString& code, const QString& quantity) {
        for (int i = 0; i < kEach; ++i)
            Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026 10:15:07 "
                u"AM','%1','D',"
                "'%2','%3', 'H9001C','%4','NURSE','W201','D005','', 'I','ITEM'"_s.arg(centre, code, quantity)
                    .arg(100 + i));
        return Column(Rows(u"SELECT ChargeID FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C' ORDER BY "
                           "ChargeID"_s),
                      0);
    }
    static QString CancelService(int number, const QString& centre, const QString& code,
                                 const QString& quantity, const QString& user) {
        return Call(u"Clinical_ARea..spEarCare_UpdateCharging"_s, {u"100050"_s,
                                                                   u"700124"_s,
                                                                   code,
                                                                   QString::number(100 + number),
                                                                   quantity,
                                                                   u"11/21/2026 10:20:00 AM"_s,
                                                                   centre,
                                                                   user,
                                                                   u"I"_s,
                                                                   u"C"_s,
                                                                   u"W201"_s,
                                                                   u"H9001C"_s,
                                                                   {}});
    }
    static QString CancelStock(int number, const QString& line, const QString& code, const QString& quantity,
                               const QString& user) {
        return Call(u"INVENTORY..spStock_AppendStockCard"_s,
                    {u"100050"_s, u"700124"_s, code, u"11/21/2026 10:20:00 AM"_s, u"H9001C"_s, quantity,
                     QString::number(-100 - number), user, line, u"W201"_s, u"C"_s, u"I"_s});
    }
    /// Each does what `command` gives for the user and each number.
    bool BothRunForEach(const std::function<QString(const QString& user, int number)>& command) {
        const auto workOf = [&command](const QString& user) -> Work {
            return [&command, user](EmbeddedGateway& gateway, const std::function<void()>& meet) {
                meet();
                for (int i = 0; i < kEach; ++i)
                    gateway.ExecuteNoResult(command(user, i));
            };
        };
        return RunAtOnce({{u"NURSE"_s, workOf(u"NURSE"_s)}, {u"CLERK"_s, workOf(u"CLERK"_s)}}) ==
               std::vector<bool>{true, true};
    }
    /// Every line of the slip has one reversal, and nothing is left of it.
    void ExpectOneReversalEach() {
        const auto lines =
            Rows(u"SELECT COUNT(*), SUM(Amount), SUM(Units) FROM BILLING..tbPatientCharges WHERE "
                 "RefNum = 'H9001C' GROUP BY ABS(Amount)"_s);
        EXPECT_EQ(lines.size(), size_t(kEach));
        for (const QStringList& line : lines)
            EXPECT_EQ(line, QStringList({u"2"_s, u"0"_s, u"0"_s}));
    }
    QString Moved(const QString& recordType) {
        return Cell(
            u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard WHERE RefNum = 'H9001C' AND RecordType = '%1'"_s
                .arg(recordType));
    }
};

} // namespace

TEST_F(TwoClerks, WhoCancelTheSameServicesReverseEachOnce) {
    Post(u"HC"_s, u"HC001"_s, u"1"_s);
    EXPECT_TRUE(BothRunForEach([](const QString& user, int number) {
        return CancelService(number, u"HC"_s, u"HC001"_s, u"1"_s, user);
    }));
    ExpectOneReversalEach();
}

TEST_F(TwoClerks, WhoCancelTheSameStockLinesTakeEachBackOnce) {
    const QStringList lines = Post(u"HB"_s, u"M0002"_s, u"2"_s);
    EXPECT_TRUE(BothRunForEach([&lines](const QString& user, int number) {
        return CancelStock(number, lines[number], u"M0002"_s, u"2"_s, user);
    }));
    ExpectOneReversalEach();
    EXPECT_EQ(Moved(u"C"_s), QString::number(kEach));
}

TEST_F(TwoClerks, WhoCancelTheSameLinesInTwoWaysReverseEachOnce) {
    const QStringList lines = Post(u"HB"_s, u"M0002"_s, u"2"_s);
    EXPECT_TRUE(BothRunForEach([&lines](const QString& user, int number) {
        return user == "NURSE"_L1 ? CancelStock(number, lines[number], u"M0002"_s, u"2"_s, user)
                                  : CancelService(number, u"HB"_s, u"M0002"_s, u"2"_s, user);
    }));
    ExpectOneReversalEach();
    EXPECT_EQ(Moved(u"C"_s),
              Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C' AND "
                   "RecordType = 'C' AND UserID = 'NURSE'"_s));
}

TEST_F(TwoClerks, WhoRevokeTheSameAssessmentRevokeEachLineOnce) {
    for (int i = 0; i < kEach; ++i)
        Run(u"Clinical_Area..spEarCare_Assessment '9001','ZZTEST, ANA','HC001','HC','1','100','HC','NURSE','','','',''"_s);
    const QStringList lines = Column(
        Rows(u"SELECT AssessNum FROM BILLING..tbCashAssessment WHERE RefNum = '9001' ORDER BY AssessNum"_s),
        0);
    EXPECT_TRUE(BothRunForEach([&lines](const QString&, int number) {
        return Call(u"Clinical_Area..spEarCare_AssessRevoke"_s, {lines[number], u"9001"_s, u"HC"_s});
    }));
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM BILLING..tbCashAssessment WHERE RefNum = '9001' AND RevokedBy IN "
                   "('NURSE', 'CLERK')"_s),
              QString::number(kEach));
    for (const QString& user : {u"NURSE"_s, u"CLERK"_s})
        EXPECT_EQ(
            Cell(u"SELECT COUNT(*) FROM BILLING..tbAuditTrail WHERE RefNum = '9001' AND UserID = '%1'"_s.arg(
                user)),
            Cell(
                u"SELECT COUNT(*) FROM BILLING..tbCashAssessment WHERE RefNum = '9001' AND RevokedBy = '%1'"_s
                    .arg(user)));
}

TEST_F(TwoClerks, WhoRegisterWalkInsNeverDoSoUnderOneNumber) {
    const int next = Cell(u"SELECT WalkInNum FROM PATIENT_DATA..tbWalkInNum"_s).toInt();
    // Each from the one screen and from the other.
    EXPECT_TRUE(BothRunForEach([](const QString& user, int number) {
        return number % 2 == 0 ? Call(u"CLINICAL_AREA..spEarCare_Add_CashPatient"_s,
                                      {u"ZZTEST"_s, user, {}, {}, {}, {}, u"/  /"_s, {}, u"F"_s, {}})
                               : Call(u"PATIENT_DATA..spAddCashPatient"_s,
                                      {u"ZZTEST"_s, user, {}, {}, u"F"_s, {}, {}, {}, {}, {}});
    }));
    const auto walkIns =
        Rows(u"SELECT HospNum, FirstName, RegisteredBy FROM PATIENT_DATA..tbwalkin WHERE LastName = "
             "'ZZTEST' ORDER BY HospNum"_s);
    ASSERT_EQ(walkIns.size(), size_t(2 * kEach));
    for (int i = 0; i < 2 * kEach; ++i) {
        EXPECT_EQ(walkIns[size_t(i)][0], u"W%1"_s.arg(next + i, 6, 10, QChar(u'0')));
        EXPECT_EQ(walkIns[size_t(i)][1], walkIns[size_t(i)][2]);
    }
    EXPECT_EQ(Cell(u"SELECT WalkInNum FROM PATIENT_DATA..tbWalkInNum"_s), QString::number(next + 2 * kEach));
}

TEST_F(TwoClerks, WhoRegisterWalkInsInTurnsGetNumbersInTurns) {
    const int next = Cell(u"SELECT WalkInNum FROM PATIENT_DATA..tbWalkInNum"_s).toInt();
    for (int i = 0; i < 2; ++i)
        for (const QString& user : {u"NURSE"_s, u"CLERK"_s})
            EXPECT_EQ(RunAtOnce({{user,
                                  [&user](EmbeddedGateway& gateway, const std::function<void()>&) {
                                      gateway.ExecuteNoResult(
                                          Call(u"CLINICAL_AREA..spEarCare_Add_CashPatient"_s,
                                               {user, {}, {}, {}, {}, {}, u"/  /"_s, {}, u"F"_s, {}}));
                                  }}}),
                      std::vector<bool>{true});
    EXPECT_EQ(
        Column(
            Rows(u"SELECT LastName FROM PATIENT_DATA..tbwalkin WHERE HospNum >= 'W%1' ORDER BY HospNum"_s.arg(
                next, 6, 10, QChar(u'0'))),
            0),
        QStringList({u"NURSE"_s, u"CLERK"_s, u"NURSE"_s, u"CLERK"_s}));
}

TEST_F(TwoClerks, WhoReprintOneSlipCountEachReprintOnce) {
    Post(u"HC"_s, u"HC001"_s, u"1"_s);
    EXPECT_TRUE(BothRunForEach(
        [](const QString&, int) { return u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s; }));
    const QStringList times = Column(
        Rows(u"SELECT Times FROM BILLING..tbAuditTrail WHERE RefNum = 'H9001C' ORDER BY AuditID"_s), 0);
    ASSERT_EQ(times.size(), 2 * kEach);
    for (int i = 0; i < 2 * kEach; ++i)
        EXPECT_EQ(times[i], QString::number(i + 1));
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM Clinical_Area..tbEarCareChargePrint"_s), QString::number(kEach))
        << "one re-print's lines";
}

TEST_F(TwoClerks, WhoCorrectOneWalkInKeepEveryRecordThatTheyReplace) {
    EXPECT_TRUE(BothRunForEach([](const QString& user, int number) {
        return Call(u"PATIENT_DATA..spGlobal_UpdateWalkIn"_s,
                    {u"W000001"_s, user, QString::number(number), {}, {}, {}, u"F"_s, u"1"_s, {}, {}, {}});
    }));
    const auto kept =
        Rows(u"SELECT LastName, FirstName FROM PATIENT_DATA..tbWalkInHistory ORDER BY HistoryID"_s);
    ASSERT_EQ(kept.size(), size_t(2 * kEach));
    QSet<QString> different;
    for (const QStringList& record : kept)
        different << record.join(u' ');
    EXPECT_EQ(different.size(), 2 * kEach) << "each record once";
}

TEST_F(TwoClerks, WhoSaveOneTreatmentKeepEveryRecordThatTheyReplace) {
    QStringList fields(203);
    fields[1] = u"104233B"_s;
    fields[2] = u"H9001C"_s;
    EXPECT_TRUE(BothRunForEach([fields](const QString& user, int number) mutable {
        fields[3] = user + QString::number(number);
        return Call(u"Hemodialysis..spKidney_SaveHemodialysisTreatMentRecord"_s, fields);
    }));
    QSet<QString> different;
    for (const QString& table : {u"tbHemodialysisResultHistory"_s, u"tbHemodialysisResultEntry"_s})
        for (
            const QStringList& record : Rows(
                u"SELECT DialysisNumber FROM HEMODIALYSIS..%1 WHERE IdNum = '104233B' AND RequestNum = 'H9001C'"_s
                    .arg(table)))
            different << record[0];
    EXPECT_EQ(different.size(), 2 * kEach) << "each record once";
}

TEST_F(TwoClerks, WhoRevokeAndChargeOneRequestCloseItOnce) {
    const auto requests =
        Rows(u"SELECT RequestNum, IdNum, RevenueID, ItemID FROM RADIOLOGY..tbNurseRequest WHERE "
             "Status = 'P' ORDER BY RequestNum"_s);
    ASSERT_EQ(requests.size(), 9U);
    const Work revoke = [&requests](EmbeddedGateway& gateway, const std::function<void()>& meet) {
        meet();
        for (const QStringList& request : requests)
            gateway.ExecuteNoResult(
                Call(u"RADIOLOGY..spRadio_RevokeNurseRequest"_s, {request[0], u"NURSE"_s}));
    };
    const Work charge = [&requests](EmbeddedGateway& gateway, const std::function<void()>& meet) {
        meet();
        for (const QStringList& request : requests)
            gateway.ExecuteNoResult(
                Call(u"Clinical_Area..spEarCare_Append_Charging"_s, {u"1"_s,
                                                                     request[1],
                                                                     u"11/21/2026 10:15"_s,
                                                                     request[2],
                                                                     u"D"_s,
                                                                     request[3],
                                                                     u"1"_s,
                                                                     u"H9001C"_s,
                                                                     u"1"_s,
                                                                     u"CLERK"_s,
                                                                     {},
                                                                     {},
                                                                     {},
                                                                     u"I"_s,
                                                                     {}}));
    };
    EXPECT_EQ(RunAtOnce({{u"NURSE"_s, revoke}, {u"CLERK"_s, charge}}), (std::vector<bool>{true, true}));
    for (const QStringList& request : requests) {
        const QStringList closed =
            Rows(u"SELECT Status, ClosedBy, SlipNo FROM RADIOLOGY..tbNurseRequest WHERE RequestNum = "_s +
                 request[0])
                .front();
        EXPECT_TRUE(closed == QStringList({u"X"_s, u"NURSE"_s, u"NULL"_s}) ||
                    closed == QStringList({u"D"_s, u"CLERK"_s, u"H9001C"_s}))
            << closed.join(u' ').toStdString();
    }
}

TEST_F(TwoClerks, WhoReadOneCounterNeverSpendItsNumberTwice) {
    for (const auto& counters :
         {std::pair(u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s, u"AssessmentNum"_s),
          std::pair(u"Select * from Clinical_Area..tbEarCareChargeSlip"_s, u"ChargeSlip"_s)}) {
        const QString& command = counters.first;
        const QString& column = counters.second;
        const int number = Cell(command).toInt();
        const Work work = [&command, &column](EmbeddedGateway& gateway, const std::function<void()>& meet) {
            RowSet counter = gateway.Open(command, CursorType::Dynamic, LockType::Optimistic);
            meet();
            counter.SetField(column, counter.Fields(column).ToInteger() + 1);
            counter.Update();
        };
        const std::vector<bool> done = RunAtOnce({{u"NURSE"_s, work}, {u"CLERK"_s, work}});
        EXPECT_NE(done[0], done[1]) << "one of them has it, the other one fails";
        EXPECT_EQ(Cell(command).toInt(), number + 1);
    }
}
