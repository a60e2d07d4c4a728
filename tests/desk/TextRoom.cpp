#include "desk/TextRoom.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

namespace {

/// What a box keeps free on each side of its text, and the style on both sides of a screen's title.
constexpr int kBoxMargin = 2;
constexpr int kTitleMargins = 14;

QSize CaptionSize(const QWidget& control, const QString& text) {
    return control.fontMetrics().size(Qt::TextShowMnemonic, text);
}

std::vector<TextRoom> TextsOf(const QLabel& label) {
    if (label.text().isEmpty())
        return {};
    const QSize needs = label.wordWrap()
                            ? QSize(label.minimumSizeHint().width(), label.heightForWidth(label.width()))
                            : label.sizeHint();
    return {{label.text(), needs, label.size()}};
}

/// A button of any kind; `contents` is where the style puts its caption.
std::vector<TextRoom> TextsOf(const QAbstractButton& button, QStyle::SubElement contents) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const QSize room = button.style()->subElementRect(contents, &option, &button).size();
    QSize needs = CaptionSize(button, button.text());
    if (!button.icon().isNull())
        needs.rwidth() += button.iconSize().width();
    return {{button.text(), needs, room}};
}

std::vector<TextRoom> TextsOf(const QToolButton& button) {
    const bool showsText = button.icon().isNull() || button.toolButtonStyle() != Qt::ToolButtonIconOnly;
    if (!showsText || button.text().isEmpty() || button.arrowType() != Qt::NoArrow)
        return {};
    return {{button.text(), button.sizeHint(), button.size()}};
}

std::vector<TextRoom> TextsOf(const QGroupBox& frame) {
    if (frame.title().isEmpty())
        return {};
    QStyleOptionGroupBox option;
    option.initFrom(&frame);
    option.text = frame.title();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    const QRect label =
        frame.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &frame);
    const QSize room(frame.width() - label.left(), label.height());
    return {{frame.title(), CaptionSize(frame, frame.title()), room}};
}

std::vector<TextRoom> TextsOf(const QHeaderView& header) {
    std::vector<TextRoom> texts;
    const int margins = 2 * header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
    for (int section = 0; section < header.count(); ++section) {
        const QString text =
            header.model()->headerData(section, header.orientation(), Qt::DisplayRole).toString();
        if (header.isSectionHidden(section) || text.isEmpty() || header.orientation() == Qt::Vertical)
            continue;
        QSize needs = header.fontMetrics().size(0, text) + QSize(margins, 0);
        if (header.isSortIndicatorShown() && header.sortIndicatorSection() == section)
            needs.rwidth() += header.style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, &header);
        texts.push_back({text, needs, QSize(header.sectionSize(section), header.height())});
    }
    return texts;
}

std::vector<TextRoom> TextsOf(const QTabBar& bar) {
    std::vector<TextRoom> texts;
    for (int tab = 0; tab < bar.count(); ++tab) {
        QStyleOptionTab option;
        option.initFrom(&bar);
        option.rect = bar.tabRect(tab).intersected(bar.rect());
        option.text = bar.tabText(tab);
        option.shape = bar.shape();
        const QRect room = bar.style()->subElementRect(QStyle::SE_TabBarTabText, &option, &bar);
        texts.push_back({bar.tabText(tab), CaptionSize(bar, bar.tabText(tab)), room.size()});
    }
    return texts;
}

std::vector<TextRoom> TextsOf(const QMenuBar& bar) {
    std::vector<TextRoom> texts;
    for (QAction* action : bar.actions()) {
        if (!action->isVisible())
            continue;
        const QSize room = bar.actionGeometry(action).intersected(bar.rect()).size();
        texts.push_back({action->text(), CaptionSize(bar, action->text()), room});
    }
    return texts;
}

std::vector<TextRoom> TextsOf(const QComboBox& combo) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.editable = combo.isEditable();
    option.frame = combo.hasFrame();
    const QRect room =
        combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
    return {{combo.currentText(), combo.fontMetrics().size(0, combo.currentText()), room.size()}};
}

/// A text that is too long for its box is keyed and read by moving the caret; where nobody can, it must fit.
std::vector<TextRoom> TextsOf(const QLineEdit& box) {
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth =
        box.hasFrame() ? box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box) : 0;
    option.features = QStyleOptionFrame::None;
    QSize room = box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box).size();
    const QString& shown = box.text().isEmpty() ? box.placeholderText() : box.displayText();
    QSize needs = box.fontMetrics().size(0, shown);
    const bool isKeyed = box.isEnabled() && box.focusPolicy() != Qt::NoFocus;
    needs.setWidth(isKeyed ? 0 : needs.width() + 2 * kBoxMargin);
    return {{shown, needs, room}};
}

std::vector<TextRoom> TextsOf(const QMdiSubWindow& screen) {
    if (screen.isMaximized())
        return {};
    QStyleOptionTitleBar option;
    option.initFrom(&screen);
    option.titleBarFlags = screen.windowFlags();
    option.rect.setHeight(screen.style()->pixelMetric(QStyle::PM_TitleBarHeight, &option, &screen));
    const QRect room =
        screen.style()->subControlRect(QStyle::CC_TitleBar, &option, QStyle::SC_TitleBarLabel, &screen);
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return {
        {screen.windowTitle(), metrics.size(0, screen.windowTitle()) + QSize(kTitleMargins, 0), room.size()}};
}

} // namespace

std::vector<TextRoom> TextsOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return TextsOf(*label);
    if (const auto* push = qobject_cast<const QPushButton*>(&control))
        return TextsOf(*push, QStyle::SE_PushButtonContents);
    if (const auto* check = qobject_cast<const QCheckBox*>(&control))
        return TextsOf(*check, QStyle::SE_CheckBoxContents);
    if (const auto* radio = qobject_cast<const QRadioButton*>(&control))
        return TextsOf(*radio, QStyle::SE_RadioButtonContents);
    if (const auto* tool = qobject_cast<const QToolButton*>(&control))
        return TextsOf(*tool);
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control))
        return TextsOf(*frame);
    if (const auto* header = qobject_cast<const QHeaderView*>(&control))
        return TextsOf(*header);
    if (const auto* tabs = qobject_cast<const QTabBar*>(&control))
        return TextsOf(*tabs);
    if (const auto* menus = qobject_cast<const QMenuBar*>(&control))
        return TextsOf(*menus);
    if (const auto* combo = qobject_cast<const QComboBox*>(&control))
        return TextsOf(*combo);
    if (const auto* box = qobject_cast<const QLineEdit*>(&control))
        return TextsOf(*box);
    if (const auto* screen = qobject_cast<const QMdiSubWindow*>(&control))
        return TextsOf(*screen);
    return {};
}
