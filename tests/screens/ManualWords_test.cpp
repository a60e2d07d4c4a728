#include "components/shared.h"
#include "manual/Manual.h"
#include "screens/ScreenTable.h"
#include "screens/WaysIn.h"
#include "suite/DataSource.h"
#include "suite/PickDialog.h"
#include "suite/SignOnDialog.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QRegularExpression>
#include <QShortcut>
#include <QTableView>

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

// What the manual tells is compared with the program: each caption in bold is one of its own, each key does
// something there, each screen has a page, each link and picture leads somewhere.

namespace {

/// A hospital that is only looked at in the sign-on window.
class ShownSource : public DataSource {
  public:
    QString Name() const override { return u"Trial hospital"_s; }
    bool CanBeMadeAnew() const override { return true; }
    std::unique_ptr<CommandGateway> Connect(const QString&, const QString&) override { return nullptr; }
};

/// A caption without the blanks and the colon behind it.
QString WithoutColon(const QString& caption) {
    static const QRegularExpression behind(u"[\\s:]+$"_s);
    return caption.simplified().remove(behind);
}

/// A caption as it is read: the mark of its key is no letter of it.
QString AsRead(QString caption) {
    constexpr QChar kLetter(1);
    caption.replace(u"&&"_s, kLetter).remove(u'&').replace(kLetter, u'&');
    return WithoutColon(caption);
}

/// Keys that controls take by themselves, and the tests that press them.
const std::map<QString, const char*>& KeysOfControls() {
    static const std::map<QString, const char*> keys = {
        {u"Tab"_s, "EveryScreen.StandsAsInTheTableRightAfterItOpens"},
        {u"Shift+Tab"_s, "EveryScreen.ShiftTabGoesBackToWhereTabCameFrom"},
        {u"Enter"_s, "tests/desk: every way"},
        {u"Escape"_s, "EveryScreen.IsLeftByEscape"},
        {u"Up"_s, "ChargeGrid"},
        {u"Down"_s, "ChargeGrid"},
        {u"Space"_s, "tests/desk: CashPatients"},
        {u"Shift"_s, "a box's own"},
        {u"Ctrl+C"_s, "a box's own"},
        {u"F1"_s, "HelpAtADesk"},
        {u"Ctrl+W"_s, "LeavingByKey"},
        {u"Ctrl+F4"_s, "LeavingByKey"},
        {u"Ctrl+Tab"_s, "SwitchingScreens"},
        {u"Ctrl+Shift+Tab"_s, "SwitchingScreens"},
        {u"F4"_s, "DatePicker"},
        {u"Alt+Down"_s, "DatePicker"},
        {u"Alt+Left"_s, "HelpWindow"},
        {u"Shift+Space"_s, "PageView"},
        {u"Ctrl+F10"_s, "FormLife.AKeyGivesAScreenTheWholeAreaAndTakesItBack"},
        {u"Ctrl++"_s, "ClickTableTest.KeysMakeTheCurrentColumnWiderAndNarrower"},
        {u"Ctrl+-"_s, "ClickTableTest.KeysMakeTheCurrentColumnWiderAndNarrower"},
    };
    return keys;
}

class Words {
  public:
    void TakeFrom(const QWidget& window) {
        Take(window.windowTitle());
        for (const auto* label : window.findChildren<QLabel*>())
            Take(label->text());
        for (const auto* button : window.findChildren<QAbstractButton*>())
            Take(button->text());
        for (const auto* frame : window.findChildren<QGroupBox*>())
            Take(frame->title());
        for (const auto* action : window.findChildren<QAction*>())
            TakeAction(*action);
        for (const auto* shortcut : window.findChildren<QShortcut*>())
            mKeys.insert(shortcut->key().toString());
        for (const auto* list : window.findChildren<QComboBox*>()) {
            for (int i = 0; i < list->count(); ++i)
                Take(list->itemText(i));
        }
        for (const auto* table : window.findChildren<QTableView*>())
            TakeHeadings(*table->model());
    }

    bool HasCaption(const QString& caption) const { return mCaptions.contains(WithoutColon(caption)); }
    bool HasKey(const QString& key) const { return mKeys.contains(key) || KeysOfControls().contains(key); }

  private:
    void Take(const QString& caption) {
        mCaptions.insert(AsRead(caption));
        if (const QKeySequence key = QKeySequence::mnemonic(caption); !key.isEmpty())
            mKeys.insert(key.toString());
    }
    void TakeAction(const QAction& action) {
        // The viewer shows some of its buttons for some reports only; a menu's entry that is hidden stays so.
        if (!action.isVisible() && qobject_cast<const QMenuBar*>(action.parent()))
            return;
        if (action.isEnabled())
            Take(action.text());
        for (const QKeySequence& key : action.shortcuts())
            mKeys.insert(key.toString());
    }
    void TakeHeadings(const QAbstractItemModel& model) {
        for (int column = 0; column < model.columnCount(); ++column)
            Take(model.headerData(column, Qt::Horizontal).toString());
    }

    std::set<QString> mCaptions;
    std::set<QString> mKeys;
};

QStringList Marked(const QString& text, const QString& pattern) {
    QStringList found;
    auto all = QRegularExpression(pattern).globalMatch(text);
    while (all.hasNext())
        found << all.next().captured(1).simplified();
    return found;
}

/// A program of its own for one screen.
class OneScreen : public WaysIn {
  public:
    using WaysIn::Open;

  private:
    void TestBody() override {}
};

Words WordsOfTheProgram() {
    Words words;
    for (const ScreenSection& section :
         ReadScreenTable(QStringLiteral(TARVEN_SOURCE_DIR "/tests/screens/screens.txt")))
        OneScreen().Open(section, [&words](const QWidget& screen) { words.TakeFrom(screen); });
    std::array<std::unique_ptr<DataSource>, 1> sources = {std::make_unique<ShownSource>()};
    words.TakeFrom(SignOnDialog(sources, u"HC"_s));
    words.TakeFrom(PickDialog(u"Services"_s, {}, Rows({u"Code"_s}, {{u"HC001"_s}}), {}));
    return words;
}

TEST(WordsOfTheManual, StandInTheProgram) {
    const Words words = WordsOfTheProgram();
    int captions = 0;
    int keys = 0;
    for (const ManualPage& page : ManualPages()) {
        for (const QString& caption : Marked(page.markdown, u"\\*\\*([^*]+)\\*\\*"_s)) {
            ++captions;
            // The contents tell what bold means by the word itself.
            EXPECT_TRUE(words.HasCaption(caption) || caption == u"bold"_s)
                << page.name.toStdString() << ".md tells of \"" << caption.toStdString()
                << "\", which stands nowhere in the program";
        }
        for (const QString& key : Marked(page.markdown, u"<kbd>([^<]+)</kbd>"_s)) {
            ++keys;
            EXPECT_TRUE(words.HasKey(key)) << page.name.toStdString() << ".md tells of the key "
                                           << key.toStdString() << ", which does nothing in the program";
        }
    }
    EXPECT_GT(captions, 100);
    EXPECT_GT(keys, 60);
}

TEST(PagesOfTheManual, TellOfEachScreen) {
    QDirIterator headers(QStringLiteral(TARVEN_SOURCE_DIR "/src"), {u"frm*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        headers.next();
        const QString screen = headers.fileInfo().baseName();
        EXPECT_TRUE(PageOfScreen(screen)) << "F1 finds no page for " << screen.toStdString();
    }
    EXPECT_EQ(PageOfScreen(u"SignOnDialog"_s)->name, u"sign-on"_s);
    EXPECT_EQ(PageOfScreen(u"nothing"_s), nullptr);
}

TEST(PagesOfTheManual, AreAllInTheContents) {
    std::set<QString> listed;
    for (const ManualPage& page : ManualPages()) {
        EXPECT_FALSE(page.markdown.isEmpty()) << "there is no page " << page.name.toStdString();
        listed.insert(page.name);
    }
    QDirIterator files(QStringLiteral(TARVEN_SOURCE_DIR "/docs/manual"), {u"*.md"_s});
    while (files.hasNext()) {
        files.next();
        EXPECT_TRUE(listed.contains(files.fileInfo().baseName())) << files.fileName().toStdString();
    }
}

TEST(PagesOfTheManual, LeadToPagesAndPicturesThatAreThere) {
    std::set<QString> shown;
    for (const ManualPage& page : ManualPages()) {
        for (const QString& target : Marked(page.markdown, u"\\]\\(([^)]+)\\)"_s)) {
            EXPECT_TRUE(QFile::exists(QLatin1StringView(kManualFolder) + target))
                << page.name.toStdString() << " leads to " << target.toStdString();
            shown.insert(target);
        }
    }
    QDirIterator pictures(QStringLiteral(TARVEN_SOURCE_DIR "/docs/manual/pictures"), {u"*.png"_s});
    while (pictures.hasNext()) {
        pictures.next();
        EXPECT_TRUE(shown.contains(u"pictures/"_s + pictures.fileName()))
            << "no page shows " << pictures.fileName().toStdString();
    }
}

TEST(PagesOfTheManual, AreFoundByWhatStandsInThem) {
    const ManualPage page{
        .name = u"a"_s, .title = u"A"_s, .markdown = u"# A\n\nPress **Save\n& Print**, <kbd>F1</kbd>."_s};
    EXPECT_TRUE(HasText(page, u"save & print, f1"_s));
    EXPECT_TRUE(HasText(page, QString()));
    EXPECT_FALSE(HasText(page, u"kbd"_s));
    EXPECT_EQ(ShownMarkdown(u"<kbd>F1</kbd>"_s), u"`F1`"_s);
}

} // namespace
