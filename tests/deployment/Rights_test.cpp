#include "deployment/HospitalObjects.h"
#include "deployment/Rights.h"
#include "deployment/SentCommands.h"
#include "deployment/SourceText.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

// The rights of the program's two roles, against every command text that the program can send.

namespace {

/// What stands ready in the program with no way in.
struct NoWayIn {
    /// A source file, a function that composes a command, or a template.
    const char* composer;
    /// The other source files with a way in that name it, once for each time.
    std::vector<QString> named;
    const char* why;
};

const std::vector<NoWayIn>& NoWaysIn() {
    static const std::vector<NoWayIn> list = {
        {"clsOutpatientSearch.cpp", {}, "nothing makes one"},
        {"clsSaveTreatmentRecord.cpp", {}, "no screen fills or saves a treatment record"},
        {"frmARPatients.cpp", {}, "nothing opens it"},
        {"frmCashPatients.cpp", {}, "nothing opens it; the menu's Cash Patient is hidden and has no handler"},
        {"frmRates.cpp", {}, "nothing opens it"},
        {"frmRegisteredOPD.cpp", {}, "opened by clsOutpatientSearch alone"},
        {"frmReprint.cpp", {u"frmMain.cpp"_s}, "opened by mnuDuplicate alone, which is disabled for good"},
        {"frmSearcher.cpp", {}, "nothing opens it"},
        {"frmWalkIn.cpp", {}, "opened by frmCashPatients alone"},
        {"frmWalkInUpdate.cpp", {u"frmMain.cpp"_s}, "opened by OpenWalkInUpdate, which no control calls"},
        {"LinkStockCardCommand",
         {u"ExpandPackage.cpp"_s},
         "the posting screen's ExpandPackage sends it, and a posting passes over packages"},
        {"RadioConsultation.rpt", {u"frmNursingRequest.cpp"_s}, "printed by Command1, which stays hidden"},
        {"RevokeNurseRequestCommand",
         {u"frmNursingRequest.cpp"_s},
         "sent by cmdCancel, which stays disabled"},
    };
    return list;
}

bool StandsReady(const QString& composer) {
    return std::any_of(NoWaysIn().begin(), NoWaysIn().end(),
                       [&](const NoWayIn& entry) { return composer == QLatin1StringView(entry.composer); });
}

/// Whether no way leads to the command: to what composes it, or to any of the files that send it.
bool HasNoWayIn(const SentCommand& command) {
    return StandsReady(command.composer) ||
           std::all_of(command.senders.begin(), command.senders.end(), StandsReady);
}

/// A table that neither a procedure nor the program reads.
struct UnusedTable {
    const char* name;
    const char* why;
};
constexpr std::array kUnusedTables = {UnusedTable{
    "build_file.tbcoroomclass", "the hospital's names of the room classes; everybody goes by the letters"}};

bool IsKnownAsUnused(const QString& table) {
    return std::any_of(kUnusedTables.begin(), kUnusedTables.end(),
                       [&](const UnusedTable& unused) { return table == QLatin1StringView(unused.name); });
}

class Rights : public testing::Test {
  protected:
    Rights() {
        for (const SentCommand& command : commands) {
            const bool standsReady = HasNoWayIn(command);
            for (const NamedRight& right : RightsFor(command.text, hospital, problems))
                (standsReady ? needed.standby : needed.workstation)[right] << command.composer;
        }
        // Whoever works with what stands ready is a member of both roles.
        for (const NamedRight& right : needed.workstation.keys())
            needed.standby.remove(right);
    }

    static RoleRights Granted(const QString& text) {
        QStringList unread;
        RoleRights rights = ReadGrants(text, unread);
        EXPECT_THAT(unread, IsEmpty());
        return rights;
    }

    /// Everything granted, as "database.object" or with its column.
    QStringList GrantedNames() const {
        QStringList names;
        for (const NamedRight& right : granted.workstation.keys() + granted.standby.keys())
            names << right.section(u' ', 1);
        return names;
    }

    const HospitalObjects hospital = ReadHospital();
    const std::vector<SentCommand> commands = CollectSentCommands();
    RoleRights needed;
    QStringList problems;
    const QString script = ReadFile(u"tools/sqlserver/rights.sql"_s);
    const RoleRights granted = Granted(script);
};

} // namespace

TEST_F(Rights, AreWhatTheProgramCanSendAndNoMore) {
    EXPECT_THAT(DifferencesBetween(needed, granted), IsEmpty());
    EXPECT_GT(needed.workstation.size(), 40);
    EXPECT_GT(needed.standby.size(), 15);
}

TEST_F(Rights, AreKnownOfEveryCommandThatIsSent) {
    EXPECT_THAT(problems, IsEmpty());
    for (const SentCommand& command : commands)
        EXPECT_FALSE(command.senders.isEmpty()) << "nothing sends " << command.text.toStdString();
    EXPECT_GT(commands.size(), 60U);
}

TEST_F(Rights, AGrantThatIsTakenOutIsMissed) {
    for (const QString& line : script.split(u'\n').filter(u"GRANT "_s)) {
        const RoleRights fewer = Granted(QString(script).remove(line));
        EXPECT_THAT(DifferencesBetween(needed, fewer), Not(IsEmpty())) << line.toStdString();
    }
}

TEST_F(Rights, AGrantToTheOtherRoleIsNoticedInBoth) {
    for (const QString& line : script.split(u'\n').filter(u"GRANT "_s)) {
        const bool standsReady = line.endsWith(u"_standby;"_s);
        const QString moved = standsReady ? QString(line).replace(u"_standby;"_s, u";"_s)
                                          : QString(line).replace(u";"_s, u"_standby;"_s);
        const RoleRights other = Granted(QString(script).replace(line, moved));
        const QStringList differences = DifferencesBetween(needed, other);
        EXPECT_THAT(differences.filter(u" lacks "_s), Not(IsEmpty())) << line.toStdString();
        EXPECT_THAT(differences.filter(u"which nothing sends"_s), Not(IsEmpty())) << line.toStdString();
    }
}

TEST_F(Rights, AGrantTooManyIsNoticed) {
    const QStringList tables = hospital.tables.keys();
    for (const QString& table : tables) {
        for (const char* verb : {"INSERT", "UPDATE", "DELETE", "SELECT"}) {
            const NamedRight right = QLatin1StringView(verb) + u' ' + table;
            if (granted.workstation.contains(right))
                continue;
            const RoleRights more = Granted(
                script + u"USE %1;\nGRANT %2 ON dbo.%3 TO tarven_hemodialysis;\n"_s.arg(
                             table.section(u'.', 0, 0), QLatin1StringView(verb), table.section(u'.', 1)));
            EXPECT_THAT(DifferencesBetween(needed, more),
                        Contains(u"tarven_hemodialysis has %1, which nothing sends"_s.arg(right)));
        }
    }
}

TEST_F(Rights, NameOnlyWhatStandsInTheHospital) {
    for (const QString& name : GrantedNames()) {
        const QString object = name.section(u' ', 0, 0);
        const bool stands = hospital.procedures.contains(object) || hospital.tables.contains(object);
        EXPECT_TRUE(stands) << object.toStdString();
        const QString column = name.section(u'(', 1).chopped(name.contains(u'(') ? 1 : 0);
        EXPECT_TRUE(column.isEmpty() || hospital.tables[object].contains(column)) << name.toStdString();
    }
}

TEST_F(Rights, EverythingInTheHospitalIsGrantedOrUsedByAProcedure) {
    QSet<QString> known = hospital.usedByProcedures;
    for (const QString& name : GrantedNames())
        known.insert(name.section(u' ', 0, 0));
    for (const QString& object : QStringList(hospital.tables.keys()) + hospital.procedures.values())
        EXPECT_TRUE(known.contains(object) != IsKnownAsUnused(object)) << object.toStdString();
    EXPECT_GT(hospital.tables.size(), 25);
    EXPECT_GT(hospital.procedures.size(), 35);
}

TEST_F(Rights, ToTheHashesOfPasswordsAreNotTheWorkstations) {
    EXPECT_FALSE(granted.workstation.contains(u"SELECT password.tbpasswordmain"_s));
    EXPECT_FALSE(granted.workstation.contains(u"SELECT password.tbpasswordmain (passwordhash)"_s));
    EXPECT_TRUE(granted.workstation.contains(u"SELECT password.tbpasswordmain (employeeid)"_s));
}

TEST_F(Rights, WhatHasNoWayInIsNamedWhereItIsKnownToLeadNowhere) {
    for (const NoWayIn& entry : NoWaysIn()) {
        const QString composer = QString::fromLatin1(entry.composer);
        const QString name = composer.section(u'.', 0, 0);
        QStringList others = FilesThatSay(name);
        others.removeIf([&](const QString& file) {
            return StandsReady(file.section(u'.', 0, 0).remove(u"Layout"_s) + u".cpp"_s) ||
                   file.startsWith(u"commands."_s) || file == "Manual.cpp"_L1;
        });
        EXPECT_THAT(std::vector<QString>(others.begin(), others.end()),
                    testing::ElementsAreArray(entry.named))
            << entry.composer << ": " << entry.why;
    }
}

TEST_F(Rights, WhatHasNoWayInSendsSomethingThatOthersDoNot) {
    for (const NoWayIn& entry : NoWaysIn()) {
        const bool sends = std::any_of(commands.begin(), commands.end(), [&](const SentCommand& command) {
            const QString name = QString::fromLatin1(entry.composer);
            return HasNoWayIn(command) && (command.composer == name || command.senders.contains(name));
        });
        EXPECT_TRUE(sends) << entry.composer;
    }
}

// The collector reads expressions; this looks for the names alone.
TEST_F(Rights, NoSourceNamesAnObjectThatWasNotCollected) {
    static const QRegularExpression name(u"\\w+\\.(?:dbo)?\\.(?:tb|sp)\\w+"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    QString collected;
    for (const SentCommand& command : commands)
        collected += command.text + u'\n';
    int seen = 0;
    for (const QString& path : FilesBelow(u"src"_s, {u"*.cpp"_s, u"*.h"_s})) {
        for (auto found = name.globalMatch(WithoutComments(ReadFile(path))); found.hasNext(); ++seen) {
            const QString object = found.next().captured();
            EXPECT_TRUE(collected.contains(object)) << path.toStdString() << ": " << object.toStdString();
        }
    }
    EXPECT_GT(seen, 50);
}

// A screen may point a report's tables at another database. Then they must stand there already, or what is
// sent would not be what was read here.
TEST(RightsOfTemplates, AreThoseOfTheDatabaseThatTheirScreenPointsThemAt) {
    static const QRegularExpression pointed(u"OpenReportOn\\(u\"(\\w+)\"_s,[^;]*;"_s);
    static const QRegularExpression file(u"ReportFile::(k\\w+)"_s);
    static const QRegularExpression location(u"location=\"(\\w+)\\."_s);
    const QString files = ReadFile(u"src/reports/ReportFiles.h"_s);
    int seen = 0;
    for (const QString& path : FilesBelow(u"src"_s, {u"*.cpp"_s})) {
        for (auto calls = pointed.globalMatch(ReadFile(path)); calls.hasNext();) {
            const auto call = calls.next();
            EXPECT_TRUE(call.captured().contains(u"ReportFile::k"_s)) << path.toStdString();
            for (auto names = file.globalMatch(call.captured()); names.hasNext();) {
                const QRegularExpression name(names.next().captured(1) + u" = u\".*\\b(\\w+\\.rpt)\""_s);
                const QString report = u"Reports/"_s + name.match(files).captured(1);
                for (auto tables = location.globalMatch(ReadFile(report)); tables.hasNext(); ++seen)
                    EXPECT_EQ(tables.next().captured(1), call.captured(1)) << report.toStdString();
            }
        }
    }
    EXPECT_GE(seen, 6);
}

// A procedure may use what its caller may not: by statements of its own text, not by texts that it runs, and
// not by those that alter a table.
TEST(RightsOfProcedures, AreEnoughForWhatTheyDo) {
    for (const QString& path : FilesBelow(u"hospital/procedures"_s, {u"*.sql"_s})) {
        const QString text = ReadFile(path);
        const std::vector<Token> tokens = LexSql(text);
        for (size_t i = 0; i + 1 < tokens.size(); ++i) {
            const bool runs = tokens[i].Is(u"EXEC") || tokens[i].Is(u"EXECUTE");
            EXPECT_FALSE(runs && tokens[i + 1].IsOperator(u"(")) << path.toStdString();
            for (const QStringView word : {u"sp_executesql", u"TRUNCATE", u"IDENTITY_INSERT"})
                EXPECT_FALSE(tokens[i].Is(word))
                    << path.toStdString() << ": " << word.toString().toStdString();
        }
    }
}

namespace {

struct NeedCase {
    const char* name;
    QString command;
    QStringList rights;
};

void PrintTo(const NeedCase& c, std::ostream* out) {
    *out << c.name;
}

class NeededRights : public testing::TestWithParam<NeedCase> {};

HospitalObjects SmallHospital() {
    return {.procedures = {u"billing.spone"_s},
            .tables = {{u"billing.tbone"_s, {u"a"_s, u"b"_s}},
                       {u"billing.tbtwo"_s, {u"c"_s}},
                       {u"password.tbpasswordmain"_s, {u"employeeid"_s, u"initial"_s, u"passwordhash"_s}}},
            .usedByProcedures = {}};
}

} // namespace

TEST_P(NeededRights, OfACommand) {
    QStringList problems;
    EXPECT_EQ(RightsFor(GetParam().command, SmallHospital(), problems), GetParam().rights);
    EXPECT_THAT(problems, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, NeededRights,
    testing::Values(
        NeedCase{"Procedure", u"BILLING..spOne '?'"_s, {u"EXECUTE billing.spone"_s}},
        NeedCase{"Owner", u"select * from Billing.dbo.TBONE"_s, {u"SELECT billing.tbone"_s}},
        NeedCase{"Join",
                 u"SELECT x.a FROM BILLING..tbOne AS x LEFT JOIN BILLING..tbTwo AS y ON y.c = x.a"_s,
                 {u"SELECT billing.tbone"_s, u"SELECT billing.tbtwo"_s}},
        NeedCase{"Delete", u"delete BILLING..tbOne"_s, {u"DELETE billing.tbone"_s}},
        NeedCase{"DeleteFrom",
                 u"DELETE FROM BILLING..tbOne WHERE a = ?"_s,
                 {u"DELETE billing.tbone"_s, u"SELECT billing.tbone"_s}},
        NeedCase{"UpdateOfAll", u"UPDATE BILLING..tbOne SET a = ?"_s, {u"UPDATE billing.tbone (a)"_s}},
        NeedCase{"UpdateOfSome",
                 u"UPDATE BILLING..tbOne SET [a]=? WHERE [a]=? AND [b]=?"_s,
                 {u"UPDATE billing.tbone (a)"_s, u"SELECT billing.tbone"_s}},
        NeedCase{"NamedColumnsOfUsers",
                 u"SELECT Initial FROM PASSWORD..tbPasswordMain WHERE EmployeeID = '?'"_s,
                 {u"SELECT password.tbpasswordmain (initial)"_s,
                  u"SELECT password.tbpasswordmain (employeeid)"_s}},
        NeedCase{"WholeRowsOfUsers",
                 u"Select * from PASSWORD..tbPasswordMain"_s,
                 {u"SELECT password.tbpasswordmain"_s}}),
    CaseName());

TEST(RightsOfWhatIsNotKnown, AreAProblem) {
    for (const QString& command : {u"BILLING..spTwo '?'"_s, u"SELECT a FROM BILLING..tbThree"_s,
                                   u"MERGE BILLING..tbOne USING BILLING..tbTwo ON 1 = 1"_s}) {
        QStringList problems;
        RightsFor(command, SmallHospital(), problems);
        EXPECT_THAT(problems, Not(IsEmpty())) << command.toStdString();
    }
}

TEST(GrantsOfAScript, ThatCannotBeReadAreAProblem) {
    for (const QString& line : {u"GRANT SELECT ON dbo.tbOne TO public;"_s,
                                u"GRANT EXECUTE ON SCHEMA::dbo TO tarven_hemodialysis;"_s,
                                u"GRANT CONTROL ON dbo.tbOne TO tarven_hemodialysis;"_s,
                                u"GRANT SELECT ON dbo.tbOne TO tarven_hemodialysis WITH GRANT OPTION;"_s}) {
        QStringList problems;
        ReadGrants(u"USE BILLING;\nGO\n"_s + line, problems);
        EXPECT_EQ(problems.size(), 1) << line.toStdString();
    }
}
