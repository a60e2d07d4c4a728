#include "support/CaseName.h"
#include "support/Contrast.h"
#include "toolkit/Colors.h"

#include <QPalette>

#include <gtest/gtest.h>
#include <ostream>

namespace {

/// Text on its ground, and what has no letters, as the Web Content Accessibility Guidelines 2.1 want them.
constexpr double kText = 4.5;
constexpr double kSign = 3;
/// Two grounds that lie side by side.
constexpr double kGround = 1.2;

struct PairOfColors {
    const char* name;
    QColor Colors::*one;
    QColor Colors::*other;
    double contrast;

    friend void PrintTo(const PairOfColors& pair, std::ostream* out) { *out << pair.name; }
};

class ColorsUsed : public testing::TestWithParam<PairOfColors> {};

TEST_P(ColorsUsed, StandOutFromEachOtherOnALightDesktopAndOnADarkOne) {
    const PairOfColors& pair = GetParam();
    EXPECT_GE(Contrast(LightColors().*pair.one, LightColors().*pair.other), pair.contrast) << "light";
    EXPECT_GE(Contrast(DarkColors().*pair.one, DarkColors().*pair.other), pair.contrast) << "dark";
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, ColorsUsed,
    testing::Values(PairOfColors{"TextOnScreens", &Colors::text, &Colors::window, kText},
                    PairOfColors{"TextInBoxes", &Colors::text, &Colors::field, kText},
                    PairOfColors{"TextInOtherRows", &Colors::text, &Colors::alternate, kText},
                    PairOfColors{"TextInShownBoxes", &Colors::text, &Colors::shown, kText},
                    PairOfColors{"TextOnButtons", &Colors::text, &Colors::button, kText},
                    PairOfColors{"TextOnHeldButtons", &Colors::text, &Colors::held, kText},
                    PairOfColors{"TextInMarkedRows", &Colors::onMark, &Colors::mark, kText},
                    PairOfColors{"TextInLeftRows", &Colors::text, &Colors::paleMark, kText},
                    PairOfColors{"TextInWrongBoxes", &Colors::text, &Colors::wrong, kText},
                    PairOfColors{"TextInTheEditor", &Colors::text, &Colors::editor, kText},
                    PairOfColors{"QuietTextOnScreens", &Colors::quiet, &Colors::window, kText},
                    PairOfColors{"QuietTextInBoxes", &Colors::quiet, &Colors::field, kText},
                    PairOfColors{"QuietTextInShownBoxes", &Colors::quiet, &Colors::shown, kText},
                    PairOfColors{"QuietTextOnButtons", &Colors::quiet, &Colors::button, kText},
                    PairOfColors{"Headings", &Colors::heading, &Colors::window, kText},
                    PairOfColors{"Problems", &Colors::problem, &Colors::window, kText},
                    PairOfColors{"TextOnTheArea", &Colors::text, &Colors::area, kText},
                    PairOfColors{"HeadingsOnTheArea", &Colors::heading, &Colors::area, kText},
                    PairOfColors{"ProblemsOnTheArea", &Colors::problem, &Colors::area, kText},
                    PairOfColors{"EdgesOnScreens", &Colors::line, &Colors::window, kSign},
                    PairOfColors{"EdgesOfBoxes", &Colors::line, &Colors::field, kSign},
                    PairOfColors{"EdgesOfButtons", &Colors::line, &Colors::button, kSign},
                    PairOfColors{"MarksOfRows", &Colors::mark, &Colors::field, kSign},
                    PairOfColors{"FocusOnScreens", &Colors::focus, &Colors::window, kSign},
                    PairOfColors{"FocusOfBoxes", &Colors::focus, &Colors::field, kSign},
                    PairOfColors{"FocusOfShownBoxes", &Colors::focus, &Colors::shown, kSign},
                    PairOfColors{"FocusOfWrongBoxes", &Colors::focus, &Colors::wrong, kSign},
                    PairOfColors{"FocusOfButtons", &Colors::focus, &Colors::button, kSign},
                    PairOfColors{"FocusOfHeldButtons", &Colors::focus, &Colors::held, kSign},
                    PairOfColors{"FocusInLeftRows", &Colors::focus, &Colors::paleMark, kSign},
                    PairOfColors{"FocusOfTheEditor", &Colors::focus, &Colors::editor, kSign},
                    PairOfColors{"FocusInMarkedRows", &Colors::onMark, &Colors::mark, kSign},
                    PairOfColors{"EdgesOfWrongBoxes", &Colors::problem, &Colors::wrong, kSign},
                    PairOfColors{"IconsOnScreens", &Colors::ink, &Colors::window, kSign},
                    PairOfColors{"IconsInBoxes", &Colors::ink, &Colors::field, kSign},
                    PairOfColors{"SoftStrokesOnScreens", &Colors::softInk, &Colors::window, kSign},
                    PairOfColors{"IconsInMarkedRows", &Colors::onMark, &Colors::mark, kSign},
                    PairOfColors{"Warnings", &Colors::warning, &Colors::window, kSign},
                    PairOfColors{"FoundEdges", &Colors::foundEdge, &Colors::found, kSign},
                    PairOfColors{"ShownBoxesOnScreens", &Colors::shown, &Colors::window, kGround},
                    PairOfColors{"ShownBoxesBesideOthers", &Colors::shown, &Colors::field, kGround},
                    PairOfColors{"LeftRows", &Colors::paleMark, &Colors::field, kGround},
                    PairOfColors{"WrongBoxes", &Colors::problem, &Colors::field, kSign}),
    CaseName());

TEST(Palette, HasTheColorsOfTheTable) {
    for (const Colors* colors : {&LightColors(), &DarkColors()}) {
        const QPalette palette = PaletteOf(*colors);
        EXPECT_EQ(palette.color(QPalette::Window), colors->window);
        EXPECT_EQ(palette.color(QPalette::Base), colors->field);
        EXPECT_EQ(palette.color(QPalette::Text), colors->text);
        EXPECT_EQ(palette.color(QPalette::Button), colors->button);
        EXPECT_EQ(palette.color(QPalette::Highlight), colors->mark);
        EXPECT_EQ(palette.color(QPalette::Disabled, QPalette::Text), colors->quiet);
    }
}

TEST(Palette, WhatIsDisabledCanStillBeRead) {
    for (const Colors* colors : {&LightColors(), &DarkColors()}) {
        const QPalette palette = PaletteOf(*colors);
        const auto contrast = [&palette](QPalette::ColorRole text, QPalette::ColorRole ground) {
            return Contrast(palette.color(QPalette::Disabled, text),
                            palette.color(QPalette::Disabled, ground));
        };
        EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), kText);
        EXPECT_GE(contrast(QPalette::Text, QPalette::Base), kText);
        EXPECT_GE(contrast(QPalette::ButtonText, QPalette::Button), kText);
    }
}

} // namespace
