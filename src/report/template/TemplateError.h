#pragma once

class QString;
class RunTimeError;

/// The number of every failure of the report engine itself: the first of those that the run-time leaves to
/// components.
constexpr int kReportFailure = -2147220991;

/// The failure for a mistake in a template, naming the file and the line.
RunTimeError TemplateError(const QString& file, int line, const QString& what);

/// The failure for a report that cannot be made for another reason.
RunTimeError ReportError(const QString& what);
