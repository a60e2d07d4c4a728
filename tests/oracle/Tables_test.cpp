#include "oracle/CaseFile.h"
#include "oracle/OracleEngines.h"
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
    const QDir tables(QStringLiteral(TARVEN_SOURCE_DIR "/tests/oracle/tables"), u"*.txt"_s);
    std::vector<OracleCase> cases;
    for (const QString& name : tables.entryList()) {
        const std::vector<OracleCase> more = ReadCases(tables.filePath(name));
        cases.insert(cases.end(), more.begin(), more.end());
    }
    return cases;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Engines, OracleTables, testing::ValuesIn(OracleEngines()), CaseName());

TEST_P(OracleTables, AreAnswered) {
    const std::vector<OracleCase> cases = AllCases();
    ASSERT_GT(cases.size(), 100U);
    for (const OracleCase& asked : cases) {
        const Answer given = Ask(Gateway(), asked);
        if (!asked.answer.Admits(given))
            ADD_FAILURE_AT(asked.file.toUtf8().constData(), asked.line)
                << asked.written.toStdString() << "\n  answered: " << given.ToText().toStdString();
    }
}
