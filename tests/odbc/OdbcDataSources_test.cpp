#include "odbc/OdbcDataSources.h"
#include "support/PrintQt.h"
#include "support/tds/TestDataSources.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(OdbcDataSources, AreListedInTheOrderOfTheirNames) {
    TestDataSources& sources = TestDataSources::Instance();
    const QStringList before = OdbcDataSources();
    for (const QString& name : {u"San Roque"_s, u"Asuncion"_s})
        sources.Add(name, u"Driver=/nowhere.so\n"_s);
    QStringList all = OdbcDataSources();
    for (const QString& name : before)
        all.removeOne(name);
    EXPECT_EQ(all, (QStringList{u"Asuncion"_s, u"San Roque"_s}));
    for (const QString& name : {u"San Roque"_s, u"Asuncion"_s})
        sources.Remove(name);
    EXPECT_EQ(OdbcDataSources(), before);
}

TEST(OdbcDataSources, TheDriverManagersOwnSettingsAreNone) {
    TestDataSources& sources = TestDataSources::Instance();
    const QStringList before = OdbcDataSources();
    for (const QString& name : {u"ODBC"_s, u"Default"_s})
        sources.Add(name, u"Driver=/nowhere.so\n"_s);
    EXPECT_EQ(OdbcDataSources(), before);
    for (const QString& name : {u"ODBC"_s, u"Default"_s})
        sources.Remove(name);
}

TEST(OdbcDataSources, NamesThatCannotBeOpenedAreLeftOut) {
    TestDataSources& sources = TestDataSources::Instance();
    const QStringList before = OdbcDataSources();
    const QString longest(32, u'y');
    const QStringList names = {u"Niño Jesus"_s, longest + u'y', longest};
    for (const QString& name : names)
        sources.Add(name, u"Driver=/nowhere.so\n"_s);
    QStringList all = OdbcDataSources();
    for (const QString& name : before)
        all.removeOne(name);
    EXPECT_EQ(all, QStringList{longest});
    for (const QString& name : names)
        sources.Remove(name);
    EXPECT_EQ(OdbcDataSources(), before);
}
