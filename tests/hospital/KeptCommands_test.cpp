#include "hospital/HospitalScripts.h"
#include "ProcedureTree.h"
#include "support/BothRoads.h"
#include "support/FixedClock.h"
#include "support/hospital/FreshHospital.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kCallsOfEach = 14;

/// What clerks key, and what does not fit.
const QStringList kTexts = {
    u"'DELA'"_s,   u"'O'"_s,    u"'HC'"_s,     u"'104233B'"_s, u"'I'"_s, u"'H1042C'"_s,
    u"'100284'"_s, u"'1'"_s,    u"'700124'"_s, u"'0'"_s,       u"''"_s,  u"'HC001'"_s,
    u"N'MUÑOZ'"_s, u"'5010'"_s, u"'NURSE'"_s,  u"NULL"_s,      u"'D'"_s, u"'O''BRIEN   '"_s,
    u"'M0002'"_s,  u"'C'"_s,    u"7"_s,        u"'PKG01'"_s,   u"-3"_s,  u"'2'"_s,
    u"12.50"_s};
const QStringList kDates = {u"'20261121'"_s,   u"'2026-11-21 08:15'"_s, u"'11/20/2026'"_s, u"'20261031'"_s,
                            u"'31/31/2026'"_s, u"'20261201'"_s,         u"NULL"_s,         u"''"_s,
                            u"'20251231'"_s};
const QStringList kNumbers = {u"'3360.00'"_s, u"'2'"_s,  u"12.5"_s, u"'abc'"_s, u"'1,250.75'"_s,
                              u"0"_s,         u"'-4'"_s, u"''"_s,   u"100"_s};

const QStringList& LiteralsFor(const SqlType& type) {
    if (type.IsDate())
        return kDates;
    return type.IsText() ? kTexts : kNumbers;
}

/// One call of a procedure; some leave the last argument out, some have one too many.
QString CallOf(const ProcedureTree& procedure, int number) {
    QStringList arguments;
    int place = 0;
    for (const ParameterDefinition& parameter : procedure.definition.parameters) {
        const QStringList& literals = LiteralsFor(parameter.type);
        arguments << literals[(number * 5 + place++ * 3) % literals.size()];
    }
    if (number % 7 == 5 && !arguments.isEmpty())
        arguments.removeLast();
    if (number % 7 == 6)
        arguments << u"'MORE'"_s;
    return procedure.FullName() + u' ' + arguments.join(u',');
}

/// What the program sends besides calls, with "{}" where its literals go.
const QStringList kPlainTexts = {
    u"select ultraexam, ultraexamid from build_file..tbcoultraexam where ultraexam like{}"_s,
    u"select * from patient_data..tboutpatient where idnum = {}"_s,
    u"select * from hemodialysis..tbHemodialysisResultEntry where idnum = {}and requestnum={}"_s,
    u"UPDATE INVENTORY..tbInvStockCard SET PackageID = {} WHERE ItemID = {} AND RefNum = {}"_s,
    u"Select RoomClassID from build_file..tbCoRoom Where RoomID = {} "_s,
    u"Select * from PASSWORD..tbPasswordMain where EmployeeID = {}"_s,
    u"SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemID = {} OR LEFT(ItemName, LEN({})) = {}"_s,
    u"SELECT ItemID, OtherRevenue, RateA FROM build_file..tbCoOtherRevenue WHERE RevenueID = {} AND ItemID >= {} "
    "ORDER BY ItemID"_s,
    u"SELECT DeptCode FROM PASSWORD..tbPasswordDept WHERE EmployeeID = {} AND (DeptCode = {} OR DeptCode = '*')"_s,
    u"SELECT HospNum, LastName, BirthDate, AccountNum FROM PATIENT_DATA..tbmaster WHERE HospNum = {}"_s,
    u"SELECT p.IdNum, p.AdmDate, s.Station FROM PATIENT_DATA..tbpatient AS p LEFT JOIN build_file..tbCoRoom AS r ON "
    "r.RoomID = p.RoomID LEFT JOIN build_file..tbCoStation AS s ON s.StationID = r.StationID WHERE p.IdNum = {}"_s,
    u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = {}"_s,
    u"SELECT * FROM HEMODIALYSIS..tbhemopackage WHERE PackageCode = {}"_s,
    u"SELECT CONVERT(varchar(10), TransDate, {}) FROM BILLING..tbPatientCharges WHERE ChargeID = {}"_s,
    u"SELECT RefNum, SUM(Amount) FROM BILLING..tbPatientCharges WHERE TransDate >= {} GROUP BY RefNum ORDER BY RefNum"_s,
    u"UPDATE PATIENT_DATA..tbmaster SET BirthDate={},Sex={} WHERE HospNum={} AND LastName={}"_s,
    u"INSERT INTO build_file..tbCoAddress (ZipCode, Town, Province) VALUES ({}, {}, {})"_s,
    u"INSERT INTO INVENTORY..tbInvMaster (ItemID, ItemName, Unit, SectionID, SellingPriceOut, SellingPriceIn) VALUES "
    "({}, {}, 'PC', '52', {}, 0)"_s,
    u"DELETE FROM PATIENT_DATA..tbwalkin WHERE LastName = {}"_s,
};

QString PlainText(const QString& form, int number) {
    const QStringList literals = kTexts + kDates + kNumbers;
    QString text = form;
    for (int place = 0; text.contains(u"{}"_s); ++place)
        text.replace(text.indexOf(u"{}"_s), 2, literals[(number + 11 * place) % literals.size()]);
    return text;
}

/// The trial hospital at a fixed moment, asked on both roads.
class KeptCommandsOfTheDay : public testing::Test {
  protected:
    KeptCommandsOfTheDay() { roads.SetUser(u"NURSE"_s); }

    const Seam<DateTime()>::Replacement clock =
        FixedClock(*DateTime::FromFields({.year = 2026, .month = 11, .day = 21, .hour = 10, .minute = 15}));
    BothRoads roads{FreshHospital()};
};

TEST_F(KeptCommandsOfTheDay, CallsOfEveryProcedureAnswerAsIfTheyWereReadAnew) {
    for (const ProcedureTree& procedure : ProcedureTrees(HospitalScripts())) {
        for (int number = 0; number < kCallsOfEach; ++number)
            EXPECT_TRUE(roads.Agree(CallOf(procedure, number)));
    }
}

TEST_F(KeptCommandsOfTheDay, PlainTextsAnswerAsIfTheyWereReadAnew) {
    const int literals = static_cast<int>((kTexts + kDates + kNumbers).size());
    for (const QString& form : kPlainTexts) {
        for (int number = 0; number < literals; ++number)
            EXPECT_TRUE(roads.Agree(PlainText(form, number)));
    }
}

} // namespace
