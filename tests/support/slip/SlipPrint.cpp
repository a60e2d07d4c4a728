#include "support/slip/SlipPrint.h"

#include "components/ReportConnector.h"
#include "reports/Reports.h"
#include "support/PrintQt.h"
#include "support/ScriptedGateway.h"
#include "support/WhileModal.h"
#include "toolkit/ProgramFiles.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

void PutTemplate(const QTemporaryDir& programDirectory, const QString& path, const QStringList& parameters) {
    QString fields;
    for (const QString& name : parameters)
        fields += u"<parameter name=\"%1\" type=\"text\" prompt=\"%1\"/>"_s.arg(name);
    const QString text =
        u"<report paper=\"100x100\" margins=\"0 0 0 0\"><parameters>"_s + fields +
        u"</parameters><tables><table name=\"Lines\" location=\"Clinical_Area.dbo.tbLines\"/>"
        "</tables><query>SELECT ItemID FROM {Lines}</query></report>"_s;
    const QString file = programDirectory.filePath(path);
    QDir().mkpath(QFileInfo(file).path());
    QFile output(file);
    if (!output.open(QIODevice::WriteOnly) || output.write(text.toUtf8()) <= 0)
        throw std::runtime_error("The template of the test cannot be written.");
}

SlipPrint::SlipPrint(const QTemporaryDir& programDirectory, const QString& file, int parameters)
    : mFile(u"/Reports/"_s + file) {
    QStringList names;
    for (int i = 1; i <= parameters; ++i)
        names << u"P%1"_s.arg(i);
    PutTemplate(programDirectory, mFile.mid(1), names);
    SetReportConnector([](const ReportLogOn& logOn) {
        const QString database = logOn.database == u"REPORTS"_s ? u"REPORTS"_s : u"Clinical_Area"_s;
        auto connection = std::make_unique<ScriptedGateway>();
        connection->Expect(u"SELECT ItemID FROM %1.dbo.tbLines"_s.arg(database),
                           Rows({u"ItemID"_s}, {{u"S1"_s}}));
        return connection;
    });
}

SlipPrint::~SlipPrint() {
    SetReportConnector({});
    gReport = {};
}

std::vector<QString> SlipPrint::Values(const QString& title, const std::function<void()>& print,
                                       const std::function<void()>& whileShown) const {
    std::vector<QString> values;
    WhileModal([&](Form& viewer) {
        EXPECT_EQ(viewer.objectName(), u"frmReportviewer"_s);
        EXPECT_EQ(viewer.windowTitle(), title);
        EXPECT_EQ(gReport->Path(), ProgramDirectory() + mFile);
        for (const ParameterField& field : gReport->ParameterFields())
            values.push_back(field.CurrentValue()->ToText());
        if (whileShown)
            whileShown();
    });
    print();
    return values;
}
