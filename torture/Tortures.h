#pragma once

#include <QStringList>

#include <span>

class TortureTable;
struct TortureSize;

/// A torture by its name.
struct NamedTorture {
    const char* name;
    void (*run)(TortureTable& table, const TortureSize& size);
};

/// What a torture starts as a process of its own.
struct NamedProcess {
    const char* name;
    int (*run)(const QStringList& arguments);
};

/// Those that this operating system has the means for.
std::span<const NamedTorture> Tortures();
std::span<const NamedProcess> TortureProcesses();
