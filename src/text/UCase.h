#pragma once

#include <QString>
#include <QStringView>

/// The upper-case form of one keyed character; ñ becomes Ñ, and what has no single upper-case form stays.
QChar UCase(QChar c);

/// A text with each character in its upper-case form. Its length never changes.
QString UCase(QStringView text);
