#include "suite/DataSources.h"
#include "support/PrintQt.h"
#include "text/RunTimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList Names(const DataSourceList& list) {
    QStringList names;
    for (const auto& source : DataSources(u"/nowhere"_s, list))
        names.push_back(source->Name());
    return names;
}

TEST(DataSources, AreTheTrialHospitalAndTheServersEachNameOnce) {
    EXPECT_EQ(Names([] {
                  return QStringList{u"San Roque"_s, u"Trial hospital"_s, u"Archive"_s};
              }),
              (QStringList{u"Trial hospital"_s, u"San Roque"_s, u"Archive"_s}));
}

TEST(DataSources, AreTheTrialHospitalAloneWhereTheListFails) {
    EXPECT_EQ(Names([]() -> QStringList { throw RunTimeError(0, u"no driver manager"_s); }),
              QStringList{u"Trial hospital"_s});
}

TEST(DataSources, AreFoundByTheirNames) {
    EXPECT_TRUE(DataSourceNamed(u"/nowhere"_s, u"Trial hospital"_s)->CanBeMadeAnew());
    const auto server = DataSourceNamed(u"/nowhere"_s, u"San Roque"_s);
    EXPECT_EQ(server->Name(), u"San Roque"_s);
    EXPECT_TRUE(server->ProvesPasswords());
}

} // namespace
