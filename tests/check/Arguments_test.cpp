#include "check/Arguments.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

Arguments Read(const QStringList& words) {
    return ReadArguments(QStringList{u"tarven-check"_s} + words);
}

QString RefusalOf(const QStringList& words) {
    try {
        Read(words);
    } catch (const ArgumentError& error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

} // namespace

TEST(CheckArguments, OfALook) {
    const Arguments arguments = Read({u"--source"_s, u"San Roque"_s, u"--user"_s, u"NURSE"_s,
                                      u"--password-file"_s, u"p"_s, u"--department"_s, u"HC"_s, u"--json"_s});
    EXPECT_EQ(arguments.task, Arguments::Task::Look);
    EXPECT_EQ(arguments.source, u"San Roque"_s);
    EXPECT_EQ(arguments.user, u"NURSE"_s);
    EXPECT_EQ(arguments.passwordFile, u"p"_s);
    EXPECT_EQ(arguments.department, u"HC"_s);
    EXPECT_TRUE(arguments.asJson);
}

TEST(CheckArguments, WithoutASourceAreAboutTheTrialHospital) {
    EXPECT_EQ(Read({u"--user"_s, u"NURSE"_s}).source, u"Trial hospital"_s);
}

TEST(CheckArguments, OfACopyNeedNoUser) {
    const Arguments saved = Read({u"--backup"_s, u"a.db"_s});
    EXPECT_EQ(saved.task, Arguments::Task::BackUp);
    EXPECT_EQ(saved.file, u"a.db"_s);
    const Arguments restored = Read({u"--restore"_s, u"a.db"_s, u"--user"_s, u"NURSE"_s});
    EXPECT_EQ(restored.task, Arguments::Task::Restore);
    EXPECT_EQ(restored.file, u"a.db"_s);
}

TEST(CheckArguments, ThatAskForNothingAreRefused) {
    EXPECT_EQ(RefusalOf({}), u"Who signs on? --user names him."_s);
    EXPECT_EQ(RefusalOf({u"--backup"_s, u""_s}), u"Nothing stands behind --backup."_s);
    EXPECT_EQ(RefusalOf({u"--backup"_s, u"a"_s, u"--restore"_s, u"b"_s}),
              u"--backup and --restore are asked for one at a time."_s);
    EXPECT_EQ(RefusalOf({u"--source"_s, u"San Roque"_s, u"--backup"_s, u"a"_s}),
              u"A server's databases are backed up by the server."_s);
}

TEST(CheckArguments, ThatSayTwoThingsAreRefused) {
    EXPECT_EQ(RefusalOf({u"--backup"_s, u"a"_s, u"--backup"_s, u"b"_s}), u"--backup is given twice."_s);
}

TEST(CheckArguments, AWordThatBelongsNowhereIsNotRepeated) {
    EXPECT_EQ(RefusalOf({u"--user"_s, u"NURSE"_s, u"secret"_s}), u"A word belongs to no option."_s);
}

TEST(CheckArguments, HelpNamesEveryOption) {
    for (const QString& option : {u"--source"_s, u"--user"_s, u"--password-file"_s, u"--department"_s,
                                  u"--backup"_s, u"--restore"_s, u"--json"_s})
        EXPECT_TRUE(HelpText().contains(option)) << option.toStdString();
}
