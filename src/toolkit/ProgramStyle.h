#pragma once

#include <QProxyStyle>

class QStyleOptionViewItem;

/// How the program's controls are drawn: Fusion in the colours of the look, with edges that can be told from
/// their ground, boxes into which nobody keys apart from the others, one height for boxes and buttons, and a
/// focus that is always seen.
///
/// Fusion keeps the focus to itself until a key has moved it. A clerk who has clicked, or whom a handler has
/// led to a control, would not see where the next key goes. And the marked row of a list stands out only
/// where the list has the focus; elsewhere its mark is pale.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT

  public:
    ProgramStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType kind, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;

  private:
    /// Draws what the program draws by itself; false for anything else.
    bool DrawOwn(PrimitiveElement element, const QStyleOption& option, QPainter& painter,
                 const QWidget* widget) const;
    void DrawItem(const QStyleOptionViewItem& item, QPainter* painter, const QWidget* widget) const;
};
