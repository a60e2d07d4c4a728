#include "suite/RegisterSuite.h"
#include "workstation/KeyedProgram.h"
#include "workstation/Scripts.h"

#include <cstdio>

using namespace Qt::StringLiterals;

// The program with a clerk at the keys: workstation-child <script> <program folder>.

int main(int argc, char** argv) {
    if (argc != 3 || !Scripts().contains(argv[1])) {
        std::fprintf(stderr, "no such script\n");
        return kScriptFailed;
    }
    const QString folder = QString::fromLocal8Bit(argv[2]);
    return RunKeyedProgram(
        folder, [&folder] { RegisterSuite(folder + u"/data"_s); }, Scripts().at(argv[1]));
}
