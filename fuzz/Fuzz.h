#pragma once

#include "text/RunTimeError.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What one input of a target is: called with any bytes, it does what the program would do with them, and a
/// fault that they lead to ends the process.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// The input's bytes; they are looked at and not copied.
inline QByteArray BytesOf(const std::uint8_t* data, std::size_t size) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
}

/// Ends the process where something does not hold that always has to; the input is kept as a finding then.
inline void Require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// Does what may fail in the one way that screens know how to show. Any other exception is a finding.
template <class Work> void Allowing(Work work) {
    try {
        work();
    } catch (const RunTimeError&) {
        // That is an answer.
    }
}
