#include "support/hospital/HospitalTest.h"
#include "text/IsDate.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

class CashAssessments : public HospitalTest {
  protected:
    void Assess(const QString& number, const QString& name, const QString& centre, const QString& code,
                const QString& quantity = u"1"_s, const QString& amount = u"100.00"_s) {
        RunAs(u"CLERK"_s, Call(u"Clinical_Area..spEarCare_Assessment"_s,
                               {number, name, code, centre, quantity, amount, u"HC"_s, u"CLERK"_s,
                                u"W000003"_s, u""_s, u"D001"_s, u"DR. ROBERTO ALCARAZ"_s}));
    }
    std::vector<QStringList> Status(const QString& text) {
        return Rows(Call(u"Clinical_Area..spEarCare_AssessmentStatus"_s, {u"1"_s, text}));
    }
    void Revoke(const QString& line, const QString& reference, const QString& centre) {
        Run(Call(u"Clinical_Area..spEarCare_AssessRevoke"_s, {line, reference, centre}));
    }
};

TEST_F(CashAssessments, LineIsRecordedWithEveryArgumentAndTheServersClock) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s, u"2"_s, u"5600.00"_s);
    EXPECT_EQ(
        Rows(u"SELECT RefNum, Name, HospNum, IdNum, Revenueid, ItemID, Description, Quantity, Units, Amount, "
             "DeptCode, UserID, DoctorID, DoctorName, TransDate, ORNum, ORDate, RevokeDate, RevokedBy FROM "
             "BILLING..tbCashAssessment WHERE RefNum = '9001'"_s)
            .front(),
        QStringList({u"9001"_s, u"ZZTEST, ANA"_s, u"W000003"_s, u""_s, u"HC"_s, u"HC001"_s,
                     u"HEMODIALYSIS TREATMENT"_s, u"2"_s, u"2"_s, u"5600"_s, u"HC"_s, u"CLERK"_s, u"D001"_s,
                     u"DR. ROBERTO ALCARAZ"_s, u"11/21/2026 10:15:00 AM"_s, u"NULL"_s, u"NULL"_s, u"NULL"_s,
                     u"NULL"_s}));
}

TEST_F(CashAssessments, NameOfTheItemIsLookedUpByWhatTheCentreSells) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HB"_s, u"M0002"_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"MD"_s, u"D003"_s, u""_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"MS"_s, u""_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HD"_s, u"S0011"_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"??"_s, u"??"_s);
    EXPECT_EQ(
        Column(Rows(u"SELECT Description FROM BILLING..tbCashAssessment WHERE RefNum = '9001' ORDER BY "
                    "AssessNum"_s),
               0),
        QStringList({u"HEMODIALYSIS TREATMENT"_s, u"EPOETIN ALFA 4000 IU"_s, u"(PF) DR. CASTAÑEDA, LUIS"_s,
                     u"MISCELLANEOUS"_s, u"DIALYZER, PEDIATRIC, PRIMED"_s, u""_s}));
}

TEST_F(CashAssessments, PrintedLineGoesToTheSlipAndToTheHospitalsCopy) {
    Run(u"delete Clinical_Area..tbEarCareChargePrint"_s);
    RunAs(u"CLERK"_s, u"Clinical_Area..spEarCare_GlobalDumpChargeSlip 'HC001','HEMODIALYSIS "
                      u"TREATMENT','2','2800.00','5600.00','CLERK'"_s);
    Run(u"Clinical_Area..spEarCare_DumpChargeSlip 'HC001','HEMODIALYSIS TREATMENT','2','5600.00','HC'"_s);
    EXPECT_EQ(Rows(u"SELECT ItemID, Description, Quantity, Amount, RevenueID, SlipKind FROM "
                   "Clinical_Area..tbEarCareChargePrint"_s),
              (std::vector<QStringList>{
                  {u"HC001"_s, u"HEMODIALYSIS TREATMENT"_s, u"2"_s, u"5600"_s, u"HC"_s, u"C"_s}}));
    EXPECT_EQ(Rows(u"SELECT ItemID, Description, Quantity, Price, Amount, UserID, PrintDate FROM "
                   "Clinical_Area..tbGlobalChargePrint"_s),
              (std::vector<QStringList>{{u"HC001"_s, u"HEMODIALYSIS TREATMENT"_s, u"2"_s, u"2800"_s,
                                         u"5600"_s, u"CLERK"_s, u"11/21/2026 10:15:00 AM"_s}}));
}

TEST_F(CashAssessments, LineWithoutAnAmountIsRecordedForNothing) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s, u"1"_s, u""_s);
    EXPECT_EQ(Rows(u"SELECT ItemID, Amount FROM BILLING..tbCashAssessment WHERE RefNum = '9001'"_s),
              (std::vector<QStringList>{{u"HC001"_s, u"0"_s}}));
}

TEST_F(CashAssessments, PrintedLineWithoutAnAmountIsKeptForNothing) {
    Run(u"delete Clinical_Area..tbEarCareChargePrint"_s);
    Run(u"Clinical_Area..spEarCare_DumpChargeSlip 'HC001','HEMODIALYSIS TREATMENT','2','','HC'"_s);
    EXPECT_EQ(Rows(u"SELECT ItemID, Amount FROM Clinical_Area..tbEarCareChargePrint"_s),
              (std::vector<QStringList>{{u"HC001"_s, u"0"_s}}));
}

TEST_F(CashAssessments, StatusListHasTheColumnsThatTheScreenReadsByPosition) {
    EXPECT_EQ(Columns(u"Clinical_Area..spEarCare_AssessmentStatus '1',''"_s),
              QStringList({u"AssessNum"_s, u"Patient Name"_s, u"Hospital #"_s, u"Description"_s, u"RefNum"_s,
                           u"Amount"_s, u"Status"_s, u"RevenueID"_s, u"IdNum"_s}));
}

TEST_F(CashAssessments, StatusTellsOpenFromPaidFromRevoked) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    EXPECT_EQ(Status(u"ZZTEST"_s).front()[6], u"11/21/2026"_s);
    Run(u"UPDATE BILLING..tbCashAssessment SET ORNum = '400001' WHERE RefNum = '9001'"_s);
    EXPECT_EQ(Status(u"ZZTEST"_s).front()[6], u"OR 400001"_s);
    Revoke(Status(u"ZZTEST"_s).front()[0], u"9001"_s, u"HC"_s);
    EXPECT_EQ(Status(u"ZZTEST"_s).front()[6], u"REVOKED"_s);
}

TEST_F(CashAssessments, ListComesNewestFirstAndByTheBeginningOfTheName) {
    const size_t all = Status(u""_s).size();
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Assess(u"9002"_s, u"ÑZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    EXPECT_EQ(Status(u""_s).size(), all + 2);
    EXPECT_EQ(Status(u""_s).front()[4], u"9002"_s);
    EXPECT_EQ(Column(Status(u"zz"_s), 4), QStringList({u"9001"_s}));
    EXPECT_EQ(Column(Status(u"ÑZ"_s), 4), QStringList({u"9002"_s}));
    EXPECT_TRUE(Status(u"TEST"_s).empty());
}

TEST_F(CashAssessments, BlanksAtTheEndOfTheTextDoNotCount) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    EXPECT_EQ(Status(u"ZZTEST,  "_s), Status(u"ZZTEST,"_s));
    EXPECT_EQ(Column(Status(u"ZZTEST  "_s), 4), QStringList({u"9001"_s}));
    EXPECT_EQ(Status(u" "_s), Status(u""_s));
}

TEST_F(CashAssessments, ListLeavesOutOtherDepartments) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Run(u"UPDATE BILLING..tbCashAssessment SET DeptCode = 'LB' WHERE RefNum = '9001'"_s);
    EXPECT_TRUE(Status(u"ZZTEST"_s).empty());
}

TEST_F(CashAssessments, OneLineIsRevokedOnceAndRecordedOnce) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC018"_s);
    const QStringList first = Status(u"ZZTEST"_s).back();
    Revoke(first[0], first[4], first[7]);
    RunAs(u"CLERK"_s, Call(u"Clinical_Area..spEarCare_AssessRevoke"_s, {first[0], first[4], first[7]}));
    EXPECT_EQ(Column(Status(u"ZZTEST"_s), 6), QStringList({u"11/21/2026"_s, u"REVOKED"_s}));
    EXPECT_EQ(Cell(u"SELECT RevokedBy FROM BILLING..tbCashAssessment WHERE AssessNum = "_s + first[0]),
              u"NURSE"_s);
    EXPECT_EQ(Rows(u"SELECT UserID FROM BILLING..tbAuditTrail WHERE Event = 'REVOKE' AND RefNum = '9001'"_s),
              (std::vector<QStringList>{{u"NURSE"_s}}));
}

TEST_F(CashAssessments, LinesOfAReferenceComeByTheNamesThatARevokeReads) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Assess(u"9002"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"MD"_s, u"D003"_s, u""_s);
    RowSet lines = mGateway->Open(
        u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '9001'"_s,
        CursorType::Dynamic, LockType::ReadOnly);
    for (const QString& centre : {u"HC"_s, u"MD"_s}) {
        EXPECT_EQ(lines.Fields(u"RevenueID").ToText(), centre);
        Revoke(lines.Fields(u"AssessNum").ToText(), lines.Fields(u"RefNum").ToText(), centre);
        lines.MoveNext();
    }
    EXPECT_TRUE(lines.Eof());
    for (const QStringList& line : Status(u"ZZTEST"_s))
        EXPECT_EQ(line[6], line[4] == "9001"_L1 ? u"REVOKED"_s : u"11/21/2026"_s);
}

TEST_F(CashAssessments, SlipDataComeByTheNamesThatAReprintReads) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s, u"2"_s, u"5600.00"_s);
    const RowSet lines = mGateway->Open(u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = '9001'"_s,
                                        CursorType::Dynamic, LockType::ReadOnly, CursorLocation::Client);
    EXPECT_EQ(lines.RecordCount(), 1);
    QStringList values;
    for (const QString& name :
         {u"Name"_s, u"HospNum"_s, u"IdNum"_s, u"RefNum"_s, u"Quantity"_s, u"Amount"_s, u"TransDate"_s})
        values << lines.Fields(name).ToText();
    EXPECT_EQ(values, QStringList({u"ZZTEST, ANA"_s, u"W000003"_s, u""_s, u"9001"_s, u"2"_s, u"5600"_s,
                                   u"11/21/2026 10:15:00 AM"_s}));
}

TEST_F(CashAssessments, EmptyReferenceFindsNoLineThatStandsAlone) {
    Assess(u""_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    EXPECT_TRUE(Rows(u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = ''"_s).empty());
}

TEST_F(CashAssessments, PaidLineThatIsRevokedIsToldAsRevokedAndKeepsItsReceipt) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    Run(u"UPDATE BILLING..tbCashAssessment SET ORNum = '400001' WHERE RefNum = '9001'"_s);
    const QStringList line = Status(u"ZZTEST"_s).front();
    Revoke(line[0], line[4], line[7]);
    EXPECT_EQ(Status(u"ZZTEST"_s).front()[6], u"REVOKED"_s);
    EXPECT_EQ(Cell(u"SELECT ORNum FROM BILLING..tbCashAssessment WHERE RefNum = '9001'"_s), u"400001"_s);
}

TEST_F(CashAssessments, LineThatStandsAloneIsRevokedByItsOwnNumber) {
    Assess(u""_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    const QStringList line = Status(u"ZZTEST"_s).front();
    EXPECT_EQ(line[4], u"NULL"_s);
    Revoke(line[0], u""_s, line[7]);
    EXPECT_EQ(Status(u"ZZTEST"_s).front()[6], u"REVOKED"_s);
}

TEST_F(CashAssessments, WrongReferenceOrCentreOrABlankRowRevokesNothing) {
    Assess(u"9001"_s, u"ZZTEST, ANA"_s, u"HC"_s, u"HC001"_s);
    const QStringList line = Status(u"ZZTEST"_s).front();
    Revoke(line[0], u"9002"_s, line[7]);
    Revoke(line[0], line[4], u"HB"_s);
    Revoke(u""_s, u""_s, u""_s);
    EXPECT_EQ(Status(u"ZZTEST"_s).front()[6], u"11/21/2026"_s);
}

TEST_F(CashAssessments, TrialHospitalHasSomeInEveryStatusWithANumberAndWithout) {
    enum Kind { kOpen, kPaid, kRevoked };
    QHash<int, int> numbered;
    QHash<int, int> alone;
    for (const QStringList& row : Status(u""_s)) {
        const QString& status = row[6];
        const Kind kind = IsDate(status) ? kOpen : status.startsWith("OR "_L1) ? kPaid : kRevoked;
        EXPECT_TRUE(kind != kRevoked || status == "REVOKED"_L1) << status.toStdString();
        ++(row[4] == "NULL"_L1 ? alone : numbered)[kind];
    }
    for (const Kind kind : {kOpen, kPaid, kRevoked}) {
        EXPECT_GE(numbered[kind], 10);
        EXPECT_GE(alone[kind], 2);
    }
}

TEST_F(CashAssessments, EveryAssessmentOfTheTrialHospitalHasALine) {
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM (SELECT RefNum FROM BILLING..tbCashAssessment WHERE RefNum IS NOT "
                   "NULL GROUP BY RefNum) AS x"_s),
              Cell(u"SELECT AssessmentNum - 5001 FROM BILLING..tbAssessmentNum"_s));
}

TEST_F(CashAssessments, CounterIsBeyondTheLastNumber) {
    const QString next = Cell(u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum"_s);
    EXPECT_EQ(
        Cell(
            u"SELECT MAX(CAST(RefNum AS int)) + 1 FROM BILLING..tbCashAssessment WHERE RefNum IS NOT NULL"_s),
        next);
}

} // namespace
