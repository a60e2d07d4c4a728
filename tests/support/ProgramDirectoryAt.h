#pragma once

#include "toolkit/ProgramFiles.h"

/// The program's files lie in that folder for as long as the replacement lives.
inline Seam<QString()>::Replacement ProgramDirectoryAt(const QString& folder) {
    return ProgramDirectorySeam().Replace([folder] { return folder; });
}
