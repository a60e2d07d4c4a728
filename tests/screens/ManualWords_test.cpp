#include "components/shared.h"
#include "manual/HelpWindow.h"
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

/// Kinds of controls and the keys that they take by themselves.
const std::multimap<QString, QString>& KeysOfControls() {
    static const std::multimap<QString, QString> keys = {
        {u"Tab"_s, u"QWidget"_s},
        {u"Shift+Tab"_s, u"QWidget"_s},
        {u"Enter"_s, u"QWidget"_s},
        {u"Escape"_s, u"QWidget"_s},
        {u"F1"_s, u"QWidget"_s},
        {u"Shift"_s, u"QLineEdit"_s},
        {u"Up"_s, u"QAbstractItemView"_s},
        {u"Down"_s, u"QAbstractItemView"_s},
        {u"Up"_s, u"DatePicker"_s},
        {u"Down"_s, u"DatePicker"_s},
        {u"F4"_s, u"DatePicker"_s},
        {u"Alt+Down"_s, u"DatePicker"_s},
        {u"Space"_s, u"QAbstractButton"_s},
        {u"Space"_s, u"PageView"_s},
        {u"Shift+Space"_s, u"PageView"_s},
        {u"Ctrl+C"_s, u"QPlainTextEdit"_s},
        {u"Ctrl+W"_s, u"Form"_s},
        {u"Ctrl+F4"_s, u"Form"_s},
        {u"Ctrl+F10"_s, u"Form"_s},
        {u"Ctrl+Tab"_s, u"MainArea"_s},
        {u"Ctrl+Shift+Tab"_s, u"MainArea"_s},
        {u"Alt+Left"_s, u"HelpWindow"_s},
        {u"Ctrl++"_s, u"ClickTable"_s},
        {u"Ctrl+-"_s, u"ClickTable"_s},
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
        TakeKinds(window);
        for (const auto* control : window.findChildren<QWidget*>())
            TakeKinds(*control);
    }

    bool HasCaption(const QString& caption) const { return mCaptions.contains(WithoutColon(caption)); }
    bool HasKey(const QString& key) const {
        const auto [first, last] = KeysOfControls().equal_range(key);
        return mKeys.contains(key) ||
               std::any_of(first, last, [this](const auto& taken) { return mKinds.contains(taken.second); });
    }

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
    void TakeKinds(const QWidget& control) {
        for (const QMetaObject* kind = control.metaObject(); kind; kind = kind->superClass())
            mKinds.insert(QString::fromLatin1(kind->className()));
    }
    void TakeHeadings(const QAbstractItemModel& model) {
        for (int column = 0; column < model.columnCount(); ++column)
            Take(model.headerData(column, Qt::Horizontal).toString());
    }

    std::set<QString> mCaptions;
    std::set<QString> mKeys;
    std::set<QString> mKinds;
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

/// The words of each window by its name.
std::map<QString, Words> WordsOfTheWindows() {
    std::map<QString, Words> words;
    for (const ScreenSection& section :
         ReadScreenTable(QStringLiteral(TARVEN_SOURCE_DIR "/tests/screens/screens.txt"))) {
        Words& ofScreen = words[QString::fromStdString(section.name)];
        OneScreen().Open(section, [&ofScreen](const QWidget& screen) { ofScreen.TakeFrom(screen); });
    }
    std::array<std::unique_ptr<DataSource>, 1> sources = {std::make_unique<ShownSource>()};
    words[u"SignOnDialog"_s].TakeFrom(SignOnDialog(sources, u"HC"_s));
    words[u"PickDialog"_s].TakeFrom(PickDialog(u"Services"_s, {}, Rows({u"Code"_s}, {{u"HC001"_s}}), {}));
    HelpWindow::Open(QLatin1StringView(kContentsPage));
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<HelpWindow*>(window)) {
            words[u"HelpWindow"_s].TakeFrom(*window);
            window->close();
        }
    }
    return words;
}

/// Whether a key does something in a window that a page is about, or leads there from the main window. The
/// pages of no window of their own tell of all of them, and so does that of the main window.
bool HasKey(const std::map<QString, Words>& words, const ManualPage& page, const QString& key) {
    const auto isAbout = [&page](const auto& window) { return PageOfScreen(window.first) == &page; };
    const bool isOfAll = page.name == u"main-window"_s || std::none_of(words.begin(), words.end(), isAbout);
    return std::any_of(words.begin(), words.end(), [&](const auto& window) {
        return (isOfAll || isAbout(window) || window.first == u"frmMain"_s) && window.second.HasKey(key);
    });
}

TEST(WordsOfTheManual, StandInTheProgram) {
    const std::map<QString, Words> words = WordsOfTheWindows();
    int captions = 0;
    int keys = 0;
    for (const ManualPage& page : ManualPages()) {
        for (const QString& caption : Marked(page.markdown, u"\\*\\*([^*]+)\\*\\*"_s)) {
            ++captions;
            const bool isThere = std::any_of(words.begin(), words.end(), [&caption](const auto& window) {
                return window.second.HasCaption(caption);
            });
            // The contents tell what bold means by the word itself.
            EXPECT_TRUE(isThere || caption == u"bold"_s)
                << page.name.toStdString() << ".md tells of \"" << caption.toStdString()
                << "\", which stands nowhere in the program";
        }
        for (const QString& key : Marked(page.markdown, u"<kbd>([^<]+)</kbd>"_s)) {
            ++keys;
            EXPECT_TRUE(HasKey(words, page, key)) << page.name.toStdString() << ".md tells of the key "
                                                  << key.toStdString() << ", which does nothing there";
        }
    }
    EXPECT_GT(captions, 100);
    EXPECT_GT(keys, 60);
}

TEST(WordsOfTheManual, TellKeysOfTheWindowsThatThePagesAreAbout) {
    const std::map<QString, Words> words = WordsOfTheWindows();
    const ManualPage* assessment = PageOfScreen(u"frmAssessment"_s);
    ASSERT_NE(assessment, nullptr);
    // The calendar's key, and the viewer's.
    EXPECT_FALSE(HasKey(words, *assessment, u"F4"_s));
    EXPECT_FALSE(HasKey(words, *assessment, u"Ctrl+P"_s));
    EXPECT_TRUE(HasKey(words, *PageOfScreen(u"frmReportRange"_s), u"F4"_s));
    EXPECT_TRUE(HasKey(words, *PageOfScreen(u"frmReportviewer"_s), u"Ctrl+P"_s));
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
