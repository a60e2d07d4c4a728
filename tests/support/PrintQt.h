#pragma once

#include <QString>

#include <ostream>

// GoogleTest finds these by their names when it prints what was expected and what came.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(QChar c, std::ostream* out) {
    *out << QString(c).toStdString();
}
