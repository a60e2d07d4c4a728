#include "gateway/OwnersLog.h"

#include "text/RunTimeError.h"

#include <windows.h>

using namespace Qt::StringLiterals;

namespace {

HANDLE HandleOf(qintptr file) {
    return reinterpret_cast<HANDLE>(file);
}

} // namespace

// Whose a new file is, and who may read it, is told by the list of its folder: a folder of the user's is his
// alone.
OwnersLog::OwnersLog(const QString& path)
    : mFile(qintptr(CreateFileW(reinterpret_cast<const wchar_t*>(path.utf16()), FILE_APPEND_DATA,
                                FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr))) {
    if (HandleOf(mFile) != INVALID_HANDLE_VALUE)
        return;
    throw RunTimeError(RunTime::kPathFileAccess,
                       u"%1: %2 (%3)"_s.arg(RunTime::TextOf(RunTime::kPathFileAccess), path,
                                            qt_error_string(int(GetLastError()))));
}

OwnersLog::~OwnersLog() {
    CloseHandle(HandleOf(mFile));
}

void OwnersLog::Write(const QByteArray& line) const {
    DWORD written = 0;
    WriteFile(HandleOf(mFile), line.constData(), DWORD(line.size()), &written, nullptr);
}
