#include "desk/Probe.h"
#include "shell/Main.h"
#include "shell/RegisterScreens.h"
#include "suite/RegisterSuite.h"
#include "support/ProgramDirectoryAt.h"
#include "toolkit/Application.h"
#include "toolkit/DisplaySize.h"
#include "toolkit/Failure.h"

#include <cstdio>

using namespace Qt::StringLiterals;

// The program as main.cpp starts it, with a probe inside: desk-child <program folder>.

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "desk-child needs the program's folder\n");
        return 2;
    }
    Failure::InstallTerminateHandler();
    int argumentCount = 1;
    DisplaySize::Apply(argv[0]);
    const Application application(argumentCount, argv);
    DisplaySize::LeaveEnvironment();
    const QString programFolder = QString::fromLocal8Bit(argv[1]);
    const auto directory = ProgramDirectoryAt(programFolder);
    const Probe probe;
    try {
        RegisterSuite(programFolder + u"/data"_s);
        RegisterScreens();
        Main();
        return Application::exec();
    } catch (...) {
        Failure::End(std::current_exception());
    }
    return 1;
}
