#include "deployment/SentCommands.h"
#include "hospital/HospitalScripts.h"
#include "support/hospital/HospitalTest.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// How the trial hospital's engine goes about every command that the program can send.

namespace {

/// A table that a command reads from its beginning to its end although it is not a small one.
struct ReadWhole {
    /// A procedure, or what composes the command.
    const char* command;
    const char* table;
    const char* why;
};
constexpr std::array kReadWhole = {ReadWhole{
    "Listing.cpp", "INVENTORY..tbInvMaster",
    "asks once whether any item's name begins so, whatever its section; the names stand in an index by section"}};

class Plans : public HospitalTest {
  protected:
    /// The tables of more than a hundred rows that the command reads without an index.
    QStringList LargeTablesReadWhole(const QString& command) {
        static const QRegularExpression scan(u"^SCAN (\\S+) AS t\\d+\\b"_s);
        QStringList tables;
        for (const QString& step : mGateway->QueryPlan(command)) {
            EXPECT_FALSE(step.contains(u"AUTOMATIC"_s)) << command.toStdString();
            const auto match = scan.match(step);
            if (match.hasMatch() && RowsOf(match.captured(1)) > kFewRows)
                tables << match.captured(1);
        }
        return tables;
    }

    void ExpectSearches(const QString& name, const QString& command) {
        for (const QString& table : LargeTablesReadWhole(command))
            EXPECT_TRUE(IsKnown(name, table)) << name.toStdString() << " reads all of " << table.toStdString()
                                              << ": " << command.toStdString();
    }

  private:
    static constexpr qint64 kFewRows = 100;

    qint64 RowsOf(const QString& table) {
        auto known = mRows.find(table);
        if (known == mRows.end())
            known = mRows.insert(table, Cell(u"select count(*) from "_s + table).toLongLong());
        return *known;
    }

    static bool IsKnown(const QString& command, const QString& table) {
        return std::any_of(kReadWhole.begin(), kReadWhole.end(), [&](const ReadWhole& known) {
            return command == QLatin1StringView(known.command) && table == QLatin1StringView(known.table);
        });
    }

    QMap<QString, qint64> mRows;
};

/// What a file of the sources joins to a text between its quotes, where it is no value.
struct Joined {
    const char* composer;
    QString place;
    QString text;
};

/// The texts as they are sent, with values where the program puts its own. A plan does not depend on them.
std::vector<SentCommand> WholeStatements() {
    static const QRegularExpression statement(u"^\\s*(select|insert|update|delete)\\b"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression value(u"'\\?'|\\?"_s);
    const std::vector<SentCommand> sent = CollectSentCommands();
    const auto joins = std::find_if(sent.begin(), sent.end(), [](const SentCommand& command) {
        return command.composer == "PersonFinder.cpp"_L1 && command.text.startsWith(u" INNER JOIN"_s);
    });
    const std::vector<Joined> joined = {
        {"PersonFinder.cpp", u"SELECT ?"_s, u"SELECT m.AccountNum"_s},
        {"PersonFinder.cpp", u"AS p?"_s, u"AS p"_s + (joins == sent.end() ? QString() : joins->text)},
        {"SignOn.cpp", u"Initial?"_s, u"Initial"_s},
        {"Listing.cpp", u"WHERE RevenueID = "_s, u"WHERE RevenueID = ?"_s},
    };
    std::vector<SentCommand> statements;
    for (SentCommand command : sent) {
        if (!statement.match(command.text).hasMatch())
            continue;
        for (const Joined& piece : joined) {
            if (command.composer == QLatin1StringView(piece.composer))
                command.text.replace(piece.place, piece.text);
        }
        // What a row set writes finds its row by every column.
        command.text.replace(u"WHERE ?"_s, u"WHERE 1 = 1"_s).replace(value, u"'1'"_s);
        statements.push_back(command);
    }
    return statements;
}

} // namespace

TEST_F(Plans, NoProcedureReadsALargeTableWithoutAnIndex) {
    int procedures = 0;
    for (const Script& script : HospitalStructure()) {
        if (!script.name.startsWith("procedures/"_L1))
            continue;
        const QStringList path = script.name.chopped(4).split(u'/');
        ExpectSearches(path[2], path[1] + u".."_s + path[2]);
        ++procedures;
    }
    EXPECT_GT(procedures, 30);
}

TEST_F(Plans, NoStatementOfTheProgramReadsALargeTableWithoutAnIndex) {
    const std::vector<SentCommand> statements = WholeStatements();
    for (const SentCommand& sent : statements)
        ExpectSearches(sent.composer, sent.text);
    EXPECT_GT(statements.size(), 30U);
}

TEST_F(Plans, EveryKnownScanIsStillThere) {
    for (const ReadWhole& known : kReadWhole) {
        const auto statements = WholeStatements();
        EXPECT_TRUE(std::any_of(statements.begin(), statements.end(), [&](const SentCommand& sent) {
            return sent.composer == QLatin1StringView(known.command) &&
                   LargeTablesReadWhole(sent.text).contains(QLatin1StringView(known.table));
        })) << known.command;
    }
}

TEST_F(Plans, AScanOfALargeTableIsSeen) {
    EXPECT_EQ(LargeTablesReadWhole(u"select HospNum from PATIENT_DATA..tbmaster where FirstName = 'ANA'"_s),
              QStringList{u"PATIENT_DATA..tbmaster"_s});
}
