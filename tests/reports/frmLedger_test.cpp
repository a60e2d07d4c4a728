#include "patients/commands.h"
#include "patients/FinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/LoadPatient.h"
#include "patients/PatientContext.h"
#include "PeriodGround.h"
#include "reports/frmLedger.h"
#include "support/CaseName.h"
#include "toolkit/ListView.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Pair;

namespace {

class LedgerTest : public PeriodGround {
  protected:
    LedgerTest() {
        RegisterFinderTarget(u"Ledger"_s, []() -> FinderTarget& { return Screens::Get<frmLedger>(); });
        gChargeMode = u"Ledger"_s;
        PutTemplate(u"Orvandelle_Ledger.rpt"_s, 12);
    }
    ~LedgerTest() override { RegisterFinderTarget(u"Ledger"_s, {}); }

    static frmLedger& Open() {
        auto& screen = Screens::Get<frmLedger>();
        screen.Show();
        return screen;
    }
    static QLineEdit& Box(const char* name) { return Find<QLineEdit>(Screens::Get<frmLedger>(), name); }
    static QComboBox& PatientCode() { return Find<QComboBox>(Screens::Get<frmLedger>(), "cmbPatientCode"); }
    std::optional<ShownReport> ViewReport() {
        return ReportOf([] { Click(Find<QPushButton>(Screens::Get<frmLedger>(), "cmdView")); });
    }
    /// The letter that the report gets for a number.
    QString LetterOf(const QString& number) {
        Open();
        Box("txtIDNum").setText(number);
        return ViewReport().value().values.at(0);
    }
    void ExpectList(const QString& type, const QString& text, const QString& id) {
        gateway.Expect(GetPatientCommand(type, text),
                       Rows({u"hospital #"_s, u"Admission #"_s, u"Patient Name"_s, u"admission date"_s,
                             u"Billing Date"_s},
                            {{u"100085"_s, id, u"DELA CRUZ, JUAN"_s, Value(), Value()}}));
    }
    static void PickFirst() {
        auto& list = Find<ListView>(Screens::Get<frmSearchPatient>(), "ListView1");
        DoubleClick(*list.viewport(), list.visualRect(list.model()->index(0, 0)).center());
    }
    void ExpectVisit(const QString& id) {
        gateway.Expect(u"select * from patient_data..tboutpatient where idnum = '%1'"_s.arg(id),
                       Rows({u"DoctorID1"_s, u"DoctorID2"_s, u"DoctorID3"_s}));
    }
};

} // namespace

TEST_F(LedgerTest, BeginsWithBothTypesAtItsPlace) {
    const frmLedger& screen = Open();
    EXPECT_EQ(PatientCode().count(), 2);
    EXPECT_EQ(PatientCode().itemText(0), u"Inpatient"_s);
    EXPECT_EQ(PatientCode().itemText(1), u"Outpatient"_s);
    const QList<QMdiSubWindow*> windows = workspace.Area()->subWindowList();
    ASSERT_EQ(windows.size(), 1);
    EXPECT_EQ(windows.front()->pos(), QPoint(267, 133)) << "4000 and 2000 twips";
    EXPECT_FALSE(screen.IsModal());
}

TEST_F(LedgerTest, OpeningItLeavesThePatientTypeAndTheChargeModeAlone) {
    gPatientType = u"W"_s;
    gChargeMode = u"Post"_s;
    Open();
    EXPECT_EQ(gPatientType, u"W"_s);
    EXPECT_EQ(gChargeMode, u"Post"_s);
}

TEST_F(LedgerTest, ChoosingThePatientCodeSetsTheTypeAndMovesOn) {
    Open();
    PatientCode().setFocus();
    Press(PatientCode(), Qt::Key_O);
    EXPECT_EQ(gPatientType, u"O"_s);
    EXPECT_TRUE(Box("txtIDNum").hasFocus());
    PatientCode().setFocus();
    Press(PatientCode(), Qt::Key_Up);
    EXPECT_EQ(gPatientType, u"I"_s);
    EXPECT_TRUE(Box("txtIDNum").hasFocus());
}

TEST_F(LedgerTest, ChoosingWithTheMouseMovesOnToo) {
    Open();
    for (const auto& [item, type] : {std::pair(1, u"O"_s), std::pair(0, u"I"_s), std::pair(0, u"I"_s)}) {
        gPatientType = u"W"_s;
        PatientCode().setFocus();
        PatientCode().showPopup();
        QAbstractItemView& list = *PatientCode().view();
        ASSERT_TRUE(list.isVisible());
        // The list takes a release for the opening click's own until the mouse has moved in it.
        const QPoint place = list.visualRect(list.model()->index(item, 0)).center();
        QTest::mouseMove(list.viewport(), place);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        RunEvents();
        EXPECT_FALSE(list.isVisible());
        EXPECT_EQ(gPatientType, type);
        EXPECT_TRUE(Box("txtIDNum").hasFocus()) << item;
    }
}

TEST_F(LedgerTest, ChoosingTheFirstItemOfAFreshScreenCounts) {
    Open();
    gPatientType = u"O"_s;
    PatientCode().setFocus();
    Press(PatientCode(), Qt::Key_Down);
    EXPECT_EQ(PatientCode().currentIndex(), 0);
    EXPECT_EQ(gPatientType, u"I"_s);
}

TEST_F(LedgerTest, ChoosingTheItemThatStandsCountsToo) {
    Open();
    PatientCode().setCurrentIndex(1);
    gPatientType = u"I"_s;
    Q_EMIT PatientCode().activated(1);
    EXPECT_EQ(gPatientType, u"O"_s);
}

TEST_F(LedgerTest, EnterInTheNumberSendsATabAndShowsTheFinderNotModal) {
    Open();
    PatientCode().setCurrentIndex(0);
    Box("txtIDNum").setText(u"7000"_s);
    ExpectList(u"I"_s, u"7000"_s, u"700045"_s);
    Press(Box("txtIDNum"), Qt::Key_Return);
    ASSERT_TRUE(Screens::IsLoaded<frmSearchPatient>());
    EXPECT_TRUE(Screens::Get<frmSearchPatient>().isVisible());
    EXPECT_FALSE(Screens::Get<frmSearchPatient>().IsModal());
    RunEvents();
    // The sent key arrives in the finder and leaves its name box.
    EXPECT_TRUE(Find<ListView>(Screens::Get<frmSearchPatient>(), "ListView1").hasFocus());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(LedgerTest, OtherKeysStayAsTheyAreAndOpenNothing) {
    Open();
    Type(Box("txtIDNum"), u"104233b"_s);
    EXPECT_EQ(Box("txtIDNum").text(), u"104233b"_s);
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
}

TEST_F(LedgerTest, AnInPatientsPickFillsTheScreenAndTheReport) {
    personFinder->FillAdmission();
    gAdmissionDate = u"before"_s;
    Open();
    PatientCode().setCurrentIndex(0);
    Box("txtIDNum").setText(u"7"_s);
    ExpectList(u"I"_s, u"7"_s, u"104233"_s);
    Press(Box("txtIDNum"), Qt::Key_Return);
    gateway.Expect(GetPatientCommand(u"I"_s, u"7"_s), Rows({u"A"_s}));
    ExpectVisit(u"104233"_s);
    PickFirst();
    EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->path, u"\\Reports\\Orvandelle_Ledger.rpt"_s);
    EXPECT_EQ(shown->title, u"Patients Ledger!"_s);
    EXPECT_EQ(shown->values,
              (std::vector<QString>{u"I"_s, u"104233"_s, u"SAMPAGUITA GENERAL HOSPITAL"_s,
                                    u"DELA CRUZ, JUAN PEÑA"_s, u"100085"_s, u"301-A"_s, u"11/03/2026"_s,
                                    u""_s, u""_s, u"128 Rizal Avenue"_s, u""_s, u"not given"_s}));
    EXPECT_FALSE(Screens::IsLoaded<frmLedger>());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(LedgerTest, AVisitsPickGivesTheLetterOAndTheRoomOPD) {
    personFinder->FillAdmission();
    personFinder->visitDate = DateTime::FromFields({2026, 11, 2, 8, 15, 0, 0}).value();
    Open();
    PatientCode().setCurrentIndex(1);
    ExpectList(u"O"_s, u""_s, u"104233B"_s);
    Press(Box("txtIDNum"), Qt::Key_Return);
    gateway.Expect(u"Clinical_Area..spEarCare_GetPatient 'O',''"_s, Rows({u"A"_s}));
    ExpectVisit(u"104233B"_s);
    PickFirst();
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values.at(0), u"O"_s);
    EXPECT_EQ(shown->values.at(1), u"104233B"_s);
    EXPECT_EQ(shown->values.at(5), u"OPD"_s);
    EXPECT_EQ(shown->values.at(6), u"11/2/2026 8:15:00 AM"_s);
}

TEST_F(LedgerTest, ThePatientsNameIsJoinedWithItsBlanks) {
    Open();
    Box("txtLastName").setText(u"DELA CRUZ "_s);
    Box("txtFirstName").setText(u" JUAN "_s);
    Box("txtMiddleName").setText(u" PEÑA "_s);
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values.at(3), u"DELA CRUZ ,  JUAN   PEÑA "_s);
}

TEST_F(LedgerTest, AnEmptyScreenGivesTheReportEmptyValues) {
    gHospitalName = gHospitalAddress = QString();
    Open();
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values, (std::vector<QString>{u"O"_s, u""_s, u""_s, u",  "_s, u""_s, u""_s, u""_s, u""_s,
                                                   u""_s, u""_s, u""_s, u"not given"_s}));
    EXPECT_FALSE(Screens::IsLoaded<frmLedger>());
}

TEST_F(LedgerTest, AnEmptyScreenKeepsTheRoomAndTheDateOfTheFormerPatient) {
    gRoomID = u"301-A"_s;
    gAdmissionDate = u"11/03/2026"_s;
    Open();
    const auto shown = ViewReport();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->values.at(3), u",  "_s);
    EXPECT_EQ(shown->values.at(5), u"301-A"_s);
    EXPECT_EQ(shown->values.at(6), u"11/03/2026"_s);
}

TEST_F(LedgerTest, TheLetterComesFromTheShapeOfTheNumberAlone) {
    Open();
    PatientCode().setCurrentIndex(0);
    gPatientType = u"I"_s;
    EXPECT_EQ(LetterOf(u"104233B"_s), u"O"_s);
    Open();
    PatientCode().setCurrentIndex(1);
    EXPECT_EQ(LetterOf(u" 700045 "_s), u"I"_s);
    EXPECT_EQ(LetterOf(u""_s), u"O"_s);
    EXPECT_EQ(LetterOf(u"   "_s), u"O"_s);
}

TEST_F(LedgerTest, TheNumberGoesToTheReportUntrimmed) {
    Open();
    Box("txtIDNum").setText(u" 700045 "_s);
    EXPECT_EQ(ViewReport().value().values.at(1), u" 700045 "_s);
}

TEST_F(LedgerTest, TheHourglassStandsWhileTheReportIsOpened) {
    ASSERT_TRUE(QFile::remove(programDirectory.filePath(u"Reports/Orvandelle_Ledger.rpt"_s)));
    Open();
    Click(Find<QPushButton>(Screens::Get<frmLedger>(), "cmdView"));
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    EXPECT_EQ(TakeFailure(), RunTime::kFileNotFound);
    EXPECT_TRUE(Screens::IsLoaded<frmLedger>());
}

TEST_F(LedgerTest, UnloadingEnablesTheEntryOfTheBarByWhicheverWay) {
    const frmLedger& screen = Open();
    Click(Find<QPushButton>(screen, "cmdClose"));
    EXPECT_FALSE(Screens::IsLoaded<frmLedger>());
    EXPECT_THAT(workspace.menuItems, ElementsAre(Pair(u"mnuMLedger"_s, true)));
    workspace.menuItems.clear();
    Open().window();
    Screens::Unload<frmLedger>();
    EXPECT_THAT(workspace.menuItems, ElementsAre(Pair(u"mnuMLedger"_s, true)));
    workspace.menuItems.clear();
    Open();
    ASSERT_TRUE(ViewReport());
    EXPECT_THAT(workspace.menuItems, ElementsAre(Pair(u"mnuMLedger"_s, true)));
}
