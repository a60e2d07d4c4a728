#pragma once

#include <QLabel>
#include <QString>

/// One panel of the status bar. A panel of date or time style keeps showing date or time, whatever its text
/// is; the text is then its tip.
class StatusPanel : public QLabel {
    Q_OBJECT

  public:
    enum class Style { Text, Date, Time };

    StatusPanel(Style style, const QString& name, QWidget* parent);

    void SetText(const QString& text);
    QString Text() const { return mText; }

  private:
    void ShowMoment();

    Style mStyle;
    QString mText;
};
