#include "toolkit/ProgramStyle.h"

#include "toolkit/Colors.h"
#include "toolkit/Look.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRing = 2;
/// The least height of a box or a button: what a pointer hits without care.
constexpr int kLeastHeight = Space::kWide + Space::kNormal;
/// The edge of a box.
constexpr int kEdge = 1;
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
    return isDark ? TheColors().onMark : TheColors().focus;
}

/// A ground with an edge, a line wide.
void DrawPanel(QPainter& painter, const QRect& place, const QBrush& ground, const QColor& edge) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, kEdge));
    painter.setBrush(ground);
    const double half = kEdge / 2.0;
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), kCorner, kCorner);
    painter.restore();
}

bool IsKeyedIn(const QStyleOption& option) {
    return (option.state & QStyle::State_Enabled) && !(option.state & QStyle::State_ReadOnly);
}

/// A box into which nobody keys lies flat on the screen.
void DrawBox(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const Colors& colors = TheColors();
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    const bool isWrong = widget && widget->property("wrong").toBool();
    const QColor ground = isWrong             ? colors.wrong
                          : IsKeyedIn(option) ? option.palette.color(QPalette::Base)
                                              : colors.shown;
    if (!frame || frame->lineWidth == 0)
        return painter.fillRect(option.rect, ground);
    DrawPanel(painter, option.rect, ground, IsKeyedIn(option) ? colors.line : ground);
    if (HasFocus(option))
        DrawRing(painter, option.rect, colors.focus);
    else if (isWrong)
        DrawRing(painter, option.rect, colors.problem);
}

void DrawButton(const QStyleOption& option, QPainter& painter) {
    const Colors& colors = TheColors();
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool isEnabled = (option.state & QStyle::State_Enabled) != 0;
    const bool isHeld = (option.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
    const bool isDefault = button && (button->features & QStyleOptionButton::DefaultButton);
    const QColor ground = !isEnabled ? colors.window
                          : isHeld   ? colors.held
                                     : option.palette.color(QPalette::Button);
    DrawPanel(painter, option.rect, ground,
              !isEnabled  ? colors.grid
              : isDefault ? colors.focus
                          : colors.line);
    if (HasFocus(option))
        DrawRing(painter, option.rect, colors.focus);
}

/// The square or circle of a choice, with its sign where it is taken.
QRect DrawChoice(const QStyleOption& option, QPainter& painter, double corner) {
    const bool isEnabled = (option.state & QStyle::State_Enabled) != 0;
    const Colors& colors = TheColors();
    const int side = qMin(option.rect.width(), option.rect.height());
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {side, side}, option.rect);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isEnabled ? colors.line : colors.grid, kEdge));
    painter.setBrush(isEnabled ? colors.field : colors.window);
    const double half = kEdge / 2.0;
    painter.drawRoundedRect(QRectF(place).adjusted(half, half, -half, -half), corner, corner);
    painter.setPen(QPen(isEnabled ? colors.text : colors.quiet, kRing));
    painter.setBrush(isEnabled ? colors.text : colors.quiet);
    return place;
}

void DrawCheckBox(const QStyleOption& option, QPainter& painter) {
    painter.save();
    const QRectF box = DrawChoice(option, painter, kCorner);
    painter.setBrush(Qt::NoBrush);
    const auto at = [&box](double x, double y) {
        return QPointF(box.left() + box.width() * x, box.top() + box.height() * y);
    };
    if (option.state & QStyle::State_On)
        painter.drawPolyline(QPolygonF({at(0.25, 0.5), at(0.43, 0.7), at(0.77, 0.28)}));
    painter.restore();
}

void DrawRadioButton(const QStyleOption& option, QPainter& painter) {
    painter.save();
    const QRectF circle = DrawChoice(option, painter, option.rect.width() / 2.0);
    painter.setPen(Qt::NoPen);
    if (option.state & QStyle::State_On)
        painter.drawEllipse(circle.center(), circle.width() / 4, circle.height() / 4);
    painter.restore();
}

/// One height for boxes and buttons, which stand side by side.
int ControlHeight(const QStyleOption& option) {
    return qMax(kLeastHeight, option.fontMetrics.height() + 2 * (Space::kTight + kEdge));
}

/// The file of a message box's sign; null for any other icon.
const char* SignOf(QStyle::StandardPixmap icon) {
    switch (icon) {
    case QStyle::SP_MessageBoxCritical:
        return "critical";
    case QStyle::SP_MessageBoxQuestion:
        return "question";
    case QStyle::SP_MessageBoxWarning:
        return "exclamation";
    case QStyle::SP_MessageBoxInformation:
        return "information";
    default:
        return nullptr;
    }
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

bool ProgramStyle::DrawOwn(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                           const QWidget* widget) const {
    switch (element) {
    case PE_FrameFocusRect:
        DrawRing(painter, option.rect, RingOn(option));
        return true;
    case PE_PanelLineEdit:
        DrawBox(option, painter, widget);
        return true;
    case PE_PanelButtonCommand:
        DrawButton(option, painter);
        return true;
    case PE_FrameTabWidget:
        // The pages of a screen lie on the screen's ground.
        DrawPanel(painter, option.rect, TheColors().window, TheColors().line);
        return true;
    case PE_IndicatorCheckBox:
        DrawCheckBox(option, painter);
        return true;
    case PE_IndicatorRadioButton:
        DrawRadioButton(option, painter);
        return true;
    default:
        return false;
    }
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const SharedPalette shared(*option);
    if (DrawOwn(element, *option, *painter, widget))
        return;
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    if (element == PE_PanelItemViewRow && item) {
        // The mark belongs to the cells, which know whether they bear one.
        QStyleOptionViewItem plain(*item);
        plain.state &= ~State_Selected;
        return QProxyStyle::drawPrimitive(element, &plain, painter, widget);
    }
    // The edge of a list; that of a list that drops down is a menu's.
    if (element == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget))
        return DrawPanel(*painter, option->rect, Qt::NoBrush, TheColors().line);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_FrameLineEdit && HasFocus(*option))
        DrawRing(*painter, option->rect, TheColors().focus);
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
        DrawRing(*painter, option->rect, TheColors().focus);
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
        drawn.backgroundBrush = TheColors().paleMark;
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
    DrawRing(*painter, option->rect, TheColors().focus);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
    // Both ways alike: a layout inside of one that spaces differently each way has no spacing at all.
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return Space::kNormal;
    case PM_DefaultFrameWidth:
        // Else what a list shows would cover half of its ring.
        if (qobject_cast<const QAbstractScrollArea*>(widget))
            return kRing;
        break;
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* data) const {
    if (hint == SH_Table_GridLineColor)
        return int(TheColors().grid.rgb());
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    // The menu bar asks for it at each event of the main window, and the styles below are long about it.
    if (hint == SH_MenuBar_AltKeyNavigation)
        return 1;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QSize ProgramStyle::sizeFromContents(ContentsType kind, const QStyleOption* option, const QSize& contents,
                                     const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(kind, option, contents, widget);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    // A picture may be higher.
    const int picture = button && !button->icon.isNull() ? button->iconSize.height() + Space::kNormal : 0;
    if (kind == CT_LineEdit || kind == CT_ComboBox || kind == CT_PushButton)
        size.setHeight(qMax(ControlHeight(*option), picture));
    return size;
}

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    const char* sign = SignOf(icon);
    return sign ? ProgramIcon(QString::fromLatin1(sign)) : QProxyStyle::standardIcon(icon, option, widget);
}
