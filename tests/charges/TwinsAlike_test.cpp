#include "charges/TwinScreens.h"
#include "support/CaseName.h"

using namespace Qt::StringLiterals;

// What both charge screens do with the requesting doctor.

namespace {

class TwinsAlike : public testing::TestWithParam<TwinScreen> {
  protected:
    QLineEdit& Code() const { return on.Box(GetParam().doctorCode); }
    QLineEdit& Name() const { return on.Box(GetParam().doctorName); }
    void Pick() const { Click(on.The<QPushButton>(GetParam().doctorPicker)); }
    std::vector<FakeListing::Search> Searches() const { return on.listing->searches; }

    TwinGround on{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Screens, TwinsAlike, testing::Values(PostChargesTwin(), AssessmentTwin()),
                         CaseName());

} // namespace

TEST_P(TwinsAlike, DoctorsCodeZeroOpensTheDoctorForTyping) {
    EXPECT_FALSE(on.Box("txtDoctor").isEnabled());
    Type(Code(), u"0"_s);
    Press(Code(), Qt::Key_Return);
    EXPECT_TRUE(on.Box("txtDoctor").isEnabled());
    EXPECT_TRUE(on.Box("txtDoctor").hasFocus());
    EXPECT_TRUE(Searches().empty());
}

TEST_P(TwinsAlike, DoctorsCodeThatIsNotZeroAloneIsLookedUp) {
    for (const QString& code : {u"00"_s, u" 0"_s}) {
        Code().setText(code);
        Press(Code(), Qt::Key_Return);
        EXPECT_FALSE(on.Box("txtDoctor").isEnabled());
    }
    EXPECT_EQ(Searches(), (std::vector<FakeListing::Search>{{u"00"_s, ListingKind::kDoctor, u""_s},
                                                            {u" 0"_s, ListingKind::kDoctor, u""_s}}));
}

TEST_P(TwinsAlike, RequestingDoctorsNameIsJoinedWithItsBlanks) {
    on.listing->doctor = {u"D003"_s, u" CASTAÑEDA "_s, u" LUIS "_s, u" PEÑA "_s};
    on.listing->answers = {true, true};
    Pick();
    EXPECT_EQ(Name().text(), u"DR.  CASTAÑEDA , LUIS   PEÑA "_s);
    Code().setText(u"D"_s);
    Press(Code(), Qt::Key_Return);
    EXPECT_EQ(Name().text(), u"DR.  LUIS   CASTAÑEDA "_s);
}

TEST_P(TwinsAlike, PickerOfDoctorsSearchesByTheNameAndWritesItsOwnForm) {
    on.listing->answers = {false, true};
    Pick();
    EXPECT_EQ(Name().text(), QString());
    Name().setText(u"Cas"_s);
    Pick();
    EXPECT_EQ(Searches(), (std::vector<FakeListing::Search>{{u""_s, ListingKind::kDoctor, u""_s},
                                                            {u"Cas"_s, ListingKind::kDoctor, u""_s}}));
    EXPECT_FALSE(on.listing->searchMode);
    EXPECT_EQ(Name().text(), u"DR. CASTAÑEDA,LUIS PEÑA"_s);
    EXPECT_EQ(Code().text(), u"D003"_s);
}
