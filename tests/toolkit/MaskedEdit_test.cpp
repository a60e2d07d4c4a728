#include "support/ScreenTest.h"
#include "toolkit/MaskedEdit.h"

using namespace Qt::StringLiterals;

class MaskedEditTest : public ScreenTest {
  protected:
    MaskedEditTest() {
        date.setObjectName(u"date"_s);
        Activate(date);
        Press(date, Qt::Key_Home);
    }

    MaskedEdit date{u"##/##/####"_s};
};

TEST_F(MaskedEditTest, EmptyBoxShowsTheMasksOwnCharactersAndBlanks) {
    EXPECT_EQ(date.Text(), u"  /  /    "_s);
    EXPECT_EQ(date.Text().trimmed(), u"/  /"_s);
}

TEST_F(MaskedEditTest, DigitsFillTheirPlaces) {
    Type(date, u"02291984"_s);
    EXPECT_EQ(date.Text(), u"02/29/1984"_s);
}

TEST_F(MaskedEditTest, TypedSeparatorMovesOnToTheNextPart) {
    Type(date, u"2/9/1984"_s);
    EXPECT_EQ(Value(date.Text()).ToDate(), DateTime::FromFields({1984, 2, 9}).value());
}

TEST_F(MaskedEditTest, HalfADateKeepsItsEmptyPlaces) {
    Type(date, u"022"_s);
    EXPECT_EQ(date.Text(), u"02/2 /    "_s);
}

TEST_F(MaskedEditTest, OnlyDigitsAreTaken) {
    Type(date, u"a0-x2"_s);
    EXPECT_EQ(date.Text(), u"02/  /    "_s);
}

TEST_F(MaskedEditTest, NothingGoesBehindTheLastPlace) {
    Type(date, u"0229198455"_s);
    EXPECT_EQ(date.Text(), u"02/29/1984"_s);
}

TEST_F(MaskedEditTest, EmptiedBoxIsAnEmptyMaskAgain) {
    Type(date, u"02291984"_s);
    date.selectAll();
    Press(date, Qt::Key_Delete);
    EXPECT_EQ(date.Text(), u"  /  /    "_s);
}

TEST_F(MaskedEditTest, LettersOfTheMaskStandForThemselves) {
    MaskedEdit number(u"No. A-##9"_s);
    EXPECT_EQ(number.Text(), u"No. A-  9"_s);
    number.setText(u"No. A-129"_s);
    EXPECT_EQ(number.Text(), u"No. A-129"_s);
}
