#include "suite/ConsoleSignOn.h"

#include "suite/CoreDumps.h"
#include "suite/DataSource.h"
#include "suite/Passwords.h"
#include "text/RunTimeError.h"
#include "tsql/ServerError.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sodium.h>
#include <string_view>
#include <sys/stat.h>
#include <termios.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

RunTimeError NoPassword(const QString& why) {
    return RunTimeError(RunTime::kPathFileAccess, u"There is no password: "_s + why);
}

QString SystemText() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// The signal that came while a password was typed; 0 for none.
volatile std::sig_atomic_t signalWhileTyping = 0;

void KeepSignal(int signal) {
    signalWhileTyping = signal;
}

/// A terminal that shows nothing of what is typed, for as long as this lives. A signal that would end the
/// process in between does so once the terminal shows what is typed again.
class SilentTerminal {
  public:
    explicit SilentTerminal(int terminal)
        : mTerminal(terminal) {
        signalWhileTyping = 0;
        struct sigaction keep {};
        keep.sa_handler = KeepSignal;
        for (size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &keep, &mBefore[i]);
        tcgetattr(mTerminal, &mShown);
        termios silent = mShown;
        silent.c_lflag &= ~tcflag_t(ECHO);
        silent.c_lflag |= ECHONL;
        tcsetattr(mTerminal, TCSAFLUSH, &silent);
    }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;
    ~SilentTerminal() {
        tcsetattr(mTerminal, TCSAFLUSH, &mShown);
        for (size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &mBefore[i], nullptr);
        if (signalWhileTyping != 0)
            std::raise(signalWhileTyping);
    }

    void Ask(std::string_view prompt) const {
        // A terminal that cannot be written to is asked nothing and still answers.
        [[maybe_unused]] const auto written = ::write(mTerminal, prompt.data(), prompt.size());
    }

  private:
    // The last one would stop the process with a terminal that shows nothing.
    static constexpr std::array kSignals = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

    int mTerminal;
    termios mShown{};
    std::array<struct sigaction, kSignals.size()> mBefore{};
};

/// Reads one line, byte by byte, so that no buffer keeps it and what follows stays where it is.
QString ReadLine(int input) {
    constexpr size_t kLongest = 1024;
    struct Line {
        std::array<char, kLongest> bytes;
        size_t length = 0;
        ~Line() { sodium_memzero(bytes.data(), bytes.size()); }
    } line;
    while (true) {
        char byte = 0;
        const ssize_t count = ::read(input, &byte, 1);
        if (count < 0 && errno == EINTR && signalWhileTyping == 0)
            continue;
        if (count < 0)
            throw NoPassword(SystemText());
        if (count == 0 && line.length == 0)
            throw NoPassword(u"nothing came."_s);
        if (count == 0 || byte == '\n')
            break;
        if (line.length == kLongest)
            throw NoPassword(u"its line is longer than 1,024 bytes."_s);
        line.bytes[line.length++] = byte;
    }
    if (line.length > 0 && line.bytes[line.length - 1] == '\r')
        --line.length;
    return QString::fromUtf8(line.bytes.data(), qsizetype(line.length));
}

QString ReadTyped(int terminal) {
    const SilentTerminal silent(terminal);
    silent.Ask("Password: ");
    return ReadLine(terminal);
}

/// A file that is open for as long as this lives.
class PasswordFile {
  public:
    explicit PasswordFile(const QString& path)
        : mHandle(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)) {
        if (mHandle < 0)
            throw NoPassword(u"%1: %2"_s.arg(path, SystemText()));
        struct stat found {};
        if (::fstat(mHandle, &found) == 0 && S_ISREG(found.st_mode) && (found.st_mode & (S_IRWXG | S_IRWXO)))
            throw NoPassword(
                u"others than its owner may read %1 (chmod 600 keeps it from them)."_s.arg(path));
    }
    PasswordFile(const PasswordFile&) = delete;
    PasswordFile& operator=(const PasswordFile&) = delete;
    ~PasswordFile() { ::close(mHandle); }

    int Handle() const { return mHandle; }

  private:
    int mHandle;
};

QString ReadPassword(const QString& file, int input) {
    if (!file.isEmpty())
        return ReadLine(PasswordFile(file).Handle());
    return ::isatty(input) ? ReadTyped(input) : ReadLine(input);
}

void Serve(std::chrono::seconds wait) {
    std::fprintf(stderr, "There were too many failed sign-ons. The password is looked at in %d seconds.\n",
                 int(wait.count()));
    std::this_thread::sleep_for(wait);
}

} // namespace

ConsolePassword::ConsolePassword(const QString& file, int input) {
    ForbidCoreDumps();
    mText = ReadPassword(file, input);
}

ConsolePassword::~ConsolePassword() {
    WipePassword(mText);
}

std::unique_ptr<SignedOnUser> SignOnAtConsole(DataSource& source, const QString& user,
                                              const ConsolePassword& password, const QString& deptCode) {
    if (source.NeedsMaking())
        throw RunTimeError(RunTime::kFileNotFound,
                           u"%1 has yet to be made: sign on to it once in the program."_s.arg(source.Name()));
    SignOnTry signOn{.deptCode = deptCode};
    while (true) {
        SignOnOutcome outcome = TrySignOn(source, user, password.Text(), signOn);
        if (outcome.user)
            return std::move(outcome.user);
        if (outcome.wait.count() == 0)
            throw RunTimeError(static_cast<int>(Fault::LoginFailed), outcome.refusal);
        ConsoleWaitSeam()(outcome.wait);
        signOn.waited = true;
    }
}

Seam<void(std::chrono::seconds)>& ConsoleWaitSeam() {
    static Seam<void(std::chrono::seconds)> seam(Serve);
    return seam;
}
