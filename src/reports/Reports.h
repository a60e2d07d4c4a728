#pragma once

#include "components/Ref.h"
#include "report/Report.h"

#include <QString>

#include <vector>

/// The one report open in the engine. Set by whoever opens a report; unset again when its viewer closes or,
/// with the direct openers, when the caller has finished.
inline Ref<Report> gReport;

/// Opens a template into gReport, logs its tables on as the user who is signed on, and fills its parameters
/// with the values in order. Surplus values are dropped, and surplus parameters keep what the template has. A
/// value for a date parameter is turned into a date first, which raises 13 when it names none.
void OpenReport(const QString& path, const std::vector<Value>& values);

/// Presents gReport in a window of its own and returns when the window has closed.
void ShowReport(bool showGroupTree, const QString& title, bool directPrint);

/// Points a table at another database and logs it on there.
void SetTableLogOn(ReportTable& table, const QString& databaseName);
