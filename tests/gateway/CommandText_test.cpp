#include "gateway/CommandText.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

TEST(CommandText, WithoutArgumentsIsTheText) {
    EXPECT_EQ(CommandText(u"Select * from PATIENT_DATA..tbhospitalInfo"),
              u"Select * from PATIENT_DATA..tbhospitalInfo"_s);
}

TEST(CommandText, PutsArgumentsIntoTheirPlacesInOrder) {
    EXPECT_EQ(CommandText(u"{}..sp '{}', '{}' ", {u"A"_s, u"b"_s, u""_s}), u"A..sp 'b', '' "_s);
}

TEST(CommandText, TouchesNoArgument) {
    EXPECT_EQ(CommandText(u"sp '{}','{}'", {u" o'{}\n "_s, u"%1{}"_s}), u"sp ' o'{}\n ','%1{}'"_s);
}

TEST(CommandText, PlacesAndArgumentsAreAsMany) {
    EXPECT_THROW(CommandText(u"sp '{}'", {}), std::logic_error);
    EXPECT_THROW(CommandText(u"sp '{}'", {u"a"_s, u"b"_s}), std::logic_error);
}
