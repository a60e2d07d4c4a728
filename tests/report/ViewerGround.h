#pragma once

#include "report/output/ChoosePrinter.h"
#include "report/template/TemplateReader.h"
#include "report/viewer/PageView.h"
#include "report/viewer/ReportViewer.h"
#include "support/AwaitWork.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/UserSettings.h"

#include <QApplication>
#include <QLabel>

/// A viewer over a report of twelve patients in two wards, on four pages, and a database that can be held.
class ReportViewerTest : public ScreenTest {
  protected:
    ReportViewerTest() {
        std::vector<std::vector<Value>> rows;
        for (int i = 1; i <= 12; ++i)
            rows.push_back(
                {QStringLiteral("WARD %1").arg((i - 1) / 6 + 1), QStringLiteral("PATIENT %1").arg(i)});
        database.Set(QStringLiteral("SELECT"), Rows({QStringLiteral("Ward"), QStringLiteral("Name")}, rows));
        viewer->setObjectName(QStringLiteral("CRViewer1"));
        viewer->setWindowTitle(QStringLiteral("Census Report"));
        viewer->resize(800, 400);
        AnsweredFile().clear();
        UserSettings().clear();
    }

    const Seam<QString(QWidget*, const QString&, const QString&, const QString&)>::Replacement saving =
        SaveDialogSeam().Replace([](QWidget*, const QString&, const QString& suggested, const QString&) {
            SuggestedFile() = suggested;
            return AnsweredFile();
        });

    /// What the dialogue for a file's name answers, and what it was offered.
    static QString& AnsweredFile() {
        static QString file;
        return file;
    }
    static QString& SuggestedFile() {
        static QString file;
        return file;
    }

    static QString Parts() {
        return QStringLiteral(
            "<page-header height=\"10\"><text x=\"0\" y=\"0\" width=\"60\">{page} of "
            "{pages}</text></page-header>"
            "<group by=\"Ward\"><header height=\"10\"><text x=\"0\" y=\"0\" "
            "width=\"60\">{Ward}</text></header>"
            "<detail height=\"20\"><text x=\"0\" y=\"0\" width=\"60\">{Name}</text></detail></group>");
    }

    /// Has the report viewed; the rows are still to come.
    void BeginToView(const QString& parts = Parts()) {
        BeginToView(ReadTemplate(QStringLiteral("/r/Census.rpt"), SmallTemplate(parts)));
    }
    void BeginToView(std::shared_ptr<const ReportTemplate> read) {
        auto report = std::make_shared<Report>(std::move(read));
        report->Tables()[0].SetLogOnInfo({}, {}, {}, {});
        viewer->SetReportSource(report);
        viewer->ViewReport();
    }

    void View(const QString& parts = Parts()) {
        View(ReadTemplate(QStringLiteral("/r/Census.rpt"), SmallTemplate(parts)));
    }
    void View(std::shared_ptr<const ReportTemplate> read) {
        BeginToView(std::move(read));
        AwaitWork(*viewer);
        Activate(*viewer);
        viewer->setFocus();
    }

    /// A report with that title, for the 21st of November 2026.
    void ViewTitled(const QString& title) {
        QByteArray content =
            SmallTemplate(QStringLiteral("<parameters><parameter name=\"Day\" type=\"date\" prompt=\"Day\" "
                                         "value=\"11/21/2026\"/></parameters>"));
        content.replace("<report ", "<report title=\"" + title.toUtf8() + "\" ");
        View(ReadTemplate(QStringLiteral("/r/Census.rpt"), content));
    }

    /// A key pressed wherever the focus is, and all that comes of it.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        Press(*QApplication::focusWidget(), key, modifiers);
        RunEvents();
        for (const QWidget* window : QApplication::topLevelWidgets())
            AwaitWork(*window);
    }

    int Page() const { return Find<PageView>(*viewer, "PageView").CurrentPage(); }
    QString Status() const { return Find<QLabel>(*viewer, "lblStatus").text(); }

    ReportDatabase database;
    std::unique_ptr<ReportViewer> viewer = std::make_unique<ReportViewer>();
};
