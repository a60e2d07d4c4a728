#include "shell/Main.h"

#include "gateway/CommandTrace.h"
#include "report/viewer/FetchThread.h"
#include "shell/RegisterScreens.h"
#include "suite/RegisterSuite.h"
#include "toolkit/Application.h"
#include "toolkit/DisplaySize.h"
#include "toolkit/Failure.h"
#include "toolkit/NoDisplay.h"

#include <QStandardPaths>

int main(int, char** argv) {
    Failure::InstallTerminateHandler();
    EndInWordsWithoutDisplay();
    // The program takes no command line; the toolkit gets none either.
    int argumentCount = 1;
    DisplaySize::Apply(argv[0]);
    const Application application(argumentCount, argv);
    DisplaySize::LeaveEnvironment();
    try {
        // To the end of the process: a report's thread that nobody waits for may still write its line.
        CommandTrace::SetCurrent(CommandTrace::OfEnvironment().release());
        RegisterSuite(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
        RegisterScreens();
        Main();
        const int code = Application::exec();
        LeaveFetchThreads();
        return code;
    } catch (...) {
        Failure::End(std::current_exception());
    }
    return 1;
}
