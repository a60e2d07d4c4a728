#include "components/shared.h"
#include "report/output/ChoosePrinter.h"
#include "report/viewer/PageView.h"
#include "report/viewer/ReportViewer.h"
#include "reports/Reports.h"
#include "support/AwaitWork.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "toolkit/MousePointer.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kTwoParameters = uR"(<parameters>
<parameter name="Number" type="text" prompt="Number"/>
<parameter name="Day" type="date" prompt="Day"/>
<parameter name="Moment" type="datetime" prompt="Moment" value="01/02/2003"/>
</parameters>)";

class ReportRoutines : public ScreenTest {
  protected:
    ReportRoutines() { database.Set(u"SELECT"_s, Rows({u"A"_s}, {{u"row"_s}})); }
    ~ReportRoutines() override { gReport = nullptr; }

    void Open(const std::vector<Value>& values, QStringView parameters = kTwoParameters) {
        WriteFile(
            programDirectory, u"Slip.RPT"_s,
            SmallTemplate(parameters.toString() +
                          u"<detail height=\"5\"><text x=\"0\" y=\"0\" width=\"50\">{A}</text></detail>"_s));
        OpenReport(programDirectory.path() + u"\\slip.rpt"_s, values);
    }

    std::optional<Value> ValueOf(size_t field) { return gReport->ParameterFields()[field].CurrentValue(); }

    /// Shows the report and runs what the clerk does in its window.
    static void Show(bool showGroupTree, bool directPrint, const std::function<void(QWidget&)>& clerk) {
        QTimer::singleShot(0, qApp, [&] {
            QWidget* window = QApplication::activeModalWidget();
            ASSERT_TRUE(window && window->objectName() == u"frmReportviewer"_s);
            AwaitWork(*window);
            clerk(*window);
            window->close();
        });
        ShowReport(showGroupTree, u"Print ChargeSlip"_s, directPrint);
    }

    ReportDatabase database;
};

const Value kDay = DateTime::FromFields({2026, 11, 21, 0, 0, 0, 0}).value();

} // namespace

TEST_F(ReportRoutines, OpenReportLogsEachTableOnAsTheUser) {
    Open({u"H1C"_s, kDay});
    for (const ReportTable& table : gReport->Tables()) {
        EXPECT_EQ(table.LogOn().server, u"HOSPITAL"_s);
        EXPECT_EQ(table.LogOn().database, u"PASSWORD"_s);
        EXPECT_EQ(table.LogOn().user, u"NURSE"_s);
        EXPECT_EQ(table.LogOn().password, u"secret"_s);
        EXPECT_EQ(table.Location(), u"D.dbo.T"_s) << "the location stays as stored";
    }
}

TEST_F(ReportRoutines, OpenReportReadsThePasswordAnewForEachLogOn) {
    Open({});
    EXPECT_EQ(user->passwordReads, 1);
    Open({});
    EXPECT_EQ(user->passwordReads, 2);
    SetTableLogOn(gReport->Tables()[0], u"REPORTS"_s);
    EXPECT_EQ(user->passwordReads, 3);
}

TEST_F(ReportRoutines, OpenReportLogsOnBothTablesOfATemplateAndReadsThePasswordForEach) {
    QByteArray content = SmallTemplate(QString());
    content.replace("</tables>", "<table name=\"U\" location=\"E.dbo.U\"/></tables>");
    WriteFile(programDirectory, u"Two.RPT"_s, content);
    OpenReport(programDirectory.path() + u"/Two.RPT"_s, {});
    ASSERT_EQ(gReport->Tables().size(), 2U);
    for (const ReportTable& table : gReport->Tables()) {
        EXPECT_TRUE(table.HasLogOn()) << table.Name().toStdString();
        EXPECT_EQ(table.LogOn().user, u"NURSE"_s) << table.Name().toStdString();
        EXPECT_EQ(table.LogOn().password, u"secret"_s) << table.Name().toStdString();
    }
    EXPECT_EQ(user->passwordReads, 2);
}

TEST_F(ReportRoutines, OpenReportFillsTheParametersInOrder) {
    Open({u"H1C"_s, kDay, kDay});
    EXPECT_EQ(ValueOf(0), Value(u"H1C"_s));
    EXPECT_EQ(ValueOf(1), kDay);
    EXPECT_EQ(ValueOf(2), kDay);
}

TEST_F(ReportRoutines, ADateGivenAsTextReachesTheReportAsADate) {
    Open({u"H1C"_s, u"11/21/2026"_s, u"11/21/2026 02:15:36 PM"_s});
    EXPECT_EQ(ValueOf(1), kDay);
    EXPECT_EQ(ValueOf(2), Value(DateTime::FromFields({2026, 11, 21, 14, 15, 36, 0}).value()));
}

TEST_F(ReportRoutines, ATextForATextParameterIsNotConverted) {
    Open({u"11/21/2026"_s});
    EXPECT_EQ(ValueOf(0), Value(u"11/21/2026"_s));
}

TEST_F(ReportRoutines, ATextForANumberParameterIsTakenUnconverted) {
    Open({u"12"_s}, u"<parameters><parameter name=\"Least\" type=\"number\" prompt=\"Least\"/></parameters>");
    EXPECT_EQ(ValueOf(0), Value(u"12"_s));
}

TEST_F(ReportRoutines, ADateThatIsNoneRaisesATypeMismatch) {
    EXPECT_EQ(TextOfFailure([this] { Open({u"H1C"_s, u"today"_s}); }), u"Type mismatch"_s);
    EXPECT_EQ(TextOfFailure([this] { Open({u"H1C"_s, Value()}); }), u"Invalid use of Null"_s);
}

TEST_F(ReportRoutines, SurplusValuesAreDropped) {
    Open({u"H1C"_s, kDay, kDay, u"today is no date, and nobody minds"_s});
    EXPECT_EQ(gReport->ParameterFields().size(), 3U);
}

/// A user whose logon brings the caller one value more.
class GivingUser : public FakeCurrentUser {
  public:
    QString ServerName() const override {
        values.emplace_back(u"too late"_s);
        return FakeCurrentUser::ServerName();
    }

    mutable std::vector<Value> values = {u"H1C"_s};
};

TEST_F(ReportRoutines, TheNumberOfValuesIsReadBeforeTheReportIsOpened) {
    const auto giving = std::make_shared<GivingUser>();
    gCurrentUser = giving;
    WriteFile(programDirectory, u"Two.RPT"_s,
              SmallTemplate(u"<parameters><parameter name=\"A\" type=\"text\" prompt=\"A\"/>"
                            "<parameter name=\"B\" type=\"text\" prompt=\"B\"/></parameters>"_s));
    OpenReport(programDirectory.path() + u"/Two.RPT"_s, giving->values);
    EXPECT_EQ(giving->values.size(), 2U);
    EXPECT_EQ(ValueOf(0), Value(u"H1C"_s));
    EXPECT_FALSE(ValueOf(1).has_value());
}

TEST_F(ReportRoutines, SurplusParametersKeepWhatTheTemplateHas) {
    Open({u"H1C"_s});
    EXPECT_FALSE(ValueOf(1).has_value());
    EXPECT_EQ(ValueOf(2), Value(DateTime::FromFields({2003, 1, 2, 0, 0, 0, 0}).value()));
}

TEST_F(ReportRoutines, NoValuesFillNothing) {
    Open({});
    EXPECT_FALSE(ValueOf(0).has_value());
}

TEST_F(ReportRoutines, AReportWithoutParametersIgnoresItsValues) {
    Open({u"H1C"_s, kDay}, u"");
    EXPECT_TRUE(gReport->ParameterFields().empty());
}

TEST_F(ReportRoutines, AMissingTemplateRaisesFileNotFoundAndKeepsThePathInTheText) {
    EXPECT_EQ(TextOfFailure([] { OpenReport(u"/nowhere/Slip.RPT"_s, {}); }),
              u"File not found: /nowhere/Slip.RPT"_s);
}

TEST_F(ReportRoutines, SetTableLogOnReplacesTheDatabaseAndLogsOnThere) {
    Open({});
    ReportTable& table = gReport->Tables()[0];
    table.SetLocation(u"RADIOLOGY.dbo.tbRequest"_s);
    SetTableLogOn(table, u"PATIENT_DATA"_s);
    EXPECT_EQ(table.Location(), u"PATIENT_DATA.dbo.tbRequest"_s);
    EXPECT_EQ(table.LogOn().server, u"HOSPITAL"_s);
    EXPECT_EQ(table.LogOn().database, u"PATIENT_DATA"_s);
    EXPECT_EQ(table.LogOn().user, u"NURSE"_s);
    EXPECT_EQ(table.LogOn().password, u"secret"_s);
}

TEST_F(ReportRoutines, ShowReportPresentsTheReportUntilItsWindowCloses) {
    Open({u"H1C"_s, kDay}, u"");
    bool shown = false;
    Show(false, false, [&](QWidget& window) {
        shown = true;
        EXPECT_EQ(window.windowTitle(), u"Print ChargeSlip"_s);
        EXPECT_EQ(Find<ReportViewer>(window, "CRViewer1").size(), window.size());
        EXPECT_EQ(Find<QLabel>(window, "lblPages").text(), u"of 1"_s);
        EXPECT_TRUE(gReport.IsSet());
    });
    EXPECT_TRUE(shown);
    EXPECT_FALSE(gReport.IsSet()) << "closing the viewer clears the report";
}

TEST_F(ReportRoutines, GroupTreeAndDirectPrintChangeNothing) {
    WriteFile(programDirectory, u"Groups.RPT"_s,
              SmallTemplate(u"<group by=\"A\"><header height=\"5\"/><detail height=\"5\"/></group>"_s));
    OpenReport(programDirectory.path() + u"/Groups.RPT"_s, {});
    int printed = 0;
    const auto printing = PrintDialogSeam().Replace([&printed](QPrinter&, int, QWidget*) {
        ++printed;
        return false;
    });
    bool shown = false;
    Show(true, true, [&](QWidget& window) {
        shown = true;
        const auto& tree = Find<QTreeView>(window, "GroupTree");
        EXPECT_FALSE(tree.isVisible());
        EXPECT_FALSE(Find<QToolButton>(window, "cmdGroupTree").isVisible());
        auto& pages = Find<PageView>(window, "PageView");
        EXPECT_TRUE(pages.isVisible()) << "the report is previewed";
        EXPECT_EQ(pages.CurrentPage(), 1);
        Activate(window);
        Press(pages, Qt::Key_T, Qt::ControlModifier);
        EXPECT_FALSE(tree.isVisible());
        Press(pages, Qt::Key_P, Qt::ControlModifier);
        EXPECT_EQ(printed, 1) << "paper is made with the print button alone";
    });
    EXPECT_TRUE(shown);
    EXPECT_EQ(printed, 1);
}

TEST_F(ReportRoutines, TheCallersPointerIsBackWhenTheViewerHasClosed) {
    Open({u"H1C"_s});
    SetMousePointer(MousePointer::Wait);
    int shown = 0;
    QTimer::singleShot(0, qApp, [&] {
        ++shown;
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Default) << "while the clerk is asked for a value";
        QWidget* dialog = QApplication::activeModalWidget();
        Type(Find<QLineEdit>(*dialog, "txtDay"), u"11/21/2026"_s);
        Press(Find<QLineEdit>(*dialog, "txtDay"), Qt::Key_Return);
        QTimer::singleShot(0, qApp, [&] {
            ++shown;
            EXPECT_EQ(CurrentMousePointer(), MousePointer::Default) << "while the rows are fetched";
            AwaitWork(*QApplication::activeModalWidget());
            EXPECT_EQ(CurrentMousePointer(), MousePointer::Default) << "while the clerk reads the slip";
            QApplication::activeModalWidget()->close();
        });
    });
    ShowReport(false, u"Slip"_s, false);
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    SetMousePointer(MousePointer::Default);
}

TEST_F(ReportRoutines, ShowReportWithoutAReportRaisesObjectNotSet) {
    EXPECT_EQ(TextOfFailure([] { ShowReport(false, u"Slip"_s, false); }),
              u"Object variable or With block variable not set"_s);
}

TEST_F(ReportRoutines, ATemplateWithMoreParametersThanValuesAsksForTheRest) {
    Open({u"H1C"_s});
    QTimer::singleShot(0, qApp, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog && dialog->objectName() == u"ReportParameters"_s);
        Type(Find<QLineEdit>(*dialog, "txtDay"), u"11/21/2026"_s);
        Press(Find<QLineEdit>(*dialog, "txtDay"), Qt::Key_Return);
        QTimer::singleShot(0, qApp, [] {
            AwaitWork(*QApplication::activeModalWidget());
            QApplication::activeModalWidget()->close();
        });
    });
    ShowReport(false, u"Slip"_s, false);
    EXPECT_EQ(database.commands.size(), 1);
}
