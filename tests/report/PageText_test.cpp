#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PageText, PutsTextsOfOneHeightIntoOneLineAndAmountsUnderEachOther) {
    const auto document = SmallDocument(
        u"<detail height=\"5\"><text x=\"40\" y=\"0\" width=\"30\" align=\"right\">{A}</text><text x=\"0\" y=\"0.5\" width=\"30\">{B}</text></detail>"_s,
        Rows({u"A"_s, u"B"_s}, {{u"1,250.00"_s, u"left"_s}, {u"5.00"_s, u"other"_s}}));
    const QStringList lines = PageText(*document, 1).split(u'\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].startsWith(u"left "_s) && lines[0].endsWith(u" 1,250.00"_s));
    EXPECT_EQ(lines[0].size(), lines[1].size());
}
