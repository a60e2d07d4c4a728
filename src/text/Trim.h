#pragma once

#include <QString>
#include <QStringView>

/// The text without the blanks at its beginning and its end. Tabs, line ends and other kinds of space stay,
/// as the run-time leaves them.
QString Trim(QStringView text);
