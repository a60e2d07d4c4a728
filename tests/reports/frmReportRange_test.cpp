#include "PeriodGround.h"
#include "reports/frmReportRange.h"
#include "support/CaseName.h"
#include "support/FixedClock.h"
#include "text/Format.h"
#include "toolkit/DatePicker.h"

#include <QGroupBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

class ReportRangeTest : public PeriodGround {
  protected:
    static frmReportRange& Open(int type) {
        frmReportRange::SetReportType(static_cast<ReportType>(type));
        auto& screen = Screens::Get<frmReportRange>();
        screen.Show();
        return screen;
    }
    static DatePicker& Start() { return Find<DatePicker>(Screens::Get<frmReportRange>(), "dtpStartDate"); }
    static DatePicker& End() { return Find<DatePicker>(Screens::Get<frmReportRange>(), "dtpEndDate"); }
    static QPushButton& View() { return Find<QPushButton>(Screens::Get<frmReportRange>(), "cmdView"); }
    static DateTime Day(int year, int month, int day) {
        return DateTime::FromFields({.year = year, .month = month, .day = day}).value();
    }
    static void SetRange(DateTime start, DateTime end) {
        Start().SetValue(start);
        End().SetValue(end);
    }
    std::optional<ShownReport> ViewReport() {
        return ReportOf([] { Click(View()); });
    }
};

struct ReportCase {
    const char* name;
    int type;
    QString path;
    QString title;
    std::vector<QString> values;
};

class EveryPeriodReport : public ReportRangeTest, public testing::WithParamInterface<ReportCase> {};

} // namespace

TEST_F(ReportRangeTest, AsksForTwoDaysInItsFrame) {
    const frmReportRange& screen = Open(3);
    EXPECT_EQ(Find<QGroupBox>(screen, "Frame1").title(), u"Select Range"_s);
    QStringList labels;
    for (const QLabel* label : screen.findChildren<QLabel*>())
        labels << label->text();
    EXPECT_EQ(labels, (QStringList{u"Start Date"_s, u"End Date"_s}));
    EXPECT_EQ(Find<QPushButton>(screen, "cmdView").text(), u"View"_s);
    EXPECT_EQ(Find<QPushButton>(screen, "cmdClose").text(), u"Close"_s);
}

TEST_F(ReportRangeTest, BothDaysAreTodayAtFirst) {
    Open(3);
    EXPECT_EQ(Start().Value(), Day(2026, 11, 21));
    EXPECT_EQ(End().Value(), Day(2026, 11, 21));
    EXPECT_EQ(Start().text(), u"11/21/2026"_s);
}

TEST_F(ReportRangeTest, StandsAtItsPlaceInsideTheMainWindowAndIsNotModal) {
    const frmReportRange& screen = Open(3);
    EXPECT_FALSE(screen.IsModal());
    const QList<QMdiSubWindow*> windows = workspace.Area()->subWindowList();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.front()->pos(), QPoint(367, 200)) << "5500 and 3000 twips";
}

TEST_F(ReportRangeTest, OnlyTheFirstTwoTypesHaveATitleOfTheirOwn) {
    for (int type = 0; type <= 9; ++type) {
        const QString expected = type == 1   ? u"Audit Report"_s
                                 : type == 2 ? u"Income Report"_s
                                             : u"Report Date"_s;
        EXPECT_EQ(Open(type).windowTitle(), expected) << type;
        Screens::Unload<frmReportRange>();
    }
}

TEST_F(ReportRangeTest, ReadingTheTypeGivesZeroWhateverWasStored) {
    frmReportRange::SetReportType(ReportType::Statistics);
    EXPECT_EQ(frmReportRange::ReportType(), 0);
}

TEST_F(ReportRangeTest, ATypeSetWhileTheScreenStandsCountsAndTheTitleStays) {
    PutTemplate(u"IncomeReport.RPT"_s, 5);
    Open(1);
    EXPECT_EQ(Open(4).windowTitle(), u"Audit Report"_s);
    EXPECT_EQ(workspace.Area()->subWindowList().size(), 1);
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->title, u"In-Patient Income Report"_s);
}

TEST_P(EveryPeriodReport, LetsItsValuesGoBeforeTheReportShows) {
    const ReportCase& report = GetParam();
    PutTemplate(QFileInfo(QString(report.path).replace(u'\\', u'/')).fileName(), 0);
    // A text of its own, not a literal's: nobody else holds it.
    gHospitalName = QString::fromLatin1("SAMPAGUITA");
    Open(report.type);
    bool held = true;
    whileShown = [&held] { held = !gHospitalName.isDetached(); };
    ASSERT_TRUE(ViewReport());
    EXPECT_FALSE(held);
}

TEST_P(EveryPeriodReport, TakesItsValuesInOrder) {
    const ReportCase& report = GetParam();
    PutTemplate(QFileInfo(QString(report.path).replace(u'\\', u'/')).fileName(),
                int(report.values.size()) + 1);
    Open(report.type);
    SetRange(Day(2026, 10, 5), Day(2026, 11, 4));
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->path, report.path);
    EXPECT_EQ(shown->title, report.title);
    std::vector<QString> values = report.values;
    values.push_back(u"not given"_s);
    EXPECT_EQ(shown->values, values);
    EXPECT_FALSE(Screens::IsLoaded<frmReportRange>()) << "the screen closes behind the report";
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

INSTANTIATE_TEST_SUITE_P(
    Types, EveryPeriodReport,
    testing::Values(ReportCase{"Audit",
                               1,
                               u"/Reports/AuditReport.RPT"_s,
                               u"Audit Report"_s,
                               {u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s, u"NURSE"_s}},
                    ReportCase{"OutPatientIncome",
                               3,
                               u"\\Reports\\IncomeReport.RPT"_s,
                               u"Out-Patient Income Report"_s,
                               {u"O"_s, u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s}},
                    ReportCase{"InPatientIncome",
                               4,
                               u"/Reports/IncomeReport.RPT"_s,
                               u"In-Patient Income Report"_s,
                               {u"I"_s, u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s}},
                    ReportCase{"CashIncome",
                               5,
                               u"\\Reports\\IncomeReportCash.RPT"_s,
                               u"Cash Patient Income Report"_s,
                               {u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s}},
                    ReportCase{"Statistics",
                               6,
                               u"/Reports/StatisticsReport.RPT"_s,
                               u"Monthly Statistical Report"_s,
                               {u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s}},
                    ReportCase{"InPatientCompany",
                               7,
                               u"\\Reports\\CompanyReport.RPT"_s,
                               u"In-Patient Company Report"_s,
                               {u"I"_s, u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s}},
                    ReportCase{"OutPatientCompany",
                               8,
                               u"\\Reports\\CompanyReport.RPT"_s,
                               u"Out-Patient Company Report"_s,
                               {u"O"_s, u"10/05/2026"_s, u"11/04/2026"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                u"128 Rizal Avenue"_s}}),
    CaseName());

TEST_F(ReportRangeTest, TheAuditsOwnTemplateAsksTheServerForDays) {
    ASSERT_TRUE(QFile::copy(u"" TARVEN_SOURCE_DIR "/Reports/AuditReport.RPT"_s,
                            programDirectory.filePath(u"Reports/AuditReport.RPT"_s)));
    database.Set(u"spReports_Audit"_s, Rows({u"UserID"_s, u"UserName"_s, u"Moment"_s, u"Event"_s, u"RefNum"_s,
                                             u"Patient"_s, u"RevenueID"_s, u"ItemID"_s, u"Particular"_s,
                                             u"Quantity"_s, u"OnAccount"_s, u"AtCashier"_s}));
    Open(1);
    SetRange(Day(2026, 10, 5), Day(2026, 11, 4));
    ASSERT_TRUE(ViewReport());
    EXPECT_EQ(database.commands,
              QStringList(u"REPORTS.dbo.spReports_Audit '20261005 00:00:00.000', '20261104 00:00:00.000'"_s));
}

TEST_F(ReportRangeTest, ATypeWithoutAReportOpensNothingAndCloses) {
    for (const int type : {0, 2, 9, -1}) {
        Open(type);
        EXPECT_FALSE(ViewReport()) << type;
        EXPECT_FALSE(gReport.IsSet());
        EXPECT_FALSE(Screens::IsLoaded<frmReportRange>()) << type;
        EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    }
}

TEST_F(ReportRangeTest, EqualDaysRunTheReportForTheOneDay) {
    PutTemplate(u"StatisticsReport.RPT"_s, 2);
    Open(6);
    SetRange(Day(2026, 2, 28), Day(2026, 2, 28));
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values, (std::vector<QString>{u"02/28/2026"_s, u"02/28/2026"_s}));
}

TEST_F(ReportRangeTest, AStartBehindTheEndWarnsAndKeepsBothDays) {
    Open(6);
    SetRange(Day(2026, 11, 22), Day(2026, 11, 21));
    messages.Expect({.text = u"End date must be greater than start date."_s, .icon = MsgIcon::Exclamation});
    EXPECT_FALSE(ViewReport());
    EXPECT_EQ(messages.Shown().size(), 1U);
    ASSERT_TRUE(Screens::IsLoaded<frmReportRange>());
    EXPECT_TRUE(Screens::Get<frmReportRange>().isVisible());
    EXPECT_EQ(Start().Value(), Day(2026, 11, 22));
    EXPECT_EQ(End().Value(), Day(2026, 11, 21));
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(ReportRangeTest, TheHourglassStandsWhileTheReportIsOpened) {
    Open(6);
    // The template is missing, so the failure comes while the screen waits.
    Click(View());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_EQ(TakeFailure(), RunTime::kFileNotFound);
    EXPECT_TRUE(Screens::IsLoaded<frmReportRange>()) << "nothing behind the failure runs";
}

TEST_F(ReportRangeTest, CloseUnloadsWithoutAReport) {
    const frmReportRange& screen = Open(6);
    EXPECT_FALSE(ReportOf([&screen] { Click(Find<QPushButton>(screen, "cmdClose")); }));
    EXPECT_FALSE(Screens::IsLoaded<frmReportRange>());
}

TEST_F(ReportRangeTest, AFreshScreenStartsAtToday) {
    Open(6);
    SetRange(Day(2026, 1, 1), Day(2026, 1, 31));
    Screens::Unload<frmReportRange>();
    const auto clock = FixedClock(*DateTime::FromFields({2026, 11, 22, 23, 59, 59, 0}));
    Open(6);
    EXPECT_EQ(Start().Value(), Day(2026, 11, 22));
    EXPECT_EQ(End().Value(), Day(2026, 11, 22));
}

// What is keyed.

namespace {

struct KeyedCase {
    const char* name;
    QString keyed;
    /// What the report gets, and what its box shows where there is none.
    QString start;
    QString shown;
    const char* reason = "";
};

} // namespace

class KeyedStart : public ReportRangeTest, public testing::WithParamInterface<KeyedCase> {
  protected:
    KeyedStart() {
        PutTemplate(u"StatisticsReport.RPT"_s, 2);
        Open(6);
        Type(Start(), GetParam().keyed);
    }
};

TEST_P(KeyedStart, IsTheDayOfTheReportOrThereIsNone) {
    const auto shown = ViewReport();
    EXPECT_EQ(shown.has_value(), !GetParam().start.isEmpty());
    if (shown) {
        EXPECT_EQ(shown->values, (std::vector<QString>{GetParam().start, u"11/21/2026"_s}));
        return;
    }
    ASSERT_TRUE(Screens::IsLoaded<frmReportRange>());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_TRUE(Start().hasFocus());
    EXPECT_EQ(Start().text(), GetParam().shown);
    EXPECT_TRUE(Start().property("wrong").toBool());
    EXPECT_TRUE(QToolTip::text().contains(QString::fromLatin1(GetParam().reason)))
        << QToolTip::text().toStdString();
    EXPECT_TRUE(messages.Shown().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Texts, KeyedStart,
    testing::Values(KeyedCase{"WithSlashesAndZeros", u"08/01/2026"_s, u"08/01/2026"_s, u""_s},
                    KeyedCase{"WithSlashes", u"8/1/2026"_s, u"08/01/2026"_s, u""_s},
                    KeyedCase{"DigitsAlone", u"08012026"_s, u"08/01/2026"_s, u""_s},
                    KeyedCase{"TwoDigitsOfTheYear", u"8/1/26"_s, u""_s, u"8/1/26"_s, "four digits"},
                    KeyedCase{"HalfADate", u"08/01"_s, u""_s, u"08/01"_s, "not complete"},
                    KeyedCase{"NoSuchDay", u"02/30/2026"_s, u""_s, u"02/30/2026"_s, "no such day"},
                    KeyedCase{"BeforeTheServersFirst", u"12/31/1752"_s, u""_s, u"12/31/1752"_s,
                              "01/01/1753 to 12/31/9998"}),
    CaseName());

TEST_F(ReportRangeTest, AnEndThatIsNoDateKeepsTheFocusAndRunsNoReport) {
    Open(6);
    End().setFocus();
    Type(End(), u"8/1/26"_s);
    EXPECT_FALSE(ViewReport());
    EXPECT_TRUE(End().hasFocus());
    EXPECT_EQ(End().text(), u"8/1/26"_s);
    EXPECT_EQ(Start().text(), u"11/21/2026"_s);
}

TEST_F(ReportRangeTest, AnEmptiedDayIsTheOneBeforeAgain) {
    PutTemplate(u"StatisticsReport.RPT"_s, 2);
    Open(6);
    Press(Start(), Qt::Key_Delete);
    EXPECT_EQ(Start().text(), u""_s);
    End().setFocus();
    EXPECT_EQ(Start().text(), u"11/21/2026"_s);
    Press(End(), Qt::Key_Delete);
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values, (std::vector<QString>{u"11/21/2026"_s, u"11/21/2026"_s}));
}

TEST_F(ReportRangeTest, ThePickersKeepToTheDaysThatAReportCanAskFor) {
    Open(3);
    for (DatePicker* picker : {&Start(), &End()}) {
        picker->SetValue(Day(9998, 12, 31));
        picker->setFocus();
        Press(*picker, Qt::Key_Up);
        EXPECT_EQ(picker->text(), u"12/31/9998"_s) << "a report asks for the day behind the last one";
        picker->SetValue(Day(1753, 1, 1));
        Press(*picker, Qt::Key_Down);
        EXPECT_EQ(picker->text(), u"01/01/1753"_s);
    }
}

// The keyboard.

TEST_F(ReportRangeTest, DaysAreKeyedAndEnterOnTheButtonViews) {
    PutTemplate(u"StatisticsReport.RPT"_s, 2);
    Open(6);
    EXPECT_TRUE(Start().hasFocus());
    Type(Start(), u"10/5/2026"_s);
    Press(Start(), Qt::Key_Tab);
    ASSERT_TRUE(End().hasFocus());
    End().setCursorPosition(4);
    Press(End(), Qt::Key_Down);
    EXPECT_EQ(End().text(), u"11/20/2026"_s);
    Press(End(), Qt::Key_Tab);
    ASSERT_TRUE(View().hasFocus());
    const auto shown = ReportOf([] { Press(View(), Qt::Key_Return); });
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values, (std::vector<QString>{u"10/05/2026"_s, u"11/20/2026"_s}));
}
