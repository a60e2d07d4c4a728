#include "suite/ConsoleSignOn.h"

#include "suite/CoreDumps.h"
#include "suite/DataSource.h"
#include "suite/Passwords.h"
#include "suite/SilentTerminal.h"
#include "text/RunTimeError.h"
#include "tsql/ServerError.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sodium.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

RunTimeError NoPassword(const QString& why) {
    return RunTimeError(RunTime::kPathFileAccess, u"There is no password: "_s + why);
}

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
        const auto count = ::read(input, &byte, 1);
        if (count < 0 && errno == EINTR && !SilentTerminal::IsInterrupted())
            continue;
        if (count < 0)
            throw NoPassword(QString::fromLocal8Bit(std::strerror(errno)));
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

QString ReadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw NoPassword(u"%1: %2"_s.arg(path, file.errorString()));
    if (QFileInfo(file).isFile() && MayOthersRead(file))
        throw NoPassword(u"others than its owner may read %1 (chmod 600 keeps it from them)."_s.arg(path));
    return ReadLine(file.handle());
}

QString ReadPassword(const QString& file, int input) {
    if (!file.isEmpty())
        return ReadFile(file);
    return ::isatty(input) ? ReadTyped(input) : ReadLine(input);
}

void TellOnError(const QString& text) {
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

void Serve(std::chrono::seconds wait) {
    TellOnError(
        u"There were too many failed sign-ons. The password is looked at in %1 seconds."_s.arg(wait.count()));
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

void RequireMade(const DataSource& source) {
    if (source.NeedsMaking())
        throw RunTimeError(RunTime::kFileNotFound,
                           u"%1 has yet to be made: sign on to it once in the program."_s.arg(source.Name()));
}

std::unique_ptr<SignedOnUser> SignOnAtConsole(DataSource& source, const QString& user,
                                              const ConsolePassword& password, const QString& deptCode,
                                              bool toReplace) {
    RequireMade(source);
    SignOnTry signOn{.deptCode = deptCode, .toReplace = toReplace};
    while (true) {
        SignOnOutcome outcome = TrySignOn(source, user, password.Text(), signOn);
        if (outcome.user) {
            if (outcome.user->failed)
                TellOnError(TextOf(*outcome.user->failed));
            return std::move(outcome.user);
        }
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
