#include "oracle/OracleEngines.h"
#include "oracle/RandomStatements.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <algorithm>
#include <map>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kSeed = "TARVEN_ORACLE_SEED";
constexpr const char* kStatements = "TARVEN_ORACLE_STATEMENTS";

quint64 NumberFrom(const char* variable, quint64 otherwise) {
    bool ok = false;
    const quint64 number = qEnvironmentVariable(variable).toULongLong(&ok);
    return ok ? number : otherwise;
}

class RandomArithmetic : public testing::TestWithParam<OracleEngine> {
  protected:
    /// Asks for it at once where it fails, else together with others of its source.
    void Take(const ReferenceQuery& query) {
        if (!query.Expected().errors.empty()) {
            AskAlone(query);
            return;
        }
        constexpr size_t kTogether = 25;
        std::vector<ReferenceQuery>& waiting = mWaiting[query.Behind()];
        waiting.push_back(query);
        if (waiting.size() == kTogether)
            AskWaiting(waiting);
    }

    void AskAllWaiting() {
        for (auto& [behind, waiting] : mWaiting)
            AskWaiting(waiting);
        mWaiting.clear();
    }

    const std::vector<std::string>& Complaints() const { return mComplaints; }

  private:
    Answer Given(const ReferenceQuery& query) {
        return AskColumns(mDatabase->Gateway(), query.Statement()).front();
    }

    bool Fails(const ReferenceQuery& query) { return !query.Expected().Admits(Given(query)); }

    void AskAlone(const ReferenceQuery& query) {
        if (Fails(query))
            Complain(query);
    }

    void AskWaiting(std::vector<ReferenceQuery>& waiting) {
        if (waiting.empty())
            return;
        const auto answers = AskColumns(mDatabase->Gateway(), ReferenceQuery::Together(waiting));
        for (size_t i = 0; i < waiting.size(); ++i) {
            // One that fails where it should not leaves no answers for the others.
            if (answers.size() != waiting.size())
                AskAlone(waiting[i]);
            else if (!waiting[i].Expected().Admits(answers[i]))
                Complain(waiting[i]);
        }
        waiting.clear();
    }

    /// The smallest part of a failing query that fails as well.
    ReferenceQuery Shrunk(ReferenceQuery query) {
        for (;;) {
            const std::vector<ReferenceQuery> parts = query.Parts();
            const auto failing = std::find_if(parts.begin(), parts.end(), [this](const ReferenceQuery& part) {
                return part.IsSure() && Fails(part);
            });
            if (failing == parts.end())
                return query;
            query = *failing;
        }
    }

    void Complain(const ReferenceQuery& query) {
        const ReferenceQuery least = Shrunk(query);
        std::ostringstream complaint;
        complaint << least.Statement().toStdString()
                  << "\n  expected: " << least.Expected().ToText().toStdString()
                  << "\n  answered: " << Given(least).ToText().toStdString()
                  << "\n  found in: " << query.Statement().toStdString();
        mComplaints.push_back(complaint.str());
    }

    std::unique_ptr<OracleDatabase> mDatabase = GetParam().make();
    std::map<QString, std::vector<ReferenceQuery>> mWaiting;
    std::vector<std::string> mComplaints;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Engines, RandomArithmetic, testing::ValuesIn(OracleEngines()), CaseName());

TEST_P(RandomArithmetic, IsTheReferences) {
    constexpr size_t kEnough = 20;
    const quint64 seed = NumberFrom(kSeed, 1);
    const quint64 statements = NumberFrom(kStatements, 10000);
    RandomStatements random(seed);
    for (quint64 i = 0; i < statements && Complaints().size() < kEnough; ++i)
        Take(random.Next());
    AskAllWaiting();
    for (const std::string& complaint : Complaints())
        ADD_FAILURE() << "TARVEN_ORACLE_SEED=" << seed << "\n" << complaint;
}

TEST(RandomStatements, AreTheSameForASeed) {
    RandomStatements one(7);
    RandomStatements same(7);
    RandomStatements other(8);
    bool differs = false;
    for (int i = 0; i < 100; ++i) {
        const QString statement = one.Next().Statement();
        EXPECT_EQ(statement, same.Next().Statement());
        differs = differs || statement != other.Next().Statement();
    }
    EXPECT_TRUE(differs);
}

TEST(RandomStatements, HoldValuesAndErrorsOfEveryKind) {
    RandomStatements random(1);
    std::map<std::string, int> seen;
    for (int i = 0; i < 2000; ++i) {
        const ReferenceQuery query = random.Next();
        const Answer& expected = query.Expected();
        for (const int error : expected.errors)
            ++seen["error " + std::to_string(error)];
        ++seen[expected.type.section(u' ', 0, 0).toStdString()];
        for (const char* word : {"UNION ALL", "CASE", "COALESCE", "NULLIF", "SUM(", "AVG(", "MIN(", "MAX("})
            seen[word] += query.Statement().contains(QLatin1String(word)) ? 1 : 0;
    }
    for (const char* kind :
         {"bit", "int", "bigint", "money", "decimal", "float", "error 8115", "error 8134", "error 232",
          "UNION ALL", "CASE", "COALESCE", "NULLIF", "SUM(", "AVG(", "MIN(", "MAX("})
        EXPECT_GE(seen[kind], 5) << kind;
}
