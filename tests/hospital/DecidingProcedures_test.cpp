#include "gateway/SqlLexer.h"
#include "hospital/HospitalScripts.h"
#include "ProcedureTree.h"
#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "tsql/Catalog.h"
#include "tsql/ScriptParser.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// A procedure that decides by what it reads holds the row that it decides about before it reads. The trial
// hospital has one writer at a time and would hide a procedure that does not, so the texts are looked at.

namespace {

/// Tables that are written while the hospital is at work: by a procedure, or by a plain statement that the
/// users' role may send.
QSet<QString> WorkingTables(const std::vector<ProcedureTree>& procedures) {
    QSet<QString> tables;
    for (const ProcedureTree& procedure : procedures)
        for (const Statement& statement : procedure.definition.body)
            if (const QString table = TableWritten(statement); !table.isEmpty())
                tables << table;
    QFile rights(QStringLiteral(TARVEN_SOURCE_DIR "/tools/sqlserver/rights.sql"));
    EXPECT_TRUE(rights.open(QIODevice::ReadOnly));
    static const QRegularExpression line(
        u"^USE (\\w+);|^GRANT .*(?:UPDATE|DELETE|INSERT).* ON dbo\\.(\\w+) TO"_s,
        QRegularExpression::MultilineOption);
    QString database;
    for (auto found = line.globalMatch(QString::fromUtf8(rights.readAll())); found.hasNext();) {
        const auto match = found.next();
        if (match.hasCaptured(2))
            tables << TableKey(database, match.captured(2));
        else
            database = match.captured(1);
    }
    return tables;
}

/// Columns that an index or a key holds, as "table.column".
QSet<QString> IndexedColumns() {
    QSet<QString> columns;
    QString database;
    const auto add = [&columns, &database](const QString& table, const QString& column) {
        columns << TableKey(database, table) + u'.' + column.toCaseFolded();
    };
    for (const Script& script : HospitalStructure()) {
        if (!script.name.startsWith("schema/"_L1))
            continue;
        for (const Batch& batch : SplitBatches(script.text)) {
            TokenCursor cursor(batch.text);
            ScriptParser parser(cursor);
            while (!parser.AtEnd()) {
                const ScriptStatement statement = parser.ParseNext();
                if (const auto* use = std::get_if<UseDatabase>(&statement))
                    database = use->database;
                if (const auto* index = std::get_if<IndexDefinition>(&statement))
                    for (const IndexedColumn& column : index->columns)
                        add(index->table.object, column.name);
                if (const auto* table = std::get_if<TableDefinition>(&statement))
                    for (const KeyDefinition& key : table->keys)
                        for (const QString& column : key.columns)
                            add(table->name.object, column);
            }
        }
    }
    return columns;
}

/// The columns that an UPDATE sets to themselves.
QStringList TouchedColumns(const Statement& statement) {
    QStringList columns;
    if (const auto* update = std::get_if<UpdateStatement>(&statement))
        for (const Assignment& assignment : update->assignments)
            if (const auto* value = assignment.value->As<ColumnNode>();
                value && value->path.last().compare(assignment.column, Qt::CaseInsensitive) == 0)
                columns << assignment.column.toCaseFolded();
    return columns;
}

/// Whether a statement holds rows and changes nothing.
bool IsTouch(const Statement& statement) {
    const auto* update = std::get_if<UpdateStatement>(&statement);
    return update && TouchedColumns(statement).size() == qsizetype(update->assignments.size());
}

/// What is wrong with the way in which a procedure decides; nothing for one that decides by no working table.
class DecisionRule {
  public:
    explicit DecisionRule(const std::vector<ProcedureTree>& procedures)
        : mWorkingTables(WorkingTables(procedures))
        , mIndexedColumns(IndexedColumns()) {}

    /// The working tables by which what the procedure writes is decided.
    QSet<QString> Decides(const ProcedureTree& procedure) const {
        QSet<QString> tables;
        if (!procedure.Writes())
            return tables;
        for (const Statement& statement : procedure.definition.body)
            tables += TablesRead(statement) & mWorkingTables;
        return tables;
    }

    QStringList Complaints(const ProcedureTree& procedure) const {
        const QSet<QString> decides = Decides(procedure);
        if (decides.isEmpty())
            return {};
        const auto& body = procedure.definition.body;
        const auto first = std::ranges::find_if(body, [this](const Statement& s) { return IsOfData(s); });
        return OfHolding(*first, decides) + OfTouching(body) + OfFrames(procedure, first - body.begin());
    }

  private:
    /// Whether the statement reads or writes a working table. A refusal that looks at the arguments alone
    /// does not.
    bool IsOfData(const Statement& statement) const {
        return !std::holds_alternative<RefusalStatement>(statement) ||
               TablesRead(statement).intersects(mWorkingTables);
    }

    QStringList OfHolding(const Statement& first, const QSet<QString>& decides) const {
        const bool holds =
            std::holds_alternative<UpdateStatement>(first) || std::holds_alternative<DeleteStatement>(first);
        if (!holds || (!IsTouch(first) && TablesRead(first).intersects(mWorkingTables)))
            return {u"reads before it holds"_s};
        return decides.contains(TableWritten(first)) ? QStringList() : QStringList{u"holds another table"_s};
    }
    QStringList OfTouching(const std::vector<Statement>& body) const {
        QStringList complaints;
        for (const Statement& statement : body)
            for (const QString& column : TouchedColumns(statement))
                if (mIndexedColumns.contains(TableWritten(statement) + u'.' + column))
                    complaints << u"touches an indexed column"_s;
        return complaints;
    }
    /// `first` is the place in the body of the statement that has to hold.
    static QStringList OfFrames(const ProcedureTree& procedure, qsizetype first) {
        const QStringList& steps = procedure.steps;
        const qsizetype held = StepOf(procedure, first);
        const qsizetype begin = steps.indexOf(u"begin transaction"_s);
        const qsizetype abort = steps.indexOf(u"set xact_abort"_s);
        QStringList complaints;
        if (begin < 0 || begin > held)
            complaints << u"holds before its transaction begins"_s;
        if (abort < 0 || abort > held)
            complaints << u"lets a failure leave half of it"_s;
        if (steps.last() != "commit transaction"_L1 || steps.count(u"commit transaction"_s) != 1)
            complaints << u"does not end with its transaction"_s;
        return complaints;
    }
    /// The place among the steps of a statement of the body. Frames have two words.
    static qsizetype StepOf(const ProcedureTree& procedure, qsizetype statement) {
        qsizetype step = 0;
        for (qsizetype seen = 0; procedure.steps[step].contains(u' ') || seen++ < statement; ++step) {
        }
        return step;
    }

    QSet<QString> mWorkingTables;
    QSet<QString> mIndexedColumns;
};

class DecidingProcedures : public testing::Test {
  protected:
    std::vector<ProcedureTree> mProcedures = ProcedureTrees(HospitalStructure());
    DecisionRule mRule{mProcedures};
};

} // namespace

TEST_F(DecidingProcedures, HoldWhatTheyDecideAboutBeforeTheyReadIt) {
    for (const ProcedureTree& procedure : mProcedures)
        EXPECT_EQ(mRule.Complaints(procedure), QStringList()) << procedure.FullName().toStdString();
}

TEST_F(DecidingProcedures, AreFoundByWhatTheyRead) {
    QStringList deciding;
    for (const ProcedureTree& procedure : mProcedures)
        if (!mRule.Decides(procedure).isEmpty())
            deciding << procedure.definition.name.object;
    // Those that count, copy or number; one that only prints a line does not decide.
    for (const QString& name :
         {u"spEarCare_Append_Charging"_s, u"spEarCare_UpdateCharging"_s, u"spStock_AppendStockCard"_s,
          u"spEarCare_AssessRevoke"_s, u"spEarCare_ReprintChargeSlip"_s, u"spEarCare_Add_CashPatient"_s,
          u"spAddCashPatient"_s, u"spGlobal_UpdateWalkIn"_s, u"spKidney_SaveHemodialysisTreatMentRecord"_s})
        EXPECT_TRUE(deciding.contains(name)) << name.toStdString();
    for (const QString& name :
         {u"spEarCare_Assessment"_s, u"spRadio_RevokeNurseRequest"_s, u"spEarCare_SaveChargePrint"_s})
        EXPECT_FALSE(deciding.contains(name)) << name.toStdString();
}

namespace {

/// A text of the server's language in one form, whatever its blanks and comments.
QString InOneForm(const QString& text) {
    QStringList words;
    for (const Token& token : LexSql(text))
        words << token.written.toString();
    return words.join(u' ').trimmed();
}

/// The statements of a procedure that hold rows of accounts and change nothing, in their order.
QStringList TouchesOfAccounts(const QString& procedure) {
    QStringList touches;
    for (const Script& script : HospitalStructure())
        if (script.name.endsWith(u'/' + procedure + u".sql"_s))
            for (const QString& statement : InOneForm(script.text).split(u" ; "_s))
                if (statement.startsWith(InOneForm(u"UPDATE BILLING..tbPatientCharges SET"_s)))
                    touches << statement;
    return touches;
}

} // namespace

// Two that hold the same rows in another order would wait for each other for ever.
TEST_F(DecidingProcedures, BothCancellationsQueueAtTheAccountAndThenAtTheSlip) {
    const QString touch =
        u"UPDATE BILLING..tbPatientCharges SET EntryDate = EntryDate WHERE %1 ChargeID = (SELECT "
        "MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.%2)"_s;
    const auto inOrder = [&touch](const QString& when) {
        return QStringList{InOneForm(touch.arg(when, u"IdNum = @IdNum"_s)),
                           InOneForm(touch.arg(when, u"RefNum = @RefNum"_s))};
    };
    EXPECT_EQ(TouchesOfAccounts(u"spEarCare_UpdateCharging"_s), inOrder(QString()));
    EXPECT_EQ(TouchesOfAccounts(u"spStock_AppendStockCard"_s), inOrder(u"@RecordType = 'C' AND"_s));
}

namespace {

struct RuleCase {
    const char* name;
    /// The statements between BEGIN and END.
    QString body;
    QString complaints;
};

class DecisionRuleCases : public testing::TestWithParam<RuleCase> {};

const QString kTouch = u"UPDATE BILLING..tbPatientCharges SET EntryDate = EntryDate WHERE ChargeID = 1; "_s;
const QString kDecide = u"INSERT INTO BILLING..tbAuditTrail (AuditDate, Event) SELECT GETDATE(), 'X' FROM "
                        "BILLING..tbPatientCharges AS c WHERE c.ChargeID = 1; "_s;
const QString kBegin = u"SET XACT_ABORT ON; BEGIN TRANSACTION; "_s;
const QString kCommit = u"COMMIT TRANSACTION; "_s;
const QString kBare = u"lets a failure leave half of it; does not end with its transaction"_s;

} // namespace

TEST_P(DecisionRuleCases, AreJudged) {
    const DecisionRule rule(ProcedureTrees(HospitalStructure()));
    const ProcedureTree procedure = ReadProcedure(
        u"USE BILLING;\nGO\nCREATE PROCEDURE dbo.spNew @A int AS BEGIN SET NOCOUNT ON; %1 END\nGO\n"_s.arg(
            GetParam().body));
    EXPECT_EQ(rule.Complaints(procedure).join(u"; "_s), GetParam().complaints);
}

INSTANTIATE_TEST_SUITE_P(
    Procedures, DecisionRuleCases,
    testing::Values(
        RuleCase{"Good", kBegin + kTouch + kDecide + kCommit, u""_s},
        RuleCase{"RefusesByItsArgumentsFirst",
                 u"SET XACT_ABORT ON; IF @A = 1 THROW 50001, 'No.', 1; BEGIN TRANSACTION; "_s + kTouch +
                     kDecide + kCommit,
                 u""_s},
        RuleCase{"DecidesByNothing",
                 u"INSERT INTO BILLING..tbAuditTrail (AuditDate, Event) VALUES (GETDATE(), 'X');"_s, u""_s},
        RuleCase{"ReadsWhatOnlyTheHospitalWrites",
                 u"INSERT INTO BILLING..tbAuditTrail (AuditDate, Event) SELECT GETDATE(), r.Revenue FROM "
                 "build_file..tbCoRevenue AS r;"_s,
                 u""_s},
        RuleCase{"OnlyReads", u"SELECT c.Amount FROM BILLING..tbPatientCharges AS c;"_s, u""_s},
        RuleCase{
            "TakesANumber",
            kBegin +
                u"UPDATE PATIENT_DATA..tbWalkInNum SET WalkInNum = WalkInNum + 1; INSERT INTO "
                "PATIENT_DATA..tbwalkin (HospNum) SELECT n.WalkInNum FROM PATIENT_DATA..tbWalkInNum AS n; "_s +
                kCommit,
            u""_s},
        RuleCase{"CountsAndInserts", kBegin + kDecide + kCommit, u"reads before it holds"_s},
        RuleCase{"HoldsTooLate", kBegin + kDecide + kTouch + kCommit, u"reads before it holds"_s},
        RuleCase{"SelectsFirst",
                 kBegin + u"SELECT c.Amount FROM BILLING..tbPatientCharges AS c; "_s + kTouch + kDecide +
                     kCommit,
                 u"reads before it holds"_s},
        RuleCase{
            "RefusesByWhatItReads",
            kBegin +
                u"IF EXISTS (SELECT c.ChargeID FROM BILLING..tbPatientCharges AS c) THROW 50009, 'No.', 1; "_s +
                kTouch + kCommit,
            u"reads before it holds"_s},
        RuleCase{"DecidesInASubquery",
                 kBegin +
                     u"INSERT INTO BILLING..tbAuditTrail (AuditDate, Event, Times) VALUES (GETDATE(), 'X', "
                     u"(SELECT "
                     "COUNT(*) FROM BILLING..tbAuditTrail AS a)); "_s +
                     kCommit,
                 u"reads before it holds"_s},
        RuleCase{
            "DecidesInTheConditionOfAnUpdateOfTheSameTable",
            kBegin +
                u"UPDATE BILLING..tbPatientCharges SET Amount = 0 WHERE ChargeID = (SELECT MIN(c.ChargeID) "
                "FROM BILLING..tbPatientCharges AS c); "_s +
                kCommit,
            u"reads before it holds"_s},
        RuleCase{"DecidesInTheConditionOfAnUpdate",
                 kBegin +
                     u"UPDATE BILLING..tbCashAssessment SET Amount = 0 WHERE EXISTS (SELECT c.ChargeID FROM "
                     "BILLING..tbPatientCharges AS c); "_s +
                     kCommit,
                 u"reads before it holds"_s},
        RuleCase{"HoldsAnotherTable",
                 kBegin +
                     u"UPDATE BILLING..tbCashAssessment SET DeptCode = DeptCode WHERE AssessNum = 1; "_s +
                     kDecide + kCommit,
                 u"holds another table"_s},
        RuleCase{"TouchesAnIndexedColumn",
                 kBegin + u"UPDATE BILLING..tbPatientCharges SET RefNum = RefNum WHERE ChargeID = 1; "_s +
                     kDecide + kCommit,
                 u"touches an indexed column"_s},
        RuleCase{"TouchesAKey",
                 kBegin + u"UPDATE BILLING..tbPatientCharges SET ChargeID = ChargeID WHERE ChargeID = 1; "_s +
                     kDecide + kCommit,
                 u"touches an indexed column"_s},
        RuleCase{"WithoutATransaction", kTouch + kDecide, u"holds before its transaction begins; "_s + kBare},
        RuleCase{"BeginsTooLate",
                 u"SET XACT_ABORT ON; "_s + kTouch + u"BEGIN TRANSACTION; "_s + kDecide + kCommit,
                 u"holds before its transaction begins"_s},
        RuleCase{"GoesOnAfterAFailure", u"BEGIN TRANSACTION; "_s + kTouch + kDecide + kCommit,
                 u"lets a failure leave half of it"_s},
        RuleCase{"NeverCommits", kBegin + kTouch + kDecide, u"does not end with its transaction"_s},
        RuleCase{"CommitsBeforeItDecides", kBegin + kTouch + kCommit + kDecide,
                 u"does not end with its transaction"_s}),
    CaseName());
