#include "components/ReportConnector.h"
#include "nursing/NursingRequestGround.h"
#include "report/viewer/ReportViewer.h"
#include "reports/frmReport.h"
#include "reports/Reports.h"
#include "support/WhileModal.h"
#include "toolkit/ProgramFiles.h"

#include <QFile>
#include <QToolButton>

using namespace Qt::StringLiterals;

// The consultation form behind its hidden button.

namespace {

/// A form of a parameter and another one over two tables.
constexpr auto kTemplate = "<report paper=\"100x100\" margins=\"0 0 0 0\"><parameters>"
                           "<parameter name=\"Copies\" type=\"text\" prompt=\"Copies\" value=\"1\"/>"
                           "<parameter name=\"@RequestNum\" type=\"text\" prompt=\"Request\"/></parameters>"
                           "<tables><table name=\"A\" location=\"X.dbo.tbOne\"/><table name=\"B\" "
                           "location=\"Y.dbo.tbTwo\"/></tables>"
                           "<query>SELECT a FROM {A}, {B} WHERE a = {?@RequestNum}</query>"
                           "<group by=\"a\"><header height=\"5\"/></group></report>";

class ConsultationTest : public NursingRequestGround {
  protected:
    ConsultationTest() {
        QFile file(programDirectory.filePath(u"RadioConsultation.rpt"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(kTemplate) <= 0)
            throw std::runtime_error("The template of the test cannot be written.");
        SetReportConnector([this](const ReportLogOn& logOn) {
            database = logOn.database;
            auto connection = std::make_unique<ScriptedGateway>();
            connection->Expect(
                u"SELECT a FROM RADIOLOGY.dbo.tbOne, RADIOLOGY.dbo.tbTwo WHERE a = '%1'"_s.arg(expected),
                Rows({u"a"_s}, {{u"A"_s}}));
            return connection;
        });
    }
    ~ConsultationTest() override { SetReportConnector({}); }

    /// What the report is asked for.
    QString expected = u"41"_s;
    QString database;
};

} // namespace

TEST_F(ConsultationTest, ShowsTheFormOfTheRequestModally) {
    frmNursingRequest& screen = Open({OfCruz()});
    bool shown = false;
    WhileModal([&shown](Form& viewer) {
        shown = true;
        EXPECT_EQ(viewer.objectName(), u"frmReport"_s);
        EXPECT_EQ(viewer.windowTitle(), u"Consultation Form"_s);
        EXPECT_TRUE(viewer.IsModal());
        EXPECT_FALSE(Find<QToolButton>(viewer, "cmdGroupTree").isVisible()) << "the group tree is off";
        ASSERT_TRUE(gReport.IsSet());
        EXPECT_TRUE(gReport->HasDocument()) << "the report is viewed";
        EXPECT_EQ(gReport->Path(), ProgramDirectory() + u"\\RadioConsultation.rpt"_s);
        std::vector<QString> values;
        for (const ParameterField& field : gReport->ParameterFields())
            values.push_back(field.CurrentValue()->ToText());
        EXPECT_EQ(values, (std::vector<QString>{u"1"_s, u"41"_s}));
        for (const ReportTable& table : gReport->Tables())
            EXPECT_TRUE(table.Location().startsWith(u"RADIOLOGY."_s)) << table.Location().toStdString();
    });
    screen.PrintConsultation(u"41"_s);
    EXPECT_TRUE(shown);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_EQ(database, u"RADIOLOGY"_s);
    EXPECT_TRUE(Screens::IsLoaded<frmNursingRequest>());
}

TEST_F(ConsultationTest, HiddenButtonTakesTheTrimmedNumberOfTheCurrentRequest) {
    Open({{{24, u"40"_s}}, {{24, u"  42 "_s}}});
    Cells().SetRow(2);
    expected = u"42"_s;
    bool shown = false;
    WhileModal([&shown](Form& viewer) { shown = viewer.objectName() == u"frmReport"_s; });
    Button("Command1").show();
    Click(Button("Command1"));
    EXPECT_TRUE(shown);
    EXPECT_EQ(Cells().Row(), 2);
}

TEST_F(ConsultationTest, MissingFormFails) {
    frmNursingRequest& screen = Open({OfCruz()});
    ASSERT_TRUE(QFile::remove(programDirectory.filePath(u"RadioConsultation.rpt"_s)));
    try {
        screen.PrintConsultation(u"41"_s);
        ADD_FAILURE() << "no failure";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), RunTime::kFileNotFound);
    }
}
