#include "hospital/HospitalScripts.h"
#include "ProcedureTree.h"
#include "support/CaseName.h"
#include "support/hospital/HospitalTest.h"

#include <QMap>
#include <QProcess>

#include <algorithm>

using namespace Qt::StringLiterals;

// Nothing escapes what a clerk types into a command text, so the procedures see to it themselves that nobody
// acts in another one's name.

namespace {

constexpr int kNobody = 50001;
constexpr int kAnother = 50002;
constexpr int kWrongKind = 50003;
constexpr int kWrongDepartment = 50004;
constexpr int kGivesBack = 50005;

class InWhoseName : public HospitalTest {
  protected:
    InWhoseName() {
        // The first write of all marks the hospital as one at work.
        Run(u"UPDATE BILLING..tbAssessmentNum SET AssessmentNum = AssessmentNum"_s);
    }
    /// Every byte of the hospital, read in a process that has no lock to lose.
    QByteArray Everything() const {
        QProcess reader;
        reader.start(u"cat"_s, {Path(), Path() + u"-wal"_s});
        EXPECT_TRUE(reader.waitForFinished());
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
        return reader.readAllStandardOutput();
    }
    /// The number with which a command of that user is refused; 0 for one that is not. What is refused
    /// changes nothing.
    int Refusal(const QString& user, const QString& command) {
        const QByteArray before = Everything();
        try {
            RunAs(user, command);
        } catch (const RunTimeError& error) {
            EXPECT_EQ(Everything(), before) << command.toStdString();
            return error.Number();
        }
        EXPECT_NE(Everything(), before) << "nothing would show";
        return 0;
    }
};

/// A call of the procedure with an empty text for each argument but the named ones.
QString EmptyCall(const ProcedureTree& procedure, const QMap<QString, QString>& values = {}) {
    QStringList arguments;
    for (const ParameterDefinition& parameter : procedure.definition.parameters)
        arguments << parameter.name + u" = "_s + values.value(parameter.name.toLower(), u"''"_s);
    return u"EXEC "_s + procedure.FullName() + u' ' + arguments.join(u", "_s);
}

bool TellsUser(const ProcedureTree& procedure) {
    return std::ranges::any_of(procedure.definition.parameters, [](const ParameterDefinition& parameter) {
        return parameter.name.compare("@UserID"_L1, Qt::CaseInsensitive) == 0;
    });
}

/// What an INSERT puts into one of the columns that it names.
const Expression& Inserted(const InsertStatement& insert, size_t column) {
    if (const auto* rows = std::get_if<ValueRows>(&insert.source))
        return *rows->front()[column];
    const Query& query = std::get<Query>(insert.source);
    return *std::get<SelectedValue>(query.cores[0].items[column]).value;
}

std::vector<ProcedureTree> WritingProcedures() {
    std::vector<ProcedureTree> procedures = ProcedureTrees(HospitalStructure());
    std::erase_if(procedures, [](const ProcedureTree& procedure) { return !procedure.Writes(); });
    return procedures;
}

} // namespace

TEST_F(InWhoseName, NobodyWritesAnything) {
    const auto procedures = WritingProcedures();
    EXPECT_GT(procedures.size(), 12U);
    for (const ProcedureTree& procedure : procedures)
        EXPECT_EQ(Refusal(u""_s, EmptyCall(procedure)), kNobody) << procedure.FullName().toStdString();
}

TEST_F(InWhoseName, NobodyWritesInAnothersName) {
    int told = 0;
    for (const ProcedureTree& procedure : WritingProcedures()) {
        if (!TellsUser(procedure))
            continue;
        ++told;
        for (const QString& another : {u"'ADMIN'"_s, u"'NURS'"_s, u"'NURSES'"_s, u"'ÑURSE'"_s})
            EXPECT_EQ(Refusal(u"NURSE"_s, EmptyCall(procedure, {{u"@userid"_s, another}})), kAnother)
                << procedure.FullName().toStdString() << another.toStdString();
    }
    EXPECT_GE(told, 7);
}

TEST_F(InWhoseName, WhatIsStoredIsTheUserWhoIsSignedOn) {
    // What a procedure is told about its user goes into no statement that writes, and each column that tells
    // a user gets the one who is signed on, or what another row has in it.
    int columns = 0;
    const auto check = [&columns](const QString& column, const Expression& value, const std::string& where) {
        if (column.compare("UserID"_L1, Qt::CaseInsensitive) != 0 && !column.endsWith("By"_L1))
            return;
        ++columns;
        const auto* call = value.As<CallNode>();
        const auto* other = value.As<ColumnNode>();
        const bool isSession = call && call->name == "SUSER_SNAME"_L1;
        const bool isCopy = other && other->path.last().compare(column, Qt::CaseInsensitive) == 0;
        EXPECT_TRUE(isSession || isCopy) << where << ": " << column.toStdString();
    };
    for (const ProcedureTree& procedure : WritingProcedures()) {
        const std::string name = procedure.FullName().toStdString();
        for (const Statement& statement : procedure.definition.body) {
            if (TableWritten(statement).isEmpty())
                continue;
            VisitExpressions(statement, [&name](const Expression& expression) {
                const auto* parameter = expression.As<ParameterNode>();
                EXPECT_FALSE(parameter && parameter->name.toLower() == u"@userid"_s) << name;
            });
            if (const auto* update = std::get_if<UpdateStatement>(&statement))
                for (const Assignment& assignment : update->assignments)
                    check(assignment.column, *assignment.value, name);
            const auto* insert = std::get_if<InsertStatement>(&statement);
            for (qsizetype i = 0; insert && i < insert->columns.size(); ++i)
                check(insert->columns[i], Inserted(*insert, size_t(i)), name);
        }
    }
    EXPECT_GT(columns, 15);
}

TEST_F(InWhoseName, RefusalsOfOneKindHaveOneNumberAndOneText) {
    QMap<int, QString> texts;
    for (const ProcedureTree& procedure : ProcedureTrees(HospitalStructure()))
        for (const Statement& statement : procedure.definition.body)
            if (const auto* refusal = std::get_if<RefusalStatement>(&statement)) {
                EXPECT_EQ(texts.value(refusal->number, refusal->text), refusal->text)
                    << procedure.FullName().toStdString();
                texts[refusal->number] = refusal->text;
            }
    EXPECT_EQ(texts,
              (QMap<int, QString>{
                  {kNobody, u"Nobody is signed on, so nothing was recorded. Sign on and try again."_s},
                  {kAnother,
                   u"The entry names another user than the one who is signed on. Nothing was recorded."_s},
                  {kWrongKind, u"The entry is of a kind that is not recorded here. Nothing was recorded."_s},
                  {kWrongDepartment, u"The entry names another department. Nothing was recorded."_s},
                  {kGivesBack, u"Only a cancellation gives something back. Nothing was recorded."_s}}));
}

namespace {

struct NameCase {
    const char* name;
    QString told;
};

class OwnName : public InWhoseName, public testing::WithParamInterface<NameCase> {};

} // namespace

TEST_P(OwnName, IsComparedAsTheServerCompares) {
    EXPECT_EQ(Refusal(u"Nurse"_s,
                      u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026','MD','D',"
                      "'D003','', 'H9001C','1500','%1','W201','','', 'I','FEE'"_s.arg(GetParam().told)),
              0);
    EXPECT_EQ(Cell(u"SELECT UserID FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C'"_s), u"Nurse"_s);
}

INSTANTIATE_TEST_SUITE_P(Written, OwnName,
                         testing::Values(NameCase{"AsItIs", u"Nurse"_s}, NameCase{"InCapitals", u"NURSE"_s},
                                         NameCase{"WithBlanks", u"nurse   "_s}),
                         CaseName());

namespace {

struct Attack {
    const char* name;
    QString command;
    int refusal;
};

/// Posting a doctor's fee, with that text typed as its amount.
QString Fee(const QString& typed) {
    return u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026 10:15:07 "
           u"AM','MD','D','D003','', "
           "'H9001C','"_s +
           typed + u"','NURSE','W201','D005','SANTOS, EMMANUEL CRUZ', 'I','(PF) DR. CASTAÑEDA, LUIS'"_s;
}

/// Cancelling a treatment, with that text in place of the user and of all behind him.
QString Reversal(const QString& typed) {
    return u"Clinical_ARea..spEarCare_UpdateCharging '100050','700124','HC001','2800','1','11/21/2026 "
           u"10:20:00 AM',"
           "'HC',"_s +
           typed;
}

/// A movement of stock, with that text in place of the quantity and of all behind it.
QString Movement(const QString& typed) {
    return u"INVENTORY..spStock_AppendStockCard '100050', '700124', 'M0002', '11/21/2026 10:20:00 AM', 'H9001C', "_s +
           typed;
}

QString Assessment(const QString& departmentAndUser) {
    return u"Clinical_Area..spEarCare_Assessment '9001','ZZTEST, ANA','HC001','HC','1','-100',"_s +
           departmentAndUser + u",'W000003','','D001',''"_s;
}

/// A treatment record with that text in one of its fields.
QString Record(int field, const QString& typed) {
    QStringList fields(203);
    fields[field] = typed;
    return Call(u"Hemodialysis..spKidney_SaveHemodialysisTreatMentRecord"_s, fields);
}

class Attacks : public InWhoseName, public testing::WithParamInterface<Attack> {
  protected:
    void SetUp() override {
        // There is something to take back, and in the name of somebody who may.
        Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026','HC','D','HC001','1', "
            u"'H9001C',"
            "'2800','NURSE','W201','','', 'I','HEMODIALYSIS'"_s);
        Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026','HB','D','M0002','2', "
            u"'H9001C',"
            "'2034','NURSE','W201','','', 'I','EPOETIN'"_s);
    }
};

constexpr int kUserIdField = 7;

} // namespace

TEST_P(Attacks, AreRefusedAndChangeNothing) {
    EXPECT_EQ(Refusal(u"NURSE"_s, GetParam().command), GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Attacks,
    testing::Values(
        Attack{"CreditInAnothersNameByPosition", Fee(u"-5000','ADMIN','W201','D005','', 'I','FEE'--"_s),
               kAnother},
        Attack{"CreditInAnothersNameByNames",
               Fee(u"-5000',@UserID='ADMIN',@RoomID='W201',@DoctorID='',@DoctorName='',@PatientType='I',"
                   "@Description='FEE'--"_s),
               kAnother},
        Attack{
            "CreditInAnothersNameByNamesAlone",
            u"Clinical_Area..spEarCare_Append_Charging @UserID='ADMIN',@Amount='-5000',@HospNum='100050',"
            "@IdNum='700124',@TransDate='11/21/"
            "2026',@RevenueID='MD',@RecordType='D',@ItemID='D003',@Quantity='',"
            "@RefNum='H7777C',@RoomID='',@DoctorID='',@DoctorName='',@PatientType='I',@Description='FEE'"_s,
            kAnother},
        Attack{"ChargeInNobodysName", Fee(u"1500','','W201','','', 'I','FEE'--"_s), kAnother},
        Attack{"ChargeInTheNameOfNull", Fee(u"1500',NULL,'W201','','', 'I','FEE'--"_s), kAnother},
        Attack{
            "ChargeThatIsAReversal",
            u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026','HC','C','HC001','-1', "
            "'H9001C','-2800','NURSE','W201','','', 'I','HEMODIALYSIS'"_s,
            kWrongKind},
        Attack{"ChargeOfNoKind",
               u"Clinical_Area..spEarCare_Append_Charging "
               u"'100050','700124','11/21/2026','HC',NULL,'HC001','-1', "
               "'H9001C','-2800','NURSE','W201','','', 'I','HEMODIALYSIS'"_s,
               kWrongKind},
        Attack{"ReversalInAnothersName", Reversal(u"'ADMIN','I','C','W201','H9001C',''"_s), kAnother},
        Attack{
            "ReversalInAnothersNameByNames",
            Reversal(u"@UserID='ADMIN',@PatientType='I',@RecordType='C',@RoomID='W201',@RefNum='H9001C'"_s),
            kAnother},
        Attack{"ReversalInAnothersNameByATail",
               Reversal(u"'ADMIN','I','C','W201','H9001C'--','NURSE','I','C'"_s), kAnother},
        Attack{"ReversalThatIsACharge", Reversal(u"'NURSE','I','D','W201','H9001C',''"_s), kWrongKind},
        Attack{"ReversalOfAnUnknownKind", Reversal(u"'NURSE','I','X','W201','H9001C',''"_s), kWrongKind},
        Attack{"ReversalOfNoKind", Reversal(u"'NURSE','I','','W201','H9001C',''"_s), kWrongKind},
        Attack{"ReversalOfTheKindNull", Reversal(u"'NURSE','I',NULL,'W201','H9001C',''"_s), kWrongKind},
        Attack{"StockTakenBackInAnothersName", Movement(u"2, -2034, 'ADMIN', '1', 'W201', 'C', 'I'"_s),
               kAnother},
        Attack{"StockIssuedInAnothersName", Movement(u"2, 2034, 'ADMIN'"_s), kAnother},
        Attack{"DeliveryThatNeverCame", Movement(u"1000, 0, 'NURSE', '', '', 'R', ''"_s), kWrongKind},
        Attack{"BalanceBroughtForward", Movement(u"1000, 0, 'NURSE', '', '', 'B', ''"_s), kWrongKind},
        Attack{"IssueByItsLetter", Movement(u"-1000, 0, 'NURSE', '', '', 'I', ''"_s), kWrongKind},
        Attack{"MovementOfTheKindNull", Movement(u"2, 2034, 'NURSE', '', '', NULL, ''"_s), kWrongKind},
        Attack{"IssueThatGivesStockBack", Movement(u"-1000, 0, 'NURSE'"_s), kGivesBack},
        Attack{"IssueThatGivesMoneyBack", Movement(u"1, -1000, 'NURSE'"_s), kGivesBack},
        Attack{"ChargeThatGivesMoneyBack", Fee(u"-5000"_s), kGivesBack},
        Attack{"ChargeThatGivesACentavoBack", Fee(u"-0.01"_s), kGivesBack},
        Attack{"ChargeThatGivesStockBack",
               u"Clinical_Area..spEarCare_Append_Charging '100050','700124','11/21/2026','HB','D','M0002',"
               "'-2', 'H9001C','2034','NURSE','W201','','', 'I','EPOETIN'"_s,
               kGivesBack},
        Attack{"AssessmentThatGivesMoneyBack", Assessment(u"'HC','NURSE'"_s), kGivesBack},
        Attack{"AssessmentOfLessThanNothing",
               u"Clinical_Area..spEarCare_Assessment '9001','ZZTEST, ANA','HC001','HC','-1','100','HC',"
               "'NURSE','W000003','','D001',''"_s,
               kGivesBack},
        Attack{"AssessmentInAnothersName", Assessment(u"'HC','ADMIN'"_s), kAnother},
        Attack{"AssessmentOfAnotherDepartment", Assessment(u"'LB','NURSE'"_s), kWrongDepartment},
        Attack{"AssessmentOfNoDepartment", Assessment(u"NULL,'NURSE'"_s), kWrongDepartment},
        Attack{
            "SlipsCopyInAnothersName",
            u"Clinical_Area..spEarCare_GlobalDumpChargeSlip 'HC001','HEMODIALYSIS','1','1','1','ADMIN'--','NURSE'"_s,
            kAnother},
        Attack{"RequestRevokedInAnothersName",
               u"RADIOLOGY..spRadio_RevokeNurseRequest '1','ADMIN'--','NURSE'"_s, kAnother},
        Attack{"RequestRevokedInNobodysName", u"RADIOLOGY..spRadio_RevokeNurseRequest '1',NULL"_s, kAnother},
        Attack{"TreatmentRecordedInAnothersName", Record(kUserIdField, u"ADMIN"_s), kAnother},
        Attack{"TreatmentRecordedInAnothersNameByATail",
               Record(kUserIdField - 1, u"11/21/2026','ADMIN"_s + QString(u"','"_s).repeated(195) + u"'--"_s),
               kAnother}),
    CaseName());
