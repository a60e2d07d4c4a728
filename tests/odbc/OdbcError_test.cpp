#include "odbc/OdbcError.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(OdbcError, NamesOfTheLayersAreCutOff) {
    EXPECT_EQ(WithoutLayerNames(u"[unixODBC][Driver Manager]Data source name not found"_s),
              u"Data source name not found"_s);
    EXPECT_EQ(WithoutLayerNames(u"[FreeTDS][SQL Server]Timeout expired"_s), u"Timeout expired"_s);
    EXPECT_EQ(WithoutLayerNames(u"[a vendor][a driver]TCP Provider: Error code 0x2749"_s),
              u"TCP Provider: Error code 0x2749"_s);
}

TEST(OdbcError, BracketsOfTheServersOwnTextStay) {
    EXPECT_EQ(WithoutLayerNames(u"[unixODBC][FreeTDS][SQL Server][HC] is closed"_s), u"[HC] is closed"_s);
    EXPECT_EQ(WithoutLayerNames(u"[FreeTDS][SQL Server]Column [a] [SQL Server]"_s),
              u"Column [a] [SQL Server]"_s);
    EXPECT_EQ(WithoutLayerNames(u"plain [x]"_s), u"plain [x]"_s);
    EXPECT_EQ(WithoutLayerNames(u"[unclosed"_s), u"[unclosed"_s);
    EXPECT_EQ(WithoutLayerNames(QString()), QString());
}
