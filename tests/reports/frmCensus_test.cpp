#include "PeriodGround.h"
#include "report/viewer/ReportViewer.h"
#include "reports/frmCensus.h"
#include "reports/frmReport.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Pair;

namespace {

class CensusTest : public PeriodGround {
  protected:
    CensusTest() {
        PutTemplate(u"CensusAll.rpt"_s, 0);
        PutTemplate(u"CensusStation.rpt"_s, 0);
    }

    static frmCensus& Open() {
        auto& screen = Screens::Get<frmCensus>();
        screen.Show();
        return screen;
    }
    static QRadioButton& Option(const char* name) {
        return Find<QRadioButton>(Screens::Get<frmCensus>(), name);
    }
    /// Presses the button and answers the window that the census shows in, its rows fetched.
    frmReport* View() {
        Click(Find<QPushButton>(Screens::Get<frmCensus>(), "cmdView"));
        auto* window = workspace.findChild<frmReport*>();
        if (window)
            AwaitWork(*window);
        return window;
    }
};

} // namespace

TEST_F(CensusTest, OffersTwoArrangementsAndStartsWithTheFirst) {
    const frmCensus& screen = Open();
    EXPECT_EQ(screen.windowTitle(), u"Inpatient Census"_s);
    EXPECT_EQ(Find<QLabel>(screen, "Label1").text(), u"Inpatient Census     "_s);
    EXPECT_EQ(Option("optCensus(0)").text(), u"All patients arranged alphabetically"_s);
    EXPECT_EQ(Option("optCensus(1)").text(), u"All patients grouped by station"_s);
    EXPECT_TRUE(Option("optCensus(0)").isChecked());
    EXPECT_FALSE(Option("optCensus(1)").isChecked());
    EXPECT_EQ(Find<QPushButton>(screen, "cmdView").text(), u"&View"_s);
    EXPECT_EQ(Find<QPushButton>(screen, "cmdClose").text(), u"&Close"_s);
    EXPECT_FALSE(screen.IsModal());
}

TEST_F(CensusTest, ByNameShowsTheListWithoutAGroupTreeNotModal) {
    Open();
    frmReport* window = View();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), u"Census Report"_s);
    EXPECT_FALSE(window->IsModal());
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(Find<QToolButton>(*window, "cmdGroupTree").isVisible());
    EXPECT_EQ(Find<QLabel>(*window, "lblPages").text(), u"of 1"_s) << "the report is viewed";
    EXPECT_FALSE(Screens::IsLoaded<frmCensus>());
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(CensusTest, ByStationHasTheGroupTreeThatCanBeOpened) {
    Open();
    Option("optCensus(1)").setChecked(true);
    frmReport* window = View();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(window->windowTitle(), u"Census Report"_s);
    EXPECT_TRUE(Find<QToolButton>(*window, "cmdGroupTree").isVisible());
}

TEST_F(CensusTest, EachArrangementHasATemplateOfItsOwn) {
    ASSERT_TRUE(QFile::remove(programDirectory.filePath(u"Reports/CensusStation.rpt"_s)));
    Open();
    EXPECT_NE(View(), nullptr);
    PutTemplate(u"CensusStation.rpt"_s, 0);
    ASSERT_TRUE(QFile::remove(programDirectory.filePath(u"Reports/CensusAll.rpt"_s)));
    Open();
    Option("optCensus(1)").setChecked(true);
    EXPECT_NE(View(), nullptr);
}

namespace {

/// A user who notes which report is being logged on.
class NotingUser : public FakeCurrentUser {
  public:
    QString ServerName() const override {
        path = gReport->Path();
        return FakeCurrentUser::ServerName();
    }

    mutable QString path;
};

} // namespace

TEST_F(CensusTest, TheTemplatesAreOpenedByTheirPathsAsTheyAreWritten) {
    const auto noting = std::make_shared<NotingUser>();
    gCurrentUser = noting;
    Open();
    View();
    EXPECT_EQ(noting->path, programDirectory.path() + u"\\Reports\\CensusAll.rpt"_s);
    Open();
    Option("optCensus(1)").setChecked(true);
    View();
    EXPECT_EQ(noting->path, programDirectory.path() + u"\\Reports\\CensusStation.rpt"_s);
}

TEST_F(CensusTest, EveryTableIsPointedAtPatientData) {
    Open();
    View();
    ASSERT_EQ(database.commands.size(), 1);
    EXPECT_TRUE(database.commands.front().contains(u"PATIENT_DATA.dbo.T"_s))
        << database.commands.front().toStdString();
    ASSERT_EQ(database.logOns.size(), 1U);
    EXPECT_EQ(database.logOns.front(),
              (QStringList{u"HOSPITAL"_s, u"PATIENT_DATA"_s, u"NURSE"_s, u"secret"_s}));
}

TEST_F(CensusTest, TheWindowGoesOnShowingAndItsCloseEnablesTheLedgersEntry) {
    Open();
    frmReport* window = View();
    ASSERT_NE(window, nullptr);
    window->crvReport->grab();
    EXPECT_TRUE(workspace.menuItems.empty());
    EXPECT_TRUE(window->Unload());
    EXPECT_THAT(workspace.menuItems, ElementsAre(Pair(u"mnuMLedger"_s, true)));
}

TEST_F(CensusTest, AMissingTemplateFailsAndShowsNothing) {
    ASSERT_TRUE(QFile::remove(programDirectory.filePath(u"Reports/CensusAll.rpt"_s)));
    Open();
    EXPECT_EQ(View(), nullptr);
    EXPECT_EQ(TakeFailure(), RunTime::kFileNotFound);
    EXPECT_TRUE(Screens::IsLoaded<frmCensus>());
}

TEST_F(CensusTest, CloseUnloadsWithoutACensus) {
    const frmCensus& screen = Open();
    Click(Find<QPushButton>(screen, "cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmCensus>());
    EXPECT_EQ(workspace.findChild<frmReport*>(), nullptr);
    EXPECT_TRUE(workspace.menuItems.empty());
}
