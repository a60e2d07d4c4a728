#include "check/Tell.h"
#include "support/PrintQt.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

TEST(ToldFindings, BearTheirVerdictInWords) {
    EXPECT_EQ(LineOf(Ok(u"clock"_s, u"right"_s), false), u"ok     clock            right\n"_s);
    EXPECT_EQ(LineOf(NotLookedAt(u"clock"_s, u"own"_s), false), u"n/a    clock            own\n"_s);
    EXPECT_EQ(LineOf(Fails(u"clock"_s, u"late"_s, u"set it"_s), false),
              u"FAULT  clock            late\n                        -> set it\n"_s);
}

TEST(ToldFindings, AreALineWhateverTheHospitalIsCalled) {
    EXPECT_EQ(LineOf(Ok(u"hospital record"_s, u"ROQUE\x1b[2J\nok     rights           all Ñ"_s), false),
              u"ok     hospital record  ROQUE [2J ok     rights           all Ñ\n"_s);
}

TEST(ToldFindings, HaveAColourOnATerminalAlone) {
    EXPECT_TRUE(LineOf(Ok(u"clock"_s, u"right"_s), true).startsWith(u"\x1b[32mok   \x1b[0m"_s));
    EXPECT_TRUE(
        LineOf(Fails(u"clock"_s, u"late"_s, u"set it"_s), true).startsWith(u"\x1b[31mFAULT\x1b[0m"_s));
    EXPECT_TRUE(LineOf(NotLookedAt(u"clock"_s, u"own"_s), true).startsWith(u"n/a"_s));
}

TEST(ToldFindings, AreOneJsonObject) {
    const Findings findings = {Ok(u"clock"_s, u"right"_s), Fails(u"rights"_s, u"few"_s, u"grant"_s)};
    const QJsonObject whole = QJsonDocument::fromJson(JsonOf(findings)).object();
    EXPECT_FALSE(whole[u"ok"_s].toBool(true));
    const QJsonArray list = whole[u"findings"_s].toArray();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0].toObject(),
              (QJsonObject{{u"name"_s, u"clock"_s}, {u"verdict"_s, u"ok"_s}, {u"seen"_s, u"right"_s}}));
    EXPECT_EQ(list[1].toObject()[u"toDo"_s].toString(), u"grant"_s);
    EXPECT_TRUE(QJsonDocument::fromJson(JsonOf({findings[0]})).object()[u"ok"_s].toBool());
}
