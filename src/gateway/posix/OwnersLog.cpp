#include "gateway/OwnersLog.h"

#include "text/RunTimeError.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr mode_t kOwnersAlone = S_IRUSR | S_IWUSR;

[[noreturn]] void RaiseFileError(const QString& path, const QString& reason) {
    throw RunTimeError(RunTime::kPathFileAccess,
                       u"%1: %2 (%3)"_s.arg(RunTime::TextOf(RunTime::kPathFileAccess), path, reason));
}

/// Whether the file behind the descriptor is a plain one of this user, which no one else can read from now
/// on.
bool BecomesOwnersAlone(int file) {
    struct stat state = {};
    return fstat(file, &state) == 0 && S_ISREG(state.st_mode) && state.st_uid == geteuid() &&
           fchmod(file, kOwnersAlone) == 0;
}

} // namespace

OwnersLog::OwnersLog(const QString& path)
    : mFile(open(QFile::encodeName(path).constData(),
                 O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kOwnersAlone)) {
    if (mFile < 0)
        RaiseFileError(path, QString::fromLocal8Bit(std::strerror(errno)));
    if (BecomesOwnersAlone(int(mFile)))
        return;
    close(int(mFile));
    RaiseFileError(path, u"it is no file of this user"_s);
}

OwnersLog::~OwnersLog() {
    close(int(mFile));
}

void OwnersLog::Write(const QByteArray& line) const {
    [[maybe_unused]] const ssize_t written = write(int(mFile), line.constData(), size_t(line.size()));
}
