#include "check/Needs.h"
#include "support/hospital/HospitalTest.h"

#include <QFile>
#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

// What the program needs is read from what it brings; here it is held against the trial hospital that the
// same scripts have made.

namespace {

const Needs& NeedsHere() {
    static const Needs needs = NeedsOfProgram();
    return needs;
}

/// A value of a family as a command writes it.
QString LiteralOf(TypeFamily family) {
    if (family == TypeFamily::Date)
        return u"'11/21/2026'"_s;
    return family == TypeFamily::Text ? u"'I'"_s : u"0"_s;
}

QString CallOf(const NeededProcedure& procedure) {
    QStringList arguments;
    for (const NeededColumn& parameter : procedure.parameters)
        arguments << LiteralOf(parameter.family);
    return procedure.name + u' ' + arguments.join(u',');
}

class NeedsTest : public HospitalTest {};

} // namespace

TEST_F(NeedsTest, ColumnsOfAProcedureAreThoseThatItAnswers) {
    int seen = 0;
    for (const NeededProcedure& procedure : NeedsHere().procedures) {
        if (procedure.answers.isEmpty())
            continue;
        ++seen;
        EXPECT_EQ(Columns(CallOf(procedure)), procedure.answers) << procedure.name.toStdString();
    }
    EXPECT_GT(seen, 20);
}

TEST_F(NeedsTest, ColumnsOfATableAreThoseThatItHas) {
    EXPECT_GT(NeedsHere().tables.size(), 25);
    for (const NeededTable& table : NeedsHere().tables) {
        QStringList columns;
        for (const NeededColumn& column : table.columns)
            columns << column.name;
        EXPECT_EQ(Columns(u"SELECT * FROM "_s + table.name), columns);
    }
}

TEST(Needs, AreNineDatabases) {
    EXPECT_EQ(NeedsHere().databases, (QStringList{u"PASSWORD"_s, u"build_file"_s, u"PATIENT_DATA"_s,
                                                  u"BILLING"_s, u"Clinical_Area"_s, u"RADIOLOGY"_s,
                                                  u"HEMODIALYSIS"_s, u"INVENTORY"_s, u"REPORTS"_s}));
}

TEST(Needs, CountersAreTheColumnsThatARoleMayWrite) {
    const std::pair<QString, QString> assessment(u"billing.tbassessmentnum"_s, u"assessmentnum"_s);
    const std::pair<QString, QString> slip(u"clinical_area.tbearcarechargeslip"_s, u"chargeslip"_s);
    EXPECT_THAT(NeedsHere().Counters(), ElementsAre(assessment, slip));
}

TEST(Needs, OfTheUsersAreNoHashes) {
    EXPECT_TRUE(NeedsHere().Reads(u"password.tbpasswordmain"_s, u"EmployeeID"_s));
    EXPECT_FALSE(NeedsHere().Reads(u"password.tbpasswordmain"_s, u"PasswordHash"_s));
}

TEST(Needs, EveryGrantedObjectStandsInTheScripts) {
    EXPECT_GT(NeedsHere().GrantedProcedures().size(), 25);
    for (const QString& procedure : NeedsHere().GrantedProcedures())
        EXPECT_TRUE(NeedsHere().procedures.contains(procedure)) << procedure.toStdString();
    for (const QString& table : NeedsHere().GrantedTables())
        EXPECT_TRUE(NeedsHere().tables.contains(table)) << table.toStdString();
}

/// Names of tables, in small letters and in their order.
QStringList Sorted(QStringList tables) {
    tables.removeDuplicates();
    tables.sort();
    return tables;
}

// A hospital that has the suite goes by the document.
TEST(Needs, TheTablesThatAreReadDirectlyAreMarkedSoInTheDocument) {
    static const QRegularExpression row(u"^\\| `(tb\\w+)` \\*\\*direct\\*\\* \\|"_s,
                                        QRegularExpression::MultilineOption);
    QFile file(u"" TARVEN_SOURCE_DIR "/docs/hospital.md"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList marked;
    for (auto rows = row.globalMatch(QString::fromUtf8(file.readAll())); rows.hasNext();)
        marked << rows.next().captured(1).toLower();
    QStringList read;
    const RoleRights& rights = NeedsHere().rights;
    for (const NamedRight& right : rights.workstation.keys() + rights.standby.keys()) {
        if (!right.startsWith(u"EXECUTE "_s))
            read << right.section(u' ', 1, 1).section(u'.', 1);
    }
    EXPECT_EQ(Sorted(marked), Sorted(read));
}

TEST(Needs, ParametersHaveTheirKinds) {
    const NeededProcedure& charge =
        *NeedsHere().procedures.constFind(u"clinical_area.spearcare_append_charging"_s);
    ASSERT_EQ(charge.parameters.size(), 15U);
    EXPECT_EQ(charge.parameters[0].name, u"@HospNum"_s);
    EXPECT_EQ(charge.parameters[0].family, TypeFamily::Text);
    EXPECT_EQ(charge.parameters[2].family, TypeFamily::Date);
    EXPECT_EQ(charge.parameters[8].family, TypeFamily::Fixed);
    EXPECT_TRUE(charge.answers.isEmpty());
}
