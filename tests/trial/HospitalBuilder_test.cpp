#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "trial/HospitalBuilder.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct FailingScript {
    std::string name;
    QString text;
    QString failure;
};

class ScriptLine : public testing::TestWithParam<FailingScript> {};

const QString kHead = u"USE X;\nGO\nCREATE TABLE dbo.t (a int NOT NULL);\n"_s;

} // namespace

TEST_P(ScriptLine, IsNamed) {
    const QTemporaryDir folder;
    HospitalEngine engine(folder.filePath(u"h.db"_s), SqliteDatabase::Mode::New);
    engine.Store().Create();
    HospitalBuilder builder(engine);
    EXPECT_EQ(FailureOf([&] {
                  builder.Run({u"schema/a.sql"_s, kHead + GetParam().text});
              }).text,
              GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    Scripts, ScriptLine,
    testing::Values(
        FailingScript{"None", u"DELETE FROM X..t;"_s, u""_s},
        FailingScript{"SyntaxWhereItIs", u"SELECT 1\nAS a,\n,"_s,
                      u"schema/a.sql, line 6: Incorrect syntax near ','."_s},
        FailingScript{"MeaningWhereTheStatementBegins", u"\nDELETE FROM\nX..u;"_s,
                      u"schema/a.sql, line 5: Invalid object name 'X..u'."_s},
        FailingScript{
            "SecondStatementOfALine", u"DELETE FROM X..t; INSERT INTO X..t (a) VALUES ('x');"_s,
            u"schema/a.sql, line 4: Conversion failed when converting the varchar value 'x' to data type "
            "int."_s},
        FailingScript{"BehindGo", u"GO\n\nGO\nDELETE FROM X..t\nWHERE b = 1;"_s,
                      u"schema/a.sql, line 7: Invalid column name 'b'."_s},
        FailingScript{"InsideAProcedure", u"GO\nCREATE PROCEDURE dbo.p AS\nBEGIN\nSELECT b FROM X..t;\nEND"_s,
                      u"schema/a.sql, line 5: Invalid column name 'b'."_s},
        FailingScript{"TableTwice", u"CREATE TABLE dbo.T (b int);"_s,
                      u"schema/a.sql, line 4: There is already an object named 'T' in the database."_s},
        FailingScript{"IndexOfNoColumn", u"CREATE INDEX ix ON dbo.t (b);"_s,
                      u"schema/a.sql, line 4: Invalid column name 'b'."_s}),
    CaseName());

TEST(HospitalBuilderTest, AFullDiskIsNoFaultOfAScript) {
    const QTemporaryDir folder;
    HospitalEngine engine(folder.filePath(u"h.db"_s), SqliteDatabase::Mode::New);
    engine.Store().Create();
    // The file may not grow any more.
    engine.Database().RunForValue(u"PRAGMA max_page_count = 1"_s);
    HospitalBuilder builder(engine);
    const RaisedError failure = FailureOf([&] { builder.Run({u"schema/a.sql"_s, kHead}); });
    EXPECT_EQ(failure.number, 1105);
    EXPECT_TRUE(failure.text.startsWith(u"Could not allocate space"_s)) << failure.text.toStdString();
}
