#include "workstation/KeyedProgram.h"

#include "report/viewer/FetchThread.h"
#include "shell/Main.h"
#include "shell/RegisterScreens.h"
#include "support/ProgramDirectoryAt.h"
#include "toolkit/Application.h"
#include "toolkit/Failure.h"
#include "toolkit/FileDialogs.h"

#include <QFileInfo>
#include <QTimer>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A file of that name in the folder; one that was saved before keeps its content.
QString FreeFile(const QString& folder, const QString& name) {
    const QFileInfo wanted(folder + u'/' + name);
    QString file = wanted.filePath();
    for (int copy = 2; QFileInfo::exists(file); ++copy)
        file = u"%1/%2-%3.%4"_s.arg(folder, wanted.completeBaseName()).arg(copy).arg(wanted.suffix());
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

int RunKeyedProgram(const QString& programFolder, const std::function<void()>& registerSuite,
                    const std::function<void(Driver&)>& script) {
    Failure::InstallTerminateHandler();
    int argumentCount = 1;
    char name[] = "workstation";
    char* arguments[] = {name, nullptr};
    const Application application(argumentCount, arguments);
    const auto directory = ProgramDirectoryAt(programFolder);
    const auto saving =
        SaveDialogSeam().Replace([&programFolder](QWidget*, const QString&, const QString& file,
                                                  const QString&) { return FreeFile(programFolder, file); });
    registerSuite();
    RegisterScreens();
    Driver clerk;
    QTimer::singleShot(0, &application, StartProgram);
    clerk.Start(script, [](const QString& failure) {
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
