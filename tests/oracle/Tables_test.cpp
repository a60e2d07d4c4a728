#include "oracle/CaseFile.h"
#include "oracle/OracleEngines.h"
#include "oracle/PendingCases.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class OracleTables : public testing::TestWithParam<OracleEngine> {
  protected:
    CommandGateway& Gateway() { return mDatabase->Gateway(); }

  private:
    std::unique_ptr<OracleDatabase> mDatabase = GetParam().make();
};

std::vector<OracleCase> AllCases() {
    const QDir tables(OracleFolder() + u"tables"_s, u"*.txt"_s);
    std::vector<OracleCase> cases;
    for (const QString& name : tables.entryList()) {
        const std::vector<OracleCase> more = ReadCases(tables.filePath(name));
        cases.insert(cases.end(), more.begin(), more.end());
    }
    return cases;
}

/// Complains at the case's own file and line.
void Complain(const OracleCase& asked, const Answer& given, const char* complaint) {
    ADD_FAILURE_AT(asked.file.toUtf8().constData(), asked.line)
        << asked.written.toStdString() << "\n  " << complaint << given.ToText().toStdString();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Engines, OracleTables, testing::ValuesIn(OracleEngines()), CaseName());

TEST_P(OracleTables, AreAnsweredButForWhatIsPending) {
    const PendingCases pending;
    std::vector<OracleCase> failing;
    const bool writes = !GetParam().isServer && qEnvironmentVariableIsSet("TARVEN_WRITE_PENDING");
    for (const OracleCase& asked : AllCases()) {
        const Answer given = Ask(Gateway(), asked);
        const bool isRight = asked.answer.Admits(given);
        if (!isRight)
            failing.push_back(asked);
        const bool mayFail = !GetParam().isServer && pending.Contains(asked);
        if (isRight && mayFail && !writes)
            Complain(asked, given, "is right by now, take it out of pending.txt: ");
        if (!isRight && !mayFail && !writes)
            Complain(asked, given, "answered: ");
    }
    if (writes)
        pending.Write(failing);
}

TEST(PendingCases, AreAllInTheTables) {
    const std::vector<OracleCase> cases = AllCases();
    ASSERT_GT(cases.size(), 100U);
    EXPECT_EQ(PendingCases().Strangers(cases).join(u'\n'), QString());
}
