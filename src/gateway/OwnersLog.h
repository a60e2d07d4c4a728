#pragma once

#include <QByteArray>
#include <QString>

/// A file that is written at its end, line by line, and is its owner's alone.
class OwnersLog {
  public:
    /// Goes on with the file, or begins it. Raises 75 with its path where it cannot be written, is no plain
    /// file or is another user's.
    explicit OwnersLog(const QString& path);
    OwnersLog(const OwnersLog&) = delete;
    OwnersLog& operator=(const OwnersLog&) = delete;
    ~OwnersLog();

    /// Writes a line in one go: those of other threads and processes come between lines. A line for which
    /// the disk has no room is lost without a word.
    void Write(const QByteArray& line) const;

  private:
    /// The operating system's own.
    qintptr mFile;
};
