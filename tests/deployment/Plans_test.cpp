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
constexpr std::array<ReadWhole, 0> kReadWhole = {};

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

/// A text with values where the program puts its own. A plan does not depend on them.
QString WithValues(QString text) {
    static const QRegularExpression place(u"'\\?'|\\?"_s);
    return text.replace(place, u"'1'"_s);
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
    static const QRegularExpression statement(u"^\\s*(select|insert|update|delete)\\b"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    int statements = 0;
    for (const SentCommand& sent : CollectSentCommands()) {
        if (!statement.match(sent.text).hasMatch())
            continue;
        printf("%s: %s\n", qPrintable(sent.composer), qPrintable(sent.text));
        try {
            ExpectSearches(sent.composer, WithValues(sent.text));
        } catch (const RunTimeError& e) {
            printf("   ERR %s\n", e.what());
        }
        ++statements;
    }
    EXPECT_GT(statements, 20);
}

TEST_F(Plans, AScanOfALargeTableIsSeen) {
    EXPECT_EQ(LargeTablesReadWhole(u"select HospNum from PATIENT_DATA..tbmaster where FirstName = 'ANA'"_s),
              QStringList{u"PATIENT_DATA..tbmaster"_s});
}
