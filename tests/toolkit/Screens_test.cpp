#include "toolkit/FormTest.h"
#include "toolkit/Screens.h"

using namespace Qt::StringLiterals;

namespace {

using ScreensTest = FormTest;

TEST_F(ScreensTest, TheFirstTouchLoadsTheScreenWithoutShowingIt) {
    FormA& screen = Screens::Get<FormA>();
    EXPECT_EQ(TakeEvents(), QStringList{u"A load"_s});
    EXPECT_FALSE(screen.isVisible());
    EXPECT_TRUE(Screens::IsLoaded<FormA>());
}

TEST_F(ScreensTest, LaterTouchesGiveTheSameInstanceAndLoadNothing) {
    FormA& first = Screens::Get<FormA>();
    EXPECT_EQ(&Screens::Get<FormA>(), &first);
    first.Show();
    EXPECT_EQ(&Screens::Get<FormA>(), &first);
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A activate"_s}));
}

TEST_F(ScreensTest, ATouchFromItsOwnLoadGivesTheScreenThatIsLoading) {
    const Form* touched = nullptr;
    FormA::onLoad = [&touched](FormA&) { touched = &Screens::Get<FormA>(); };
    EXPECT_EQ(touched, nullptr);
    EXPECT_EQ(&Screens::Get<FormA>(), touched);
    EXPECT_EQ(TakeEvents(), QStringList{u"A load"_s});
}

TEST_F(ScreensTest, AScreenMayTouchAnotherFromItsLoad) {
    FormA::onLoad = [](FormA&) { Screens::Get<FormB>(); };
    Screens::Get<FormA>();
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"B load"_s}));
    EXPECT_TRUE(Screens::IsLoaded<FormB>());
}

TEST_F(ScreensTest, EachScreenHasItsOwnInstance) {
    Screens::Get<FormA>();
    EXPECT_FALSE(Screens::IsLoaded<FormB>());
    EXPECT_NE(static_cast<Form*>(&Screens::Get<FormB>()), static_cast<Form*>(&Screens::Get<FormA>()));
}

TEST_F(ScreensTest, ATouchAfterTheUnloadMakesAFreshScreen) {
    Screens::Get<FormA>().box->setText(u"old"_s);
    EXPECT_TRUE(Screens::Unload<FormA>());
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
    EXPECT_EQ(Screens::Get<FormA>().box->text(), QString());
    EXPECT_EQ(TakeEvents(), (QStringList{u"A load"_s, u"A query"_s, u"A unload"_s, u"A load"_s}));
}

TEST_F(ScreensTest, AFreshScreenMayBeMadeBeforeTheOldOneIsDeleted) {
    const Form* old = &Screens::Get<FormA>();
    FormA::onUnload = [](FormA&) { FormA::onUnload = {}; };
    Screens::Unload<FormA>();
    FormA& fresh = Screens::Get<FormA>();
    EXPECT_NE(&fresh, old);
    fresh.Show();
    DeleteUnloaded();
    EXPECT_TRUE(fresh.isVisible());
    EXPECT_EQ(TakeEvents().last(), u"A gone"_s);
}

TEST_F(ScreensTest, UnloadingAScreenThatIsNotLoadedMakesNone) {
    EXPECT_TRUE(Screens::Unload<FormA>());
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(ScreensTest, ARefusalKeepsTheScreen) {
    FormA& screen = Screens::Get<FormA>();
    screen.Show();
    screen.refuses = true;
    TakeEvents();
    EXPECT_FALSE(Screens::Unload<FormA>());
    EXPECT_EQ(TakeEvents(), QStringList{u"A query"_s});
    EXPECT_TRUE(Screens::IsLoaded<FormA>());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(&Screens::Get<FormA>(), &screen);
}

TEST_F(ScreensTest, UnloadAllUnloadsTheScreenMadeLastFirst) {
    Screens::Get<FormA>();
    Screens::Get<FormB>().Show();
    TakeEvents();
    EXPECT_TRUE(Screens::UnloadAll());
    EXPECT_EQ(TakeEvents(), (QStringList{u"B query"_s, u"B unload"_s, u"A query"_s, u"A unload"_s}));
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
    EXPECT_FALSE(Screens::IsLoaded<FormB>());
}

TEST_F(ScreensTest, UnloadAllStopsAtARefusal) {
    Screens::Get<FormA>();
    Screens::Get<FormB>().refuses = true;
    Screens::Get<FormC>();
    EXPECT_FALSE(Screens::UnloadAll());
    EXPECT_TRUE(Screens::IsLoaded<FormA>());
    EXPECT_TRUE(Screens::IsLoaded<FormB>());
    EXPECT_FALSE(Screens::IsLoaded<FormC>());
}

TEST_F(ScreensTest, UnloadAllTakesAScreenThatAnUnloadHasMade) {
    FormA::onUnload = [](FormA&) { Screens::Get<FormB>(); };
    Screens::Get<FormA>();
    EXPECT_TRUE(Screens::UnloadAll());
    EXPECT_FALSE(Screens::IsLoaded<FormB>());
}

TEST_F(ScreensTest, ClearAsksNothing) {
    Screens::Get<FormA>().refuses = true;
    Screens::Get<FormB>().Show();
    TakeEvents();
    Screens::Clear();
    EXPECT_EQ(TakeEvents(), (QStringList{u"B gone"_s, u"A gone"_s}));
    EXPECT_FALSE(Screens::IsLoaded<FormA>());
}

} // namespace
