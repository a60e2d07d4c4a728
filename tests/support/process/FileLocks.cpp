#include "support/process/FileLocks.h"

#include "support/process/ChildProcess.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

bool IsHeldOpen(const QString& path) {
    // The range that SQLite locks for as long as a connection reads, by its description of the file's format.
    constexpr off_t kSharedFirst = 0x40000002;
    constexpr off_t kSharedSize = 510;
    constexpr int kHeld = 1;
    const int answer = RunInChild([&path] {
        const int file = ::open(QFile::encodeName(path).constData(), O_RDWR);
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        lock.l_start = kSharedFirst;
        lock.l_len = kSharedSize;
        return ::fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK ? kHeld : 0;
    });
    return answer == kHeld;
}
