#pragma once

#include <QString>
#include <QStringList>

/// One desk of the torture of files, as it is told to its process: the whole program, in which a clerk signs
/// on, posts one slip and saves it as a PDF.
struct FilesDesk {
    /// The program's folder.
    QString folder;
    /// Where the hospital lies; empty for where the program itself looks for it.
    QString data;
    QString journal;
    /// What the clock shows from the beginning to the end, as in "2026-11-21 10:15".
    QString moment;
    /// Whether the desk waits for a line before it saves the slip.
    bool waits = false;

    QStringList Arguments() const;
    static FilesDesk In(const QStringList& arguments);
};

/// What a desk writes before it waits.
inline constexpr const char* kBeforeSave = "before the save";
