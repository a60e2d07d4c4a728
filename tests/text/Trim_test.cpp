#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "text/Trim.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TrimCase {
    const char* name;
    QString text;
    QString trimmed;
};

class TrimTest : public testing::TestWithParam<TrimCase> {};

INSTANTIATE_TEST_SUITE_P(
    Texts, TrimTest,
    testing::Values(TrimCase{"Bare", u"A B"_s, u"A B"_s}, TrimCase{"BlanksBefore", u"  A B"_s, u"A B"_s},
                    TrimCase{"BlanksBehind", u"A B  "_s, u"A B"_s}, TrimCase{"BlanksAlone", u"   "_s, u""_s},
                    TrimCase{"Empty", u""_s, u""_s}, TrimCase{"TabStays", u" \tA\t "_s, u"\tA\t"_s},
                    TrimCase{"LineEndStays", u"A\r\n"_s, u"A\r\n"_s},
                    TrimCase{"NoBreakSpaceStays", u"\u00A0A\u00A0"_s, u"\u00A0A\u00A0"_s}),
    CaseName());

TEST_P(TrimTest, TakesBlanksAlone) {
    EXPECT_EQ(Trim(GetParam().text), GetParam().trimmed);
}

} // namespace
