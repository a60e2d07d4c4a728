#include "gateway/CommandText.h"

#include <stdexcept>

QString CommandText(QStringView text, const QStringList& arguments) {
    constexpr QStringView kPlace = u"{}";
    QString composed;
    for (const QString& argument : arguments) {
        const qsizetype place = text.indexOf(kPlace);
        if (place < 0)
            throw std::logic_error("more arguments than places in a command text");
        composed += text.first(place);
        composed += argument;
        text = text.sliced(place + kPlace.size());
    }
    if (text.contains(kPlace))
        throw std::logic_error("a place without an argument in a command text");
    return composed += text;
}
