#pragma once

#include <QProxyStyle>

class QStyleOptionViewItem;

/// How the program's controls are drawn: Fusion, with a focus that is always seen.
///
/// Fusion keeps the focus to itself until a key has moved it. A clerk who has clicked, or whom a handler has
/// led to a control, would not see where the next key goes. And the marked row of a list stands out only
/// where the list has the focus; elsewhere its mark is pale.
class ProgramStyle : public QProxyStyle {
    Q_OBJECT

  public:
    ProgramStyle();

    /// The colour of the focus: 3:1 or better beside everything that a control lies on.
    static QColor FocusColor();
    /// The mark of a row or cell whose list does not have the focus. The program's text can be read on it.
    static QColor PaleMarkColor();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

  private:
    void DrawItem(const QStyleOptionViewItem& item, QPainter* painter, const QWidget* widget) const;
};
