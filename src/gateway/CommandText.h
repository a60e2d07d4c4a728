#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// Composes a command text: each "{}" of the text gives its place to one argument, in their order.
///
/// Arguments go in as they stand. Nothing is escaped or trimmed, and a "{}" inside an argument is no place.
/// Raises std::logic_error when places and arguments are not as many.
QString CommandText(QStringView text, const QStringList& arguments = {});
