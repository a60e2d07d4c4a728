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

/// Logs the tables of a report on, in another database than the template's own where one is named. Raises an
/// error for a name that is none.
void LogTablesOn(Report& report, const QString& otherDatabase, const ReportLogOn& logOn);

/// Writes the report's pages, or its rows, into the file, whose ending decides. The file takes its place
/// whole or not at all. Raises 75 with the file's path, and what the report raises.
void WriteReport(Report& report, const QString& file);
