#include "hospital/HospitalScripts.h"
#include "ProcedureTree.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString WithoutComments(QString text) {
    return text.remove(QRegularExpression(u"--[^\n]*"_s));
}

/// A text with its string literals emptied, so that only the words of the language are left.
QString WithoutLiterals(const QString& text) {
    return WithoutComments(text).replace(QRegularExpression(u"'(?:[^']|'')*'"_s), u"''"_s);
}

QStringList Captured(const QString& text, const QString& pattern) {
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::CaseInsensitiveOption);
    for (auto it = expression.globalMatch(text); it.hasNext();)
        found.push_back(it.next().captured(1));
    return found;
}

std::vector<Script> Folder(const QString& folder) {
    std::vector<Script> scripts = HospitalScripts();
    std::erase_if(scripts,
                  [&folder](const Script& script) { return !script.name.startsWith(folder + u'/'); });
    return scripts;
}

TEST(Scripts, ComeInRunningOrderAndNoneIsForgotten) {
    QStringList names;
    for (const Script& script : HospitalScripts()) {
        names.push_back(script.name);
        EXPECT_FALSE(script.text.isEmpty()) << script.name.toStdString();
    }
    QStringList files;
    const QDir root(u"" TARVEN_SOURCE_DIR "/hospital"_s);
    for (const QString& folder : {u"schema"_s, u"procedures"_s, u"demo"_s}) {
        QStringList inFolder;
        for (QDirIterator it(root.filePath(folder), {u"*.sql"_s}, QDir::Files, QDirIterator::Subdirectories);
             it.hasNext();)
            inFolder.push_back(root.relativeFilePath(it.next()));
        inFolder.sort();
        files += inFolder;
    }
    EXPECT_EQ(names, files);
}

TEST(Scripts, StructureIsTheScriptsWithoutTheData) {
    EXPECT_EQ(HospitalStructure().size() + Folder(u"demo"_s).size(), HospitalScripts().size());
}

TEST(Scripts, EveryProcedureStandsInAFileOfItsNameInTheFolderOfItsDatabase) {
    for (const Script& script : Folder(u"procedures"_s)) {
        const QStringList path = script.name.split(u'/');
        const QString text = WithoutComments(script.text);
        EXPECT_EQ(Captured(text, u"\\bUSE (\\w+);"_s), QStringList{path[1]});
        EXPECT_EQ(Captured(text, u"CREATE PROCEDURE (\\S+)"_s), QStringList{u"dbo."_s + path[2].chopped(4)});
        EXPECT_TRUE(script.text.startsWith("-- "_L1)) << "no purpose told: " << script.name.toStdString();
    }
}

TEST(Scripts, ProcedureThatWritesMoreThanOnceIsOneTransaction) {
    for (const ProcedureTree& procedure : ProcedureTrees(HospitalStructure())) {
        const std::string name = procedure.FullName().toStdString();
        const QStringList& steps = procedure.steps;
        const auto writes = std::ranges::count_if(procedure.definition.body, [](const Statement& statement) {
            return !TableWritten(statement).isEmpty();
        });
        const bool hasTransaction = writes > 1;
        EXPECT_EQ(steps.first(), u"set nocount"_s) << name;
        EXPECT_EQ(steps.indexOf(u"set xact_abort"_s), hasTransaction ? 1 : -1) << name;
        EXPECT_EQ(steps.count(u"begin transaction"_s), hasTransaction ? 1 : 0) << name;
        EXPECT_EQ(steps.count(u"commit transaction"_s), hasTransaction ? 1 : 0) << name;
        EXPECT_EQ(steps.last() == "commit transaction"_L1, hasTransaction) << name;
        for (const QString& step : steps.mid(0, steps.indexOf(u"begin transaction"_s)))
            EXPECT_TRUE(!hasTransaction || step.startsWith("set"_L1) || step == "if"_L1)
                << name << ": written before it";
    }
}

TEST(Scripts, CancellationsQueueAtTheAccountAndThenAtTheSlip) {
    const auto firstLine = [](const QString& column) {
        return u"UPDATE BILLING..tbPatientCharges SET EntryDate = EntryDate WHERE ChargeID = (SELECT "
               "MIN(f.ChargeID) FROM BILLING..tbPatientCharges AS f WHERE f.%1 = @%1);"_s.arg(column);
    };
    const QString account = firstLine(u"IdNum"_s);
    const QString slip = firstLine(u"RefNum"_s);
    const auto held = [](const QString& procedure) {
        for (const Script& script : Folder(u"procedures"_s))
            if (script.name.endsWith(procedure + u".sql"_s))
                return WithoutComments(script.text)
                    .simplified()
                    .remove(u"@RecordType = 'C' AND "_s)
                    .section(u"BEGIN TRANSACTION; "_s, 1);
        return QString();
    };
    // In this order everywhere, so that none holds what another one waits for.
    for (const QString& procedure : {u"spEarCare_UpdateCharging"_s, u"spStock_AppendStockCard"_s})
        EXPECT_TRUE(held(procedure).startsWith(account + u' ' + slip)) << held(procedure).toStdString();
    EXPECT_TRUE(held(u"spEarCare_ReprintChargeSlip"_s).startsWith(slip));
}

TEST(Scripts, EveryObjectIsNamedWithItsDatabase) {
    const QRegularExpression full(u"^(\\(|\\w+\\.(dbo)?\\.\\w+)"_s);
    for (const QString& folder : {u"procedures"_s, u"demo"_s})
        for (const Script& script : Folder(folder))
            for (const QString& name :
                 Captured(WithoutLiterals(script.text),
                          u"\\b(?:FROM|JOIN|INTO|UPDATE|DELETE FROM|EXEC)\\s+([^\\s,;]+)"_s))
                EXPECT_TRUE(full.match(name).hasMatch())
                    << script.name.toStdString() << ": " << name.toStdString();
}

TEST(Scripts, EveryObjectThatIsNamedExists) {
    QSet<QString> tables;
    for (const Script& script : Folder(u"schema"_s)) {
        const QString text = WithoutComments(script.text);
        const QString database = Captured(text, u"\\bUSE (\\w+);"_s).value(0);
        for (const QString& table : Captured(text, u"CREATE TABLE dbo\\.(\\w+)"_s))
            tables.insert(database + ".."_L1 + table);
    }
    EXPECT_GE(tables.size(), 27);
    for (const QString& folder : {u"procedures"_s, u"demo"_s})
        for (const Script& script : Folder(folder))
            for (const QString& name : Captured(WithoutLiterals(script.text), u"(\\w+\\.\\.\\w+)"_s))
                EXPECT_TRUE(tables.contains(name)) << script.name.toStdString() << ": " << name.toStdString();
}

TEST(Scripts, TablesAndIndexesBelongToTheDatabaseOfTheirFile) {
    for (const Script& script : Folder(u"schema"_s)) {
        const QString text = WithoutComments(script.text);
        EXPECT_EQ(Captured(text, u"\\bUSE (\\w+);"_s), QStringList{script.name.section(u'-', 1).chopped(4)});
        EXPECT_EQ(text.count("CREATE TABLE "_L1), text.count("CREATE TABLE dbo."_L1));
        EXPECT_EQ(text.count(" INDEX "_L1), Captured(text, u" INDEX \\w+ ON (dbo\\.\\w+) \\("_s).size());
    }
}

TEST(Scripts, EveryTextColumnNamesItsCollation) {
    int columns = 0;
    for (const Script& script : Folder(u"schema"_s))
        for (const QString& line : WithoutComments(script.text).split(u'\n')) {
            if (!line.contains(QRegularExpression(u"^    \\w+ n?(var)?char\\("_s)))
                continue;
            EXPECT_TRUE(line.contains(" COLLATE SQL_Latin1_General_CP1_CI_AS "_L1)) << line.toStdString();
            ++columns;
        }
    EXPECT_GT(columns, 100);
}

TEST(Scripts, TextsAreNeverJoinedByPlus) {
    for (const Script& script : Folder(u"procedures"_s))
        EXPECT_FALSE(WithoutLiterals(script.text).contains(QRegularExpression(u"\\+ *''|'' *\\+"_s)))
            << script.name.toStdString();
}

} // namespace
