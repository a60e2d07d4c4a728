#pragma once

#include "components/ReportConnector.h"
#include "reports/Reports.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "toolkit/ProgramFiles.h"

#include <QDir>
#include <QFile>

#include <functional>

/// Puts a report of text parameters over one table into the program's directory, under any path below it.
inline void PutTemplate(const QTemporaryDir& programDirectory, const QString& path,
                        const QStringList& parameters) {
    QString fields;
    for (const QString& name : parameters)
        fields += QStringLiteral("<parameter name=\"%1\" type=\"text\" prompt=\"%1\"/>").arg(name);
    const QString text =
        QStringLiteral("<report paper=\"100x100\" margins=\"0 0 0 0\"><parameters>") + fields +
        QStringLiteral("</parameters><tables><table name=\"Lines\" location=\"Clinical_Area.dbo.tbLines\"/>"
                       "</tables><query>SELECT ItemID FROM {Lines}</query></report>");
    const QString file = programDirectory.filePath(path);
    QDir().mkpath(QFileInfo(file).path());
    QFile output(file);
    if (!output.open(QIODevice::WriteOnly) || output.write(text.toUtf8()) <= 0)
        throw std::runtime_error("The template of the test cannot be written.");
}

/// The charge slip with its ten parameters in the program's directory, and what it is filled with. Reports
/// read one line of any database.
class ChargeSlipPrint {
  public:
    explicit ChargeSlipPrint(const QTemporaryDir& programDirectory) {
        QStringList names;
        for (int i = 1; i <= 10; ++i)
            names << QStringLiteral("P%1").arg(i);
        PutTemplate(programDirectory, QStringLiteral("Reports/Charge_Slip.RPT"), names);
        SetReportConnector([](const ReportLogOn& logOn) {
            const QString database = logOn.database == QStringLiteral("REPORTS")
                                         ? QStringLiteral("REPORTS")
                                         : QStringLiteral("Clinical_Area");
            auto connection = std::make_unique<ScriptedGateway>();
            connection->Expect(QStringLiteral("SELECT ItemID FROM %1.dbo.tbLines").arg(database),
                               Rows({QStringLiteral("ItemID")}, {{QStringLiteral("S1")}}));
            return connection;
        });
    }
    ChargeSlipPrint(const ChargeSlipPrint&) = delete;
    ChargeSlipPrint& operator=(const ChargeSlipPrint&) = delete;
    ~ChargeSlipPrint() {
        SetReportConnector({});
        gReport = {};
    }

    /// Runs the print and answers the values of the slip that its viewer shows under the title.
    static std::vector<QString> Values(const QString& title, const std::function<void()>& print) {
        std::vector<QString> values;
        WhileModal([&values, title](Form& viewer) {
            EXPECT_EQ(viewer.objectName(), QStringLiteral("frmReportviewer"));
            EXPECT_EQ(viewer.windowTitle(), title);
            EXPECT_EQ(gReport->Path(), ProgramDirectory() + QStringLiteral("/Reports/Charge_Slip.RPT"));
            for (const ParameterField& field : gReport->ParameterFields())
                values.push_back(field.CurrentValue()->ToText());
        });
        print();
        return values;
    }
};
