#include "toolkit/WholeText.h"

#include <QHelpEvent>
#include <QToolTip>

void ShowWholeText(QWidget& control, const QHelpEvent& event, const QString& text) {
    // What a patient is called is no markup, and a tip of markup wraps.
    QToolTip::showText(event.globalPos(), text.isEmpty() ? text : text.toHtmlEscaped().prepend(u"<p>"),
                       &control);
}
