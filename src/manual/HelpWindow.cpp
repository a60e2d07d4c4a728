#include "manual/HelpWindow.h"

#include "manual/FittedPicture.h"
#include "manual/Manual.h"
#include "toolkit/Aside.h"
#include "toolkit/Controls.h"
#include "toolkit/Ears.h"
#include "toolkit/Keys.h"
#include "toolkit/Look.h"
#include "toolkit/ModalStack.h"
#include "toolkit/Twips.h"
#include "toolkit/Workspace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// In twips.
constexpr int kPagesWidth = 3600;
constexpr QSize kWindowSize(12600, 10200);
/// What a window manager puts above a window and at its sides, as a guess: the real frame is known too late.
constexpr int kTitleRoom = 32;
constexpr int kEdgeRoom = 8;
/// Beside a picture: the scroll bar, and the edges of the page.
constexpr int kPictureMargin = 40;
constexpr QColor kHit(0xff, 0xe4, 0x8a);
constexpr int kPageName = Qt::UserRole;

/// Shows the pages of the manual, with pictures that are no wider than itself.
class PageBrowser : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        const QVariant found = QTextBrowser::loadResource(type, name);
        if (type == QTextDocument::MarkdownResource)
            return ShownMarkdown(QString::fromUtf8(found.toByteArray())).toUtf8();
        return type == QTextDocument::ImageResource ? Fitting(found) : found;
    }

    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        // Later: a page that is being laid out may be what brings the scroll bar.
        if (PictureRoom() != mPictureRoom)
            QTimer::singleShot(0, this, &PageBrowser::FitPictures);
    }

  private:
    int PictureRoom() const { return width() - kPictureMargin; }

    /// The page once more, with pictures of the size that there is room for now.
    void FitPictures() {
        if (PictureRoom() == mPictureRoom || source().isEmpty())
            return;
        mPictureRoom = PictureRoom();
        const int place = verticalScrollBar()->value();
        reload();
        verticalScrollBar()->setValue(place);
    }

    QVariant Fitting(const QVariant& found) {
        QImage picture = found.canConvert<QImage>() ? found.value<QImage>() : QImage();
        if (picture.isNull())
            picture.loadFromData(found.toByteArray());
        mPictureRoom = PictureRoom();
        return FittedPicture(picture, mPictureRoom, devicePixelRatioF());
    }

    /// For which the pictures of the page in hand were made.
    int mPictureRoom = 0;
};

QUrl UrlOf(const QString& page) {
    return QUrl(u"qrc"_s + QLatin1StringView(kManualFolder) + page + u".md"_s);
}

} // namespace

HelpWindow::HelpWindow() {
    Layout();
    Wire();
    Search();
}

void HelpWindow::Open(const QString& page) {
    static QPointer<HelpWindow> window;
    if (!window)
        window = new HelpWindow;
    QWidget* from = QApplication::activeWindow();
    if (!StandsAside(from))
        window->mFrom = from;
    window->StandOver();
    if (!window->isVisible())
        window->PlaceAside();
    window->ShowPage(page);
    window->show();
    window->raise();
    window->activateWindow();
    window->brwPage->setFocus();
}

void HelpWindow::Layout() {
    setObjectName(u"HelpWindow"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    StandAside(*this);
    SpeakAs(*this, QAccessible::Dialog);
    brwPage = new PageBrowser(this);
    brwPage->setObjectName(u"brwPage"_s);
    brwPage->setOpenExternalLinks(false);
    LayoutPages();
    lblHint = new QLabel(this);
    lblHint->setObjectName(u"lblHint"_s);
    auto* left = new QVBoxLayout;
    auto* label = new QLabel(u"&Search the manual"_s, this);
    label->setBuddy(txtSearch);
    left->addWidget(label);
    left->addWidget(txtSearch);
    left->addWidget(lstPages, 1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(Space::kNormal);
    columns->addLayout(left);
    columns->addWidget(brwPage, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addWidget(lblHint);
    SetTabOrder({brwPage, txtSearch, lstPages});
}

void HelpWindow::LayoutPages() {
    txtSearch = NewTextBox(u"txtSearchManual"_s, this);
    txtSearch->setAccessibleName(u"Search the manual"_s);
    txtSearch->setFixedWidth(TwipsToPixels(kPagesWidth));
    lstPages = new QListWidget(this);
    lstPages->setObjectName(u"lstPages"_s);
    lstPages->setAccessibleName(u"Pages"_s);
    lstPages->setFixedWidth(TwipsToPixels(kPagesWidth));
}

void HelpWindow::Wire() {
    connect(txtSearch, &QLineEdit::textChanged, this, &HelpWindow::Search);
    connect(txtSearch, &QLineEdit::returnPressed, this, &HelpWindow::FindNext);
    connect(lstPages, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item && item->data(kPageName).toString() != mPage)
            ShowPage(item->data(kPageName).toString());
    });
    connect(lstPages, &QListWidget::itemActivated, brwPage, [this] { brwPage->setFocus(); });
    connect(brwPage, &QTextBrowser::sourceChanged, this, &HelpWindow::MarkPage);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this), &QShortcut::activated, txtSearch,
            [this] {
                txtSearch->setFocus();
                txtSearch->selectAll();
            });
    connect(new QShortcut(QKeySequence(Qt::Key_F3), this), &QShortcut::activated, this,
            &HelpWindow::FindNext);
}

/// A modal screen takes the keys of every window but those that belong to it.
void HelpWindow::StandOver() {
    if (mOver)
        mOver->removeEventFilter(this);
    mOver = ModalStack::Top();
    if (mOver)
        mOver->installEventFilter(this);
    winId();
    windowHandle()->setTransientParent(mOver ? mOver->windowHandle() : nullptr);
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    // The screen closes; the manual goes on beside the one below.
    if (watched == mOver && event->type() == QEvent::Hide)
        QTimer::singleShot(0, this, &HelpWindow::StandOver);
    return false;
}

/// At the right edge, so that the screen in hand can be seen beside it.
void HelpWindow::PlaceAside() {
    const QScreen* shownOn = mFrom ? mFrom->screen() : screen();
    const QRect room = shownOn->availableGeometry().adjusted(kEdgeRoom, kTitleRoom, -kEdgeRoom, -kEdgeRoom);
    resize(QSize(TwipsToPixels(kWindowSize.width()), TwipsToPixels(kWindowSize.height()))
               .boundedTo(room.size()));
    move(room.right() - width(), room.top());
}

QString HelpWindow::Wanted() const {
    return txtSearch->text().simplified();
}

void HelpWindow::ShowPage(const QString& page) {
    brwPage->setSource(UrlOf(page), QTextDocument::MarkdownResource);
}

/// The page may have been come to by a link or by the key that goes back. The browser itself names it only
/// later.
void HelpWindow::MarkPage(const QUrl& source) {
    mPage = source.fileName().section(u'.', 0, 0);
    for (int row = 0; row < lstPages->count(); ++row) {
        if (lstPages->item(row)->data(kPageName).toString() == mPage)
            lstPages->setCurrentRow(row);
    }
    const QString title = brwPage->document()->firstBlock().text();
    setWindowTitle(u"Manual - "_s + title);
    brwPage->setAccessibleName(title);
    MarkHits();
}

/// Lists the pages that have the text, and opens the first of them unless the one in hand has it.
void HelpWindow::Search() {
    const QSignalBlocker silence(lstPages);
    lstPages->clear();
    int inHand = -1;
    for (const ManualPage& page : ManualPages()) {
        if (!HasText(page, Wanted()))
            continue;
        auto* item = new QListWidgetItem(page.title, lstPages);
        item->setData(kPageName, page.name);
        if (page.name == mPage)
            inHand = lstPages->count() - 1;
    }
    lblHint->setText(lstPages->count() == 0
                         ? u"No page has this text."_s
                         : u"Escape closes the manual. Ctrl+F searches, F3 goes to the next place, Alt+Left "
                           "goes back."_s);
    if (inHand < 0 && lstPages->count() > 0 && !Wanted().isEmpty())
        ShowPage(lstPages->item(0)->data(kPageName).toString());
    else
        lstPages->setCurrentRow(inHand);
    MarkHits();
}

/// The next place on the page, or the first one of the next page that has the text.
void HelpWindow::FindNext() {
    if (Wanted().isEmpty() || lstPages->count() == 0 || brwPage->find(Wanted()))
        return;
    const int next = (lstPages->currentRow() + 1) % lstPages->count();
    ShowPage(lstPages->item(next)->data(kPageName).toString());
    brwPage->moveCursor(QTextCursor::Start);
    brwPage->find(Wanted());
}

void HelpWindow::MarkHits() {
    QList<QTextEdit::ExtraSelection> hits;
    const QString wanted = Wanted();
    QTextCursor place(brwPage->document());
    while (!wanted.isEmpty() && !(place = brwPage->document()->find(wanted, place)).isNull()) {
        QTextEdit::ExtraSelection hit;
        hit.cursor = place;
        hit.format.setBackground(kHit);
        hits << hit;
    }
    brwPage->setExtraSelections(hits);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape || IsClosingKey(*event))
        close();
    else
        QWidget::keyPressEvent(event);
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    QWidget* back = mFrom && !ModalStack::Covers(mFrom) ? mFrom.data() : ModalStack::Top();
    if (!back && Workspace::Current())
        back = Workspace::Current()->Area()->window();
    if (back && back->isVisible())
        ModalStack::Activate(*back);
}
