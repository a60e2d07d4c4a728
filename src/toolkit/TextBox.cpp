#include "toolkit/TextBox.h"

#include "toolkit/Keys.h"
#include "toolkit/WholeText.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionFrame>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Which the toolkit keeps free on either side of a box's text, in pixels.
constexpr int kSideMargin = 2;

/// Where a copied text goes on in another line, or in another cell of a sheet.
bool EndsCell(QChar c) {
    const bool isLineEnd = c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == QChar(0x85);
    return isLineEnd || c == u'\t' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

/// Line ends, tabs, and what steers a text without being seen.
bool IsUnseen(QChar c) {
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

/// As much of a text as is seen, so many characters at most, of the first line or cell that holds any: run
/// together, a quantity and the price beside it would be another quantity.
QString SeenOf(const QString& text, qsizetype most) {
    QString seen;
    for (const QChar c : text) {
        const bool isBlank = EndsCell(c) && seen.trimmed().isEmpty();
        if (seen.size() == most || (EndsCell(c) && !isBlank))
            break;
        if (isBlank)
            seen.clear();
        if (!IsUnseen(c))
            seen += c;
    }
    // Half a character would be no text that a server takes.
    if (!seen.isEmpty() && seen.back().isHighSurrogate())
        seen.chop(1);
    return seen;
}

} // namespace

TextBox::TextBox(QWidget* parent)
    : QLineEdit(parent) {}

bool TextBox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty())
        return QLineEdit::event(event);
    ShowWholeText(*this, static_cast<QHelpEvent&>(*event), IsCut() ? text() : QString());
    return true;
}

/// Whether the box has too little room for what is read in it; a password is not read.
bool TextBox::IsCut() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width();
    return echoMode() == Normal && fontMetrics().horizontalAdvance(text()) > room - 2 * kSideMargin;
}

void TextBox::paste() {
    Offer(QGuiApplication::clipboard()->text());
}

void TextBox::Offer(const QString& text) {
    mOffered = text;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, u"\x16"_s);
    QApplication::sendEvent(this, &key);
    mOffered.reset();
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (!isReadOnly() && event->matches(QKeySequence::Paste)) {
        const QString text =
            mOffered ? *std::exchange(mOffered, std::nullopt) : QGuiApplication::clipboard()->text();
        TakeText(SeenOf(text, maxLength()));
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || isReadOnly() || !clipboard->supportsSelection())
        return QLineEdit::mouseReleaseEvent(event);
    deselect();
    Offer(clipboard->text(QClipboard::Selection));
}

void TextBox::dropEvent(QDropEvent* event) {
    if (isReadOnly())
        return;
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    event->acceptProposedAction();
    Offer(event->mimeData()->text());
}

void TextBox::TakeText(const QString& text) {
    const QString taken = PassedAsKeys(this, SeenOf(text, qMax(Room(), 0)));
    if (!taken.isEmpty())
        insert(taken);
}

/// How many characters more the box takes, in the place of what is marked.
qsizetype TextBox::Room() const {
    return maxLength() - (text().size() - selectionLength());
}
