#pragma once

#include "components/ReportConnector.h"
#include "reporter/Arguments.h"

#include <QString>

#include <memory>

class Report;

/// The file of the template that a command line names: by its path, else by its name in the folder Reports of
/// the program, whether it is there or not.
QString TemplateFile(const QString& name);

/// Opens it. Raises 53 where it is not there, and the template's error with file and line.
std::shared_ptr<Report> OpenTemplate(const QString& name);

/// Gives a report's parameters their values. Raises ArgumentError for one that the report does not have, gets
/// twice or not at all, and for a value that its type does not take.
void Fill(Report& report, const std::vector<GivenValue>& values);

/// Points the tables of a report at another database than the template's own. Raises ArgumentError for a name
/// that is none.
void PointAt(Report& report, const QString& database);

/// Logs the tables of a report on.
void LogTablesOn(Report& report, const ReportLogOn& logOn);

/// Raises 75 where a file has no place to be written to. What else may be wrong with it is seen when it is.
void RequirePlaceFor(const QString& file);

/// Writes the report's pages, or its rows, into the file, whose ending decides. The file takes its place
/// whole or not at all. Raises 75 with the file's path, and what the report raises.
void WriteReport(Report& report, const QString& file);
