#pragma once

#include "report/template/ReportTemplate.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// In bytes. What a page is laid out with grows with the square of its texts.
constexpr qsizetype kLargestTemplate = qsizetype(1024) * 1024;

/// Reads a template's content. Every mistake in it raises an error that names the file and the line. Pictures
/// are read from the folder of the file; `file` itself is not opened.
std::shared_ptr<const ReportTemplate> ReadTemplate(const QString& file, const QByteArray& content);

/// Whether a text is Database.owner.table, as a table's location must be. The owner may be left out between
/// the two dots; a part may stand in brackets.
bool IsTableLocation(const QString& location);
