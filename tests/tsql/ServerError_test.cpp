#include "support/PrintQt.h"
#include "tsql/ServerError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ServerErrorTest, CarriesTheServersNumberTextAndState) {
    const RunTimeError error = ServerError(Fault::InvalidObject, {u"build_file..tbCoRoom"_s});
    EXPECT_EQ(error.Number(), 208);
    EXPECT_EQ(error.Description(), u"Invalid object name 'build_file..tbCoRoom'."_s);
    EXPECT_EQ(error.State(), u"42S02"_s);
}

TEST(ServerErrorTest, PartsAreNotSearchedForPlaces) {
    EXPECT_EQ(ServerError(Fault::ConversionFailed, {u"varchar"_s, u"%3 of %1"_s, u"int"_s}).Description(),
              u"Conversion failed when converting the varchar value '%3 of %1' to data type int."_s);
}

TEST(ServerErrorTest, PlacesMayStandInAnyOrder) {
    EXPECT_EQ(
        ServerError(Fault::DuplicateKey, {u"tbX"_s, u"Code"_s}).Description(),
        u"Violation of PRIMARY KEY or UNIQUE constraint (Code). Cannot insert duplicate key in object 'tbX'."_s);
}
