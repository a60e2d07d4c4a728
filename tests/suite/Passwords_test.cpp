#include "suite/Passwords.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Passwords, AHashKnowsItsPassword) {
    const QString hash = HashPassword(u"hemo 5-Ñ"_s);
    EXPECT_TRUE(hash.startsWith(u"$argon2id$"_s));
    EXPECT_TRUE(PasswordMatches(hash, u"hemo 5-Ñ"_s));
}

TEST(Passwords, AHashKnowsNoOtherPassword) {
    const QString hash = HashPassword(u"hemo"_s);
    for (const QString& other : {u"Hemo"_s, u"hemo "_s, u"hem"_s, QString(), hash})
        EXPECT_FALSE(PasswordMatches(hash, other)) << other.toStdString();
}

TEST(Passwords, AnEmptyPasswordIsAPasswordToo) {
    const QString hash = HashPassword(QString());
    EXPECT_TRUE(PasswordMatches(hash, QString()));
    EXPECT_FALSE(PasswordMatches(hash, u"x"_s));
}

TEST(Passwords, TwoHashesOfOnePasswordDiffer) {
    EXPECT_NE(HashPassword(u"hemo"_s), HashPassword(u"hemo"_s));
}

TEST(Passwords, ATextThatIsNoHashKnowsNoPassword) {
    for (const QString& text : {QString(), u"hemo"_s, u"$argon2id$v=19$"_s, QString(500, u'x')})
        EXPECT_FALSE(PasswordMatches(text, u"hemo"_s)) << text.toStdString();
}

TEST(Passwords, NobodysHashTakesAsLongToCheckAsAnyOther) {
    const auto limits = [](const QString& hash) { return hash.section(u'$', 0, 3); };
    const QString nobodys(kNobodysHash);
    EXPECT_EQ(limits(nobodys), limits(HashPassword(u"hemo"_s)));
    EXPECT_EQ(nobodys.size(), HashPassword(u"hemo"_s).size());
    EXPECT_FALSE(PasswordMatches(nobodys, QString()));
}

TEST(Passwords, AWipedTextIsEmptyAndLeavesZerosInItsMemory) {
    QString password = QString::fromLatin1("hemo");
    const QChar* letters = password.constData();
    WipePassword(password);
    EXPECT_TRUE(password.isEmpty());
    ASSERT_EQ(password.constData(), letters) << "the text keeps its memory";
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(letters[i], QChar(0)) << i;
}

TEST(Passwords, AnEmptyTextIsWipedWithoutHarm) {
    QString password;
    WipePassword(password);
    EXPECT_TRUE(password.isEmpty());
}

} // namespace
