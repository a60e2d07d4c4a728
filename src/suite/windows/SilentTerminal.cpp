#include "suite/SilentTerminal.h"

#include <io.h>
#include <windows.h>

namespace {

HANDLE ConsoleOf(int terminal) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(terminal));
}

} // namespace

struct SilentTerminal::Before {
    DWORD mode = 0;
};

SilentTerminal::SilentTerminal(int terminal)
    : mTerminal(terminal)
    , mBefore(std::make_unique<Before>()) {
    GetConsoleMode(ConsoleOf(mTerminal), &mBefore->mode);
    SetConsoleMode(ConsoleOf(mTerminal), mBefore->mode & ~DWORD(ENABLE_ECHO_INPUT));
}

SilentTerminal::~SilentTerminal() {
    SetConsoleMode(ConsoleOf(mTerminal), mBefore->mode);
    Ask("\n");
}

void SilentTerminal::Ask(std::string_view prompt) const {
    // What is read from and what is written to are two here.
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), prompt.data(), DWORD(prompt.size()), &written, nullptr);
}

bool SilentTerminal::IsInterrupted() {
    // A console that is closed, or Ctrl+C, ends the process; the console shows what is typed for the next
    // one.
    return false;
}

bool MayOthersRead(const QFile&) {
    // Who may read a file is told by the list of its folder, which the toolkit does not read.
    return false;
}
