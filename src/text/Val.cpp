#include "text/Val.h"

#include <QByteArray>

namespace {

bool IsSkipped(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

bool IsLatinDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

double Val(QStringView text) {
    QByteArray number;
    bool pointSeen = false;
    for (const QChar c : text) {
        if (IsSkipped(c))
            continue;
        if (IsLatinDigit(c)) {
            number.append(static_cast<char>(c.unicode()));
        } else if (c == u'.' && !pointSeen) {
            pointSeen = true;
            number.append('.');
        } else if ((c == u'-' || c == u'+') && number.isEmpty()) {
            number.append(static_cast<char>(c.unicode()));
        } else {
            break;
        }
    }
    // A lone sign or point is no number; toDouble then answers 0.
    return number.toDouble();
}
