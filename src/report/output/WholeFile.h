#pragma once

#include <QSaveFile>
#include <QString>

/// A file that takes its place whole or not at all: until then, and when it is not ended, a file of that name
/// is as it was.
class WholeFile {
  public:
    explicit WholeFile(const QString& name);

    /// Whether it could be begun, and everything so far could be written.
    bool IsGood() const;
    QSaveFile& Device() { return mFile; }
    /// Puts it in place. Answers what failed, empty for nothing.
    QString End();
    /// What has failed so far.
    QString Problem() const;

  private:
    QSaveFile mFile;
    bool mOpen;
};
