#include "suite/SilentTerminal.h"

#include <QFile>

#include <array>
#include <csignal>
#include <termios.h>
#include <unistd.h>

namespace {

// The last one would stop the process with a terminal that shows nothing.
constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

/// The signal that came while a password was typed; 0 for none.
volatile std::sig_atomic_t signalWhileTyping = 0;

void KeepSignal(int signal) {
    signalWhileTyping = signal;
}

} // namespace

struct SilentTerminal::Before {
    termios shown{};
    std::array<struct sigaction, kSignals.size()> actions{};
};

SilentTerminal::SilentTerminal(int terminal)
    : mTerminal(terminal)
    , mBefore(std::make_unique<Before>()) {
    signalWhileTyping = 0;
    struct sigaction keep {};
    keep.sa_handler = KeepSignal;
    for (size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &keep, &mBefore->actions[i]);
    tcgetattr(mTerminal, &mBefore->shown);
    termios silent = mBefore->shown;
    silent.c_lflag &= ~tcflag_t(ECHO);
    silent.c_lflag |= ECHONL;
    tcsetattr(mTerminal, TCSAFLUSH, &silent);
}

SilentTerminal::~SilentTerminal() {
    tcsetattr(mTerminal, TCSAFLUSH, &mBefore->shown);
    for (size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &mBefore->actions[i], nullptr);
    if (signalWhileTyping != 0)
        std::raise(signalWhileTyping);
}

void SilentTerminal::Ask(std::string_view prompt) const {
    [[maybe_unused]] const auto written = ::write(mTerminal, prompt.data(), prompt.size());
}

bool SilentTerminal::IsInterrupted() {
    return signalWhileTyping != 0;
}

bool MayOthersRead(const QFile& file) {
    constexpr QFile::Permissions kOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                           QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    return bool(file.permissions() & kOthers);
}
