#include "report/viewer/FetchThread.h"
#include "shell/Main.h"
#include "shell/RegisterScreens.h"
#include "suite/RegisterSuite.h"
#include "support/ProgramDirectoryAt.h"
#include "toolkit/Application.h"
#include "toolkit/Failure.h"
#include "toolkit/FileDialogs.h"
#include "workstation/Scripts.h"

#include <QFileInfo>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

// The program as main.cpp starts it, with a clerk at the keys: workstation-child <script> <program folder>.

namespace {

constexpr int kScriptFailed = 70;

QString programFolder;

/// A file of that name in the program's folder; one that was saved before keeps its content.
QString FreeFile(QWidget*, const QString&, const QString& name, const QString&) {
    const QFileInfo wanted(programFolder + u'/' + name);
    QString file = wanted.filePath();
    for (int copy = 2; QFileInfo::exists(file); ++copy)
        file = u"%1/%2-%3.%4"_s.arg(programFolder, wanted.completeBaseName()).arg(copy).arg(wanted.suffix());
    return file;
}

/// The program's own end is not waited for: the script has seen what it wanted to see.
[[noreturn]] void Leave(int code) {
    std::fflush(stdout);
    _exit(code);
}

void StartProgram() {
    try {
        Main();
    } catch (...) {
        Failure::End(std::current_exception());
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 || !Scripts().contains(argv[1])) {
        std::fprintf(stderr, "no such script\n");
        return kScriptFailed;
    }
    Failure::InstallTerminateHandler();
    int argumentCount = 1;
    const Application application(argumentCount, argv);
    programFolder = QString::fromLocal8Bit(argv[2]);
    const auto directory = ProgramDirectoryAt(programFolder);
    const auto saving = SaveDialogSeam().Replace(FreeFile);
    RegisterSuite(programFolder + u"/data"_s);
    RegisterScreens();
    Driver clerk;
    QTimer::singleShot(0, &application, StartProgram);
    clerk.Start(Scripts().at(argv[1]), [](const QString& failure) {
        if (failure.isEmpty())
            Leave(0);
        std::fprintf(stderr, "%s\n", qPrintable(failure));
        Leave(kScriptFailed);
    });
    const int code = Application::exec();
    // The script may stand in the middle of a step; only the program's own end comes here. It ends as the
    // program does, and lets go of the hospital on the way.
    std::printf("the program ended\n");
    LeaveFetchThreads();
    return code;
}
