#pragma once

#include "components/Ref.h"
#include "report/Report.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class frmReport;
class QPrinter;

/// The one report open in the engine. Set by whoever opens a report; unset again when its viewer closes or,
/// with the direct openers, when the caller has finished.
inline Ref<Report> gReport;

/// Opens a template into gReport, logs its tables on as the user who is signed on, and fills its parameters
/// with the values in order. Surplus values are dropped, and surplus parameters keep what the template has. A
/// value for a date parameter is turned into a date first, which raises 13 when it names none.
void OpenReport(const QString& path, const std::vector<Value>& values);

/// Presents gReport in a window of its own and returns when the window has closed.
void ShowReport(bool showGroupTree, const QString& title, bool directPrint);

/// Answers what a parameter of that name is filled with, nothing for one that keeps what the template has.
/// The names come in upper case, in the template's order.
using ParameterText = std::function<std::optional<QString>(const QString& name)>;

/// Opens a template into gReport, points its tables at another database, where the user who is signed
/// on logs on, and fills its parameters by their names. For the direct openers.
void OpenReportOn(const QString& database, const QString& path, const ParameterText& textOf = {});

/// Points a table at another database and logs it on there.
void SetTableLogOn(ReportTable& table, const QString& databaseName);

/// Switches of the viewer without an effect in this release.
enum class ViewerSwitch { Switch258, Switch259 };

/// A window of its own over gReport, with the rows being fetched, for the direct openers; the caller shows
/// it. It deletes itself when it has been closed, and goes on showing what it has when another report is
/// opened.
std::unique_ptr<frmReport> ViewReport(const QString& title, bool showGroupTree, ViewerSwitch viewerSwitch);

/// Prints gReport at one go on that printer. Raises 482 with what failed.
void PrintReport(QPrinter& printer);
