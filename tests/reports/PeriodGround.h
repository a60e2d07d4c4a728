#pragma once

#include "components/shared.h"
#include "reports/Reports.h"
#include "support/FakeWorkspace.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "toolkit/MousePointer.h"
#include "toolkit/Screens.h"

#include <QDir>

#include <functional>
#include <optional>

/// What a report was opened with and how it was presented.
struct ShownReport {
    /// The path behind the program's directory, as it was written.
    QString path;
    QString title;
    std::vector<QString> values;
};

/// The dialogues of the department's reports in a main window, over templates of any parameters.
class PeriodGround : public ScreenTest {
  protected:
    PeriodGround() {
        database.Set(QStringLiteral("SELECT"), Rows({QStringLiteral("A")}, {{QStringLiteral("row")}}));
        gHospitalName = QStringLiteral("SAMPAGUITA GENERAL HOSPITAL");
        gHospitalAddress = QStringLiteral("128 Rizal Avenue");
        QDir(programDirectory.path()).mkdir(QStringLiteral("Reports"));
        Activate(workspace);
    }
    ~PeriodGround() override {
        Screens::Clear();
        gReport = nullptr;
    }

    /// Puts a template with so many text parameters into the folder of the reports. One that gets no value
    /// says "not given".
    void PutTemplate(const QString& name, int parameters) {
        QString fields;
        for (int i = 1; i <= parameters; ++i)
            fields +=
                QStringLiteral("<parameter name=\"P%1\" type=\"text\" prompt=\"P%1\" value=\"not given\"/>")
                    .arg(i);
        if (parameters > 0)
            fields = QStringLiteral("<parameters>") + fields + QStringLiteral("</parameters>");
        WriteFile(programDirectory, QStringLiteral("Reports/") + name,
                  SmallTemplate(fields + QStringLiteral("<group by=\"A\"><header height=\"5\"/></group>")));
    }

    /// Runs the action and answers the report that it presents modally; nothing when it presents none.
    std::optional<ShownReport> ReportOf(const std::function<void()>& action) {
        std::optional<ShownReport> shown;
        QTimer::singleShot(0, qApp, [this, &shown] {
            QWidget* modal = QApplication::activeModalWidget();
            auto* viewer = qobject_cast<Form*>(modal);
            if (!viewer) {
                EXPECT_EQ(modal, nullptr) << "no viewer";
                if (modal)
                    modal->close();
                return;
            }
            EXPECT_EQ(viewer->objectName(), QStringLiteral("frmReportviewer"));
            EXPECT_EQ(CurrentMousePointer(), MousePointer::Default) << "the clerk reads without an hourglass";
            AwaitWork(*viewer);
            EXPECT_TRUE(gReport->Path().startsWith(programDirectory.path()));
            shown =
                ShownReport{gReport->Path().mid(programDirectory.path().size()), viewer->windowTitle(), {}};
            if (whileShown)
                whileShown();
            for (const ParameterField& field : gReport->ParameterFields())
                shown->values.push_back(field.CurrentValue()->ToText());
            viewer->Unload();
        });
        action();
        // Without a report the timer is still to run.
        RunEvents();
        return shown;
    }

    /// Called while a report shows.
    std::function<void()> whileShown;
    FakeWorkspace workspace;
    ReportDatabase database;
};
