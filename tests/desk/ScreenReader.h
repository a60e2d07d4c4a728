#pragma once

#include "desk/OwnProcess.h"

#include <QJsonValue>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

/// What a screen reader was told.
struct Heard {
    /// "focus", "name" or "shown".
    QString what;
    QString role;
    QString name;
    QString text;
};

/// A screen reader on an accessibility bus of its own, with a session of its own around it.
class ScreenReader {
  public:
    /// Null where the machine has no such bus or nothing to listen on it with.
    static std::unique_ptr<ScreenReader> Start();

    /// What leads a program to the bus.
    QProcessEnvironment Settings() const;

    /// Waits until something is heard that fits, from what has not been waited for yet on, and answers it. An
    /// empty role fits any. Raises std::runtime_error when nothing more is heard.
    Heard Expect(const QString& what, const QString& role, const QString& name);
    /// Everything that was heard so far.
    const std::vector<Heard>& All() const { return mHeard; }
    /// Asks listen.py.
    QJsonValue Ask(const QString& question);

  private:
    ScreenReader();

    /// Reads a line; false where it was an answer, which is kept.
    bool ReadHeard();

    QTemporaryDir mFolder;
    std::optional<OwnProcess> mSession;
    std::optional<OwnProcess> mListener;
    QString mAddress;
    std::vector<Heard> mHeard;
    size_t mWaitedFor = 0;
    QJsonValue mAnswer;
};
