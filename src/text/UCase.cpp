#include "text/UCase.h"

QChar UCase(QChar c) {
    return c.toUpper();
}

QString UCase(QStringView text) {
    QString upper = text.toString();
    for (QChar& c : upper)
        c = UCase(c);
    return upper;
}
