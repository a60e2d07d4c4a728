#include "text/IsNumeric.h"

namespace {

bool IsCurrency(QChar c) {
    return c == u'$' || c == u'₱';
}

/// Takes the sign or the pair of parentheses away; false when the text has more than one of them.
bool TakeSign(QStringView& text) {
    if (text.startsWith(u'(') && text.endsWith(u')') && text.size() > 1) {
        text = text.mid(1, text.size() - 2).trimmed();
        return true;
    }
    const bool before = text.startsWith(u'-') || text.startsWith(u'+');
    if (before)
        text = text.mid(1).trimmed();
    if (text.endsWith(u'-') || text.endsWith(u'+')) {
        text = text.chopped(1).trimmed();
        return !before;
    }
    return true;
}

/// Digits with commas among them and at most one point; at least one digit.
bool IsPlainNumber(QStringView text) {
    bool digitSeen = false;
    bool pointSeen = false;
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9') {
            digitSeen = true;
        } else if (c == u'.' && !pointSeen) {
            pointSeen = true;
        } else if (c != u',' || !digitSeen || pointSeen) {
            return false;
        }
    }
    return digitSeen;
}

} // namespace

bool IsNumeric(QStringView text) {
    text = text.trimmed();
    if (!text.isEmpty() && IsCurrency(text.front())) {
        // "$-5" is a number as "-$5" is.
        text = text.mid(1).trimmed();
        return TakeSign(text) && IsPlainNumber(text);
    }
    if (!TakeSign(text))
        return false;
    if (!text.isEmpty() && IsCurrency(text.front()))
        text = text.mid(1).trimmed();
    return IsPlainNumber(text);
}
