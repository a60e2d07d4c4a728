#include "support/PrintQt.h"
#include "text/UCase.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(UCase, KnowsTheLettersOfFilipinoNames) {
    EXPECT_EQ(UCase(u"peñaflor"), u"PEÑAFLOR"_s);
    EXPECT_EQ(UCase(u"dela cruz, ma. josé"), u"DELA CRUZ, MA. JOSÉ"_s);
}

TEST(UCase, NeverChangesTheLength) {
    EXPECT_EQ(UCase(u"weiß"), u"WEIß"_s);
}

TEST(UCase, LeavesControlCodesAlone) {
    EXPECT_EQ(UCase(QChar(13)), QChar(13));
}
