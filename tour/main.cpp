#include "shell/Main.h"

#include "components/shared.h"
#include "driver/DarkDesktop.h"
#include "driver/Department.h"
#include "driver/Driver.h"
#include "driver/SignOn.h"
#include "report/viewer/FetchThread.h"
#include "reports/Reports.h"
#include "shell/RegisterScreens.h"
#include "suite/RegisterSuite.h"
#include "toolkit/Application.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/ProgramFiles.h"
#include "toolkit/Screens.h"
#include "tour/Album.h"
#include "tour/CashDesk.h"
#include "tour/DepartmentReports.h"
#include "tour/Wards.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

// The tour: one charge from the sign-on to the slip, one assessment of a walk-in, the reports, what is
// done after the save, and a ward's request, keyed as a clerk would, with a picture of each screen.
//
//     tarven-tour [folder [--dark]]
//         the pictures are those of a light desktop, or of a dark one; QT_SCALE_FACTOR scales them

namespace {

QString tourFolder;
/// The name of the next slip that is saved.
QString slipName;

void SignOnForPictures(Driver& clerk, Album& album) {
    SizeForPictures(clerk);
    album.Take(u"sign-on"_s);
    SignOn(clerk);
    album.Take(u"main-window"_s);
}

void LookAtAbout(Driver& clerk, Album& album) {
    // The picture tells of a program that is installed, and not of where the tour happens to run.
    const auto folder = ProgramDirectorySeam().Replace([] { return u"/usr/lib/tarven/hemodialysis"_s; });
    clerk.ChooseMenu(u"mnuAbout"_s);
    clerk.ExpectScreen(u"frmAbout"_s);
    clerk.WaitFor([] { return VisibleControl(u"frmAbout"_s).windowOpacity() == 1; }, u"the whole box"_s);
    album.Take(u"about"_s);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmAbout"_s);
}

void FindPatient(Driver& clerk, Album& album) {
    clerk.ChooseMenu(u"mnuInTransactionEntry"_s);
    clerk.ExpectFocus(u"txtLastName"_s);
    clerk.Type(u"de"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmSearchPatient"_s);
    clerk.ExpectFocus(u"ListView1"_s);
    album.Take(u"patient-finder"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectNoScreen(u"frmSearchPatient"_s);
}

void KeyLine(Driver& clerk, const QString& department, const QString& code, const QString& quantity) {
    clerk.Type(department);
    clerk.Press(Qt::Key_Return);
    clerk.Type(code);
    clerk.Press(Qt::Key_Return);
    clerk.Type(quantity);
    clerk.Press(Qt::Key_Return);
    // Past the price, and past the amount where it is open, to the next line.
    clerk.Press(Qt::Key_Return);
    if (department != u"hc"_s)
        clerk.Press(Qt::Key_Return);
}

void KeyCharges(Driver& clerk, Album& album) {
    clerk.TabTo(u"txtDocID"_s);
    clerk.Type(u"D001"_s);
    clerk.Press(Qt::Key_Return);
    clerk.TabTo(u"txtEntry"_s);
    KeyLine(clerk, u"hc"_s, u"HC001"_s, u"1"_s);
    KeyLine(clerk, u"hb"_s, u"M0002"_s, u"2"_s);
    clerk.Type(u"hc"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Type(u"dialyzer"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"PickDialog"_s);
    album.Take(u"service-pick-list"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Type(u"1"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Press(Qt::Key_Return);
    clerk.Type(u"md"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Type(u"D003"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Type(u"1500"_s);
    clerk.Press(Qt::Key_Return);
    album.Take(u"post-charges"_s);
}

void SaveAndPrint(Driver& clerk, Album& album) {
    clerk.TabTo(u"cmdPrint"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectScreen(u"frmReportviewer"_s);
    album.Take(u"charge-slip"_s);
    slipName = u"charge-slip"_s;
    clerk.Press(Qt::Key_S, Qt::ControlModifier);
    clerk.Press(Qt::Key_Escape);
    clerk.ExpectNoScreen(u"frmPostCharges"_s);
}

void Tour(Driver& clerk) {
    Album album(clerk, tourFolder);
    SignOnForPictures(clerk, album);
    FindPatient(clerk, album);
    KeyCharges(clerk, album);
    SaveAndPrint(clerk, album);
    slipName = u"assessment-slip"_s;
    VisitCashDesk(clerk, album);
    LookAtTheReports(clerk, album);
    VisitWards(clerk, album);
    LookAtAbout(clerk, album);
}

int ExitCode(const QString& failure) {
    if (failure.isEmpty()) {
        std::printf("The pictures and the slips (charge-slip.pdf, assessment-slip.pdf) are in %s\n",
                    qPrintable(tourFolder));
        return 0;
    }
    std::fprintf(stderr, "The tour ended early: %s\n", qPrintable(failure));
    return 1;
}

void LeaveHospital() {
    LeaveFetchThreads();
    Screens::Clear();
    gReport = nullptr;
    gConnection = nullptr;
    gCurrentUser = {};
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the offscreen platform cannot do is of no interest here.
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    const auto dark = DarkDesktopIfAsked(argc, argv);
    const Application application(argc, argv);
    tourFolder = QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"tour"_s).absolutePath();
    if (!QDir().mkpath(tourFolder)) {
        std::fprintf(stderr, "cannot make the folder %s\n", qPrintable(tourFolder));
        return 1;
    }
    if (const QString failure = ProvideDepartment(); !failure.isEmpty())
        return ExitCode(failure);
    // The tour works on a hospital of its own; what was keyed in the user's trial hospital stays untouched.
    const QTemporaryDir hospitalFolder;
    const auto saving =
        SaveDialogSeam().Replace([](QWidget*, const QString&, const QString&, const QString&) {
            return u"%1/%2.pdf"_s.arg(tourFolder, slipName);
        });
    RegisterSuite(hospitalFolder.path());
    RegisterScreens();
    std::printf("The tour of a charge, an assessment, the reports and a request:\n");
    Driver clerk;
    QTimer::singleShot(0, &application, Main);
    clerk.Start(Tour, [](const QString& failure) { QCoreApplication::exit(ExitCode(failure)); });
    const int code = Application::exec();
    // Not every system removes the file of a hospital that is still open.
    LeaveHospital();
    return code;
}
