#include "shell/Main.h"

#include "driver/DarkDesktop.h"
#include "driver/Department.h"
#include "driver/Driver.h"
#include "driver/Screenshot.h"
#include "driver/SignOn.h"
#include "gallery/Exhibits.h"
#include "shell/RegisterScreens.h"
#include "suite/RegisterSuite.h"
#include "toolkit/Application.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

// The gallery: the screens that no menu leads to, over a trial hospital of its own.
//
//     tarven-gallery <class>...
//         opens the screens after the sign-on (user NURSE, password nurse)
//
//     tarven-gallery --pictures <folder> [--dark]
//         saves pictures of all of them, without a display, on a light desktop or on a dark one

namespace {

constexpr int kUsage = 2;

QString pictureFolder;

int Usage() {
    std::fprintf(stderr, "usage: tarven-gallery <class>...\n"
                         "       tarven-gallery --pictures <folder> [--dark]\n"
                         "classes:");
    for (const Exhibit& exhibit : Exhibits())
        std::fprintf(stderr, " %s", qPrintable(exhibit.name));
    std::fprintf(stderr, "\n");
    return kUsage;
}

void TakePictures(Driver& clerk) {
    SizeForPictures(clerk);
    SignOn(clerk);
    for (const Exhibit& exhibit : Exhibits()) {
        clerk.OnScreen(exhibit.open);
        clerk.ExpectScreen(exhibit.name);
        exhibit.visit(clerk, [&](const QString& name) {
            SaveScreenshot(clerk, u"%1/%2-%3.png"_s.arg(pictureFolder, exhibit.name, name));
        });
        clerk.OnScreen(exhibit.close);
    }
}

int ExitCode(const QString& failure) {
    if (failure.isEmpty())
        return 0;
    std::fprintf(stderr, "The gallery ended early: %s\n", qPrintable(failure));
    return 1;
}

/// The screens of the classes named; nothing when one is unknown.
std::vector<Exhibit> Chosen(const QStringList& names) {
    std::vector<Exhibit> chosen;
    for (const QString& name : names) {
        for (const Exhibit& exhibit : Exhibits()) {
            if (exhibit.name.compare(name, Qt::CaseInsensitive) == 0)
                chosen.push_back(exhibit);
        }
    }
    return chosen.size() == size_t(names.size()) ? chosen : std::vector<Exhibit>();
}

} // namespace

int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const bool pictures = arguments.size() >= 2 && arguments[0] == u"--pictures"_s;
    const std::vector<Exhibit> chosen = pictures ? std::vector<Exhibit>() : Chosen(arguments);
    if (!pictures && chosen.empty())
        return Usage();
    if (pictures) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // What the offscreen platform cannot do is of no interest here.
        qputenv("QT_LOGGING_RULES", "*.warning=false");
        pictureFolder = QDir(arguments[1]).absolutePath();
        if (!QDir().mkpath(pictureFolder))
            return ExitCode(u"cannot make the folder "_s + pictureFolder);
    }
    const auto dark = DarkDesktopIfAsked(argc, argv);
    const Application application(argc, argv);
    if (const QString failure = ProvideDepartment(); !failure.isEmpty())
        return ExitCode(failure);
    const QTemporaryDir hospitalFolder;
    RegisterSuite(hospitalFolder.path());
    RegisterScreens();
    QTimer::singleShot(0, &application, [&chosen] {
        Main();
        for (const Exhibit& exhibit : chosen)
            exhibit.open();
    });
    Driver clerk;
    if (pictures)
        clerk.Start(TakePictures, [](const QString& failure) { QCoreApplication::exit(ExitCode(failure)); });
    return Application::exec();
}
