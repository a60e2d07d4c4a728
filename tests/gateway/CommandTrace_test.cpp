#include "gateway/CommandGateway.h"
#include "gateway/CommandTrace.h"
#include "support/CaseName.h"
#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "support/smallhospital/GatewayTexts.h"
#include "text/RunTimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// Answers with two rows, or with what it is told to raise.
class AnsweringGateway : public CommandGateway {
  public:
    bool Connected() const override { return true; }
    QString ConnectionString() const override { return {}; }
    bool fails = false;
    bool writes = false;

  protected:
    Outcome Run(const QString&) override {
        if (fails)
            throw RunTimeError(245, u"Conversion failed when converting the varchar value 'DELA CRUZ'."_s,
                               u"22018"_s);
        if (writes)
            return {nullptr, 3};
        auto data = std::make_shared<RowData>();
        data->columns = {u"a"_s};
        data->Add(1);
        data->Add(2);
        return {data, 0};
    }
};

class CommandTraceTest : public testing::Test {
  protected:
    void TearDown() override { CommandTrace::SetCurrent(nullptr); }

    void Begin(CommandTrace::Texts texts) {
        mTrace = std::make_unique<CommandTrace>(Path(), texts);
        CommandTrace::SetCurrent(mTrace.get());
    }
    QString Path() const { return mFolder.filePath(u"trace"_s); }
    /// The lines, with how long each took left out.
    QStringList Lines() const {
        static const QRegularExpression taken(u"  \\d+\\.\\d{3} ms  "_s);
        QFile file(Path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QString text = QString::fromUtf8(file.readAll());
        text.replace(taken, u" | "_s);
        return text.split(u'\n', Qt::SkipEmptyParts);
    }

    AnsweringGateway mGateway;

  private:
    QTemporaryDir mFolder;
    std::unique_ptr<CommandTrace> mTrace;
};

} // namespace

TEST_F(CommandTraceTest, HasALineForEachCommandWithoutWhatItSaysOfPatients) {
    const auto clock = FixedClock(*DateTime::FromFields({2026, 11, 21, 14, 2, 3, 4}));
    Begin(CommandTrace::Texts::Masked);
    mGateway.Execute(u"Clinical_Area..spEarCare_GetPatient 'I','DELA CRUZ'"_s);
    mGateway.writes = true;
    mGateway.ExecuteNoResult(u"update t set a = N'ÑIGO'\nwhere b = -12.5 /* MARIA */"_s);
    mGateway.fails = true;
    EXPECT_EQ(FailureOf([this] {
                  mGateway.Open(u"x 'DELA CRUZ'"_s, CursorType::Static, LockType::ReadOnly);
              }).number,
              245);
    EXPECT_EQ(Lines(),
              (QStringList{u"2026-11-21 14:02:03.004 | rows 2  Clinical_Area..spEarCare_GetPatient ?,?"_s,
                           u"2026-11-21 14:02:03.004 | rows 3  update t set a = ? where b = -?"_s,
                           u"2026-11-21 14:02:03.004 | error 245  x ?"_s}));
}

TEST_F(CommandTraceTest, HasWholeTextsWhereTheyAreAskedFor) {
    Begin(CommandTrace::Texts::Whole);
    mGateway.fails = true;
    FailureOf([this] { mGateway.Execute(u"x 'DELA CRUZ'"_s); });
    ASSERT_EQ(Lines().size(), 1);
    EXPECT_TRUE(Lines().front().endsWith(
        u"error 245 Conversion failed when converting the varchar value 'DELA CRUZ'.  x 'DELA CRUZ'"_s))
        << Lines().front().toStdString();
}

TEST_F(CommandTraceTest, ARowThatIsWrittenBackHasItsLine) {
    auto data = std::make_shared<RowData>();
    Begin(CommandTrace::Texts::Masked);
    RowSet rows =
        mGateway.Open(u"select a from b..c where a = 'X'"_s, CursorType::Dynamic, LockType::Optimistic);
    rows.SetField(u"a"_s, 5);
    mGateway.writes = true;
    FailureOf([&rows] { rows.Update(); });
    ASSERT_EQ(Lines().size(), 2);
    EXPECT_TRUE(Lines().back().contains(u"rows 3  UPDATE"_s, Qt::CaseInsensitive))
        << Lines().back().toStdString();
}

TEST_F(CommandTraceTest, GoesOnWithTheFileAndKeepsItTheOwnersAlone) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("before\n");
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    Begin(CommandTrace::Texts::Masked);
    mGateway.Execute(u"x"_s);
    EXPECT_EQ(Lines().size(), 2);
    struct stat state = {};
    ASSERT_EQ(stat(QFile::encodeName(Path()).constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, 0600U);
}

TEST_F(CommandTraceTest, WhatIsNoPlainFileIsRefusedByItsName) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QFile::link(Path(), folder.filePath(u"link"_s)));
    for (const QString& path :
         {folder.path(), folder.filePath(u"no/trace"_s), folder.filePath(u"link"_s), u"/dev/null"_s}) {
        const RaisedError failure = FailureOf([&path] { CommandTrace(path, CommandTrace::Texts::Masked); });
        EXPECT_EQ(failure.number, RunTime::kPathFileAccess);
        EXPECT_TRUE(failure.text.contains(path)) << failure.text.toStdString();
    }
}

TEST_F(CommandTraceTest, TheEnvironmentNamesIt) {
    EXPECT_EQ(CommandTrace::OfEnvironment(), nullptr);
    qputenv("TARVEN_TRACE", QFile::encodeName(Path()));
    EXPECT_NE(CommandTrace::OfEnvironment(), nullptr);
    qunsetenv("TARVEN_TRACE");
    EXPECT_TRUE(QFileInfo::exists(Path()));
}

struct Masked {
    const char* name;
    QString command;
    QString masked;
};

class MaskedCommandTest : public testing::TestWithParam<Masked> {};

TEST_P(MaskedCommandTest, KeepsItsShapeAlone) {
    EXPECT_EQ(MaskedCommand(GetParam().command), GetParam().masked);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, MaskedCommandTest,
    testing::Values(Masked{"Call", u"CLINICAL_AREA..sp  'a''b','1', NULL"_s,
                           u"CLINICAL_AREA..sp ?,?, NULL"_s},
                    Masked{"Condition", u"select * from t where idnum = '1'and n='H1'"_s,
                           u"select * from t where idnum = ?and n=?"_s},
                    Masked{"Apostrophe", u"sp 'O'BRIEN SMITH','B'"_s, u"sp ?..."_s},
                    Masked{"TwoApostrophes", u"sp 'O'BRIEN','O'BRIEN'"_s, u"sp ?..."_s},
                    Masked{"ApostropheAndBlank", u"sp 'I','D' ANGELO'"_s, u"sp ?..."_s},
                    Masked{"TwoApostrophesAndBlanks", u"sp 'D' ANGELO','O' BRIEN'"_s, u"sp ? ..."_s},
                    Masked{"ApostropheAndHyphen", u"sp 'O'-BRIEN','O'-BRIEN'"_s, u"sp ?..."_s},
                    Masked{"ApostropheAndAWordOfTheLanguage", u"sp 'O' AND MARIA'"_s, u"sp ? ..."_s},
                    Masked{"Case", u"select case when a = 'x' then 'b' else 'c' end, 'd' + e from t"_s,
                           u"select case when a = ? then ? else ? end, ? + e from t"_s},
                    Masked{"OpenText", u"sp 'BRIEN"_s, u"sp ..."_s},
                    Masked{"Comment", u"select 1 -- DELA CRUZ\n+ 2"_s, u"select ? + ?"_s},
                    Masked{"OpenComment", u"select 1 /* DELA CRUZ"_s, u"select ? ..."_s}),
    CaseName());
