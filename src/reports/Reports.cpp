#include "reports/Reports.h"

#include "components/shared.h"
#include "report/output/PrintJob.h"
#include "report/ReportEngine.h"
#include "report/viewer/ReportViewer.h"
#include "reports/frmReport.h"
#include "reports/frmReportviewer.h"
#include "text/UCase.h"
#include "toolkit/MousePointer.h"

#include <QPrinter>

#include <algorithm>

void OpenReport(const QString& path, const std::vector<Value>& values) {
    const size_t given = values.size();
    gReport = ReportEngine().OpenReport(path, kOpenOption);
    for (ReportTable& table : gReport->Tables())
        table.SetLogOnInfo(gCurrentUser->ServerName(), gCurrentUser->Database(), gCurrentUser->UserId(),
                           gCurrentUser->serverpassword());
    std::vector<ParameterField>& fields = gReport->ParameterFields();
    const size_t filled = std::min(fields.size(), given);
    for (size_t i = 0; i < filled; ++i)
        fields[i].AddCurrentValue(fields[i].TakesDates() ? Value(values[i].ToDate()) : values[i]);
}

void ShowReport(bool showGroupTree, const QString& title, bool directPrint) {
    auto viewer = std::make_unique<frmReportviewer>();
    viewer->SetShowGroupTree(showGroupTree);
    viewer->setWindowTitle(title);
    viewer->SetDirectPrint(directPrint);
    // The caller still waits, but the clerk is asked for values and reads the slip without an hourglass.
    // While the rows are fetched the viewer shows one of its own.
    const MousePointer callers = CurrentMousePointer();
    SetMousePointer(MousePointer::Default);
    viewer->Load();
    // A screen that was shown modally deletes itself when its loop has ended.
    viewer.release()->ShowModal();
    SetMousePointer(callers);
}

void OpenReportOn(const QString& database, const QString& path, const ParameterText& textOf) {
    gReport = ReportEngine().OpenReport(path, kOpenOption);
    for (ReportTable& table : gReport->Tables())
        SetTableLogOn(table, database);
    if (!textOf)
        return;
    for (ParameterField& field : gReport->ParameterFields()) {
        if (const std::optional<QString> text = textOf(UCase(field.Name())))
            field.SetCurrentValue(*text);
    }
}

std::unique_ptr<frmReport> ViewReport(const QString& title, bool showGroupTree, ViewerSwitch viewerSwitch) {
    auto window = std::make_unique<frmReport>();
    window->setWindowTitle(title);
    window->crvReport->EnableGroupTree(showGroupTree);
    if (viewerSwitch == ViewerSwitch::Switch258)
        window->crvReport->SetSwitch258(true);
    else
        window->crvReport->SetSwitch259(true);
    window->crvReport->SetReportSource(gReport.Shared());
    window->crvReport->ViewReport();
    return window;
}

void PrintReport(QPrinter& printer) {
    const auto pages = gReport->Document();
    const QString problem = PrintAtOnce(*pages, printer);
    if (!problem.isEmpty())
        throw RunTimeError(RunTime::kPrinterError, problem);
}

void SetTableLogOn(ReportTable& table, const QString& databaseName) {
    const QString location = table.Location();
    table.SetLocation(databaseName + location.mid(location.indexOf(u'.')));
    table.SetLogOnInfo(gCurrentUser->ServerName(), databaseName, gCurrentUser->UserId(),
                       gCurrentUser->serverpassword());
}
