#include "tsql/SqlKeywords.h"

#include <QString>

#include <gtest/gtest.h>

TEST(SqlKeywords, AreFoundInAnyCase) {
    for (const QStringView word :
         {u"select", u"ADD", u"WriteText", u"identity_insert", u"identitycol", u"Of", u"on"})
        EXPECT_TRUE(IsSqlKeyword(word)) << word.toString().toStdString();
}

TEST(SqlKeywords, NamesOfTheHospitalAreNone) {
    for (const QStringView word :
         {u"HospNum", u"Company", u"Particular", u"Amount", u"Password", u"Status", u"Name", u"Date", u"Type",
          u"Code", u"Description", u"", u"selec", u"selects", u"aaa", u"zzz"})
        EXPECT_FALSE(IsSqlKeyword(word)) << word.toString().toStdString();
}
