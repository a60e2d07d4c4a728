#include "toolkit/ProgramStyle.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr QColor kFocus(0x1f, 0x5f, 0x8b);
constexpr QColor kPaleMark(0xc4, 0xd8, 0xe8);
constexpr int kRing = 2;
constexpr double kCorner = 2;
/// Below this a colour counts as dark.
constexpr int kMiddle = 128;

bool HasFocus(const QStyleOption& option) {
    return (option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_Enabled);
}

/// A ring just inside of the place.
void DrawRing(QPainter& painter, const QRect& place, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, kRing));
    painter.setBrush(Qt::NoBrush);
    const double half = kRing / 2.0;
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), kCorner, kCorner);
    painter.restore();
}

/// On a dark ground, such as a marked row's, the ring is light.
QColor RingOn(const QStyleOption& option) {
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
    const bool isDark = focus && focus->backgroundColor.isValid() && focus->backgroundColor.alpha() > 0 &&
                        qGray(focus->backgroundColor.rgb()) < kMiddle;
    return isDark ? Qt::white : kFocus;
}

/// Lists that drop down have no control beside them that could have the focus.
bool IsMarkedElsewhere(const QStyleOptionViewItem& item, const QWidget* widget) {
    return (item.state & QStyle::State_Selected) && widget && !widget->hasFocus() &&
           widget->window()->windowType() != Qt::Popup;
}

/// While it lives, an option that is drawn has the palette that all equal ones have.
///
/// Fusion keeps what it draws under a name with the palette's number in it, and the toolkit gives each widget
/// a number of its own, whatever the colours. So nothing would be found again once a screen has closed, and
/// the toolkit forgets none of the names.
class SharedPalette {
  public:
    explicit SharedPalette(const QStyleOption& option)
        // The option is a variable of whoever paints.
        : mOption(const_cast<QStyleOption&>(option))
        , mOwn(option.palette) {
        mOption.palette = FirstLike(mOwn);
        mOption.palette.setCurrentColorGroup(mOwn.currentColorGroup());
    }
    SharedPalette(const SharedPalette&) = delete;
    SharedPalette& operator=(const SharedPalette&) = delete;
    ~SharedPalette() { mOption.palette = mOwn; }

  private:
    /// The program has some few palettes.
    static const QPalette& FirstLike(const QPalette& palette) {
        static std::vector<QPalette> palettes;
        const auto known = std::ranges::find(palettes, palette);
        return known != palettes.end() ? *known : palettes.emplace_back(palette);
    }

    QStyleOption& mOption;
    const QPalette mOwn;
};

} // namespace

ProgramStyle::ProgramStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}

QColor ProgramStyle::FocusColor() {
    return kFocus;
}

QColor ProgramStyle::PaleMarkColor() {
    return kPaleMark;
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const SharedPalette shared(*option);
    if (element == PE_FrameFocusRect)
        return DrawRing(*painter, option->rect, RingOn(*option));
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    if (element == PE_PanelItemViewRow && item) {
        // The mark belongs to the cells, which know whether they bear one.
        QStyleOptionViewItem plain(*item);
        plain.state &= ~State_Selected;
        return QProxyStyle::drawPrimitive(element, &plain, painter, widget);
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if ((element == PE_FrameLineEdit || element == PE_PanelButtonCommand) && HasFocus(*option))
        DrawRing(*painter, option->rect, kFocus);
}

void ProgramStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const SharedPalette shared(*option);
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    if (element == CE_ItemViewItem && item)
        return DrawItem(*item, painter, widget);
    QProxyStyle::drawControl(element, option, painter, widget);
    // An empty list has no row on which the focus could be seen.
    if (element == CE_ShapedFrame && HasFocus(*option) && qobject_cast<const QAbstractScrollArea*>(widget))
        DrawRing(*painter, option->rect, kFocus);
}

void ProgramStyle::DrawItem(const QStyleOptionViewItem& item, QPainter* painter,
                            const QWidget* widget) const {
    QStyleOptionViewItem drawn(item);
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    // Where the whole row is marked, a ring round one of its cells would mean nothing.
    if (view && view->selectionBehavior() == QAbstractItemView::SelectRows)
        drawn.state &= ~State_HasFocus;
    if (IsMarkedElsewhere(item, widget)) {
        drawn.state &= ~State_Selected;
        drawn.backgroundBrush = kPaleMark;
    }
    QProxyStyle::drawControl(CE_ItemViewItem, &drawn, painter, widget);
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    const SharedPalette shared(*option);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control != CC_ComboBox || !combo || !HasFocus(*combo))
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    QStyleOptionComboBox plain(*combo);
    plain.state &= ~State_HasFocus;
    QProxyStyle::drawComplexControl(control, &plain, painter, widget);
    DrawRing(*painter, option->rect, kFocus);
}
