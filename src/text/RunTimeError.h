#pragma once

#include <QString>

#include <exception>

/// A failure as the run-time reports it: a number, a text and, from a database, its five-letter SQL state.
///
/// Nothing catches it but the few traps that the workstation has; everywhere else it ends the process, with
/// its text shown. A database's own failure carries the database's native number and its text unchanged.
class RunTimeError : public std::exception {
  public:
    RunTimeError(int number, const QString& description, const QString& state = {});

    int Number() const { return mNumber; }
    const QString& Description() const { return mDescription; }
    /// The SQL state, such as "42000"; empty for the run-time's own errors.
    const QString& State() const { return mState; }
    const char* what() const noexcept override { return mWhat.constData(); }

  private:
    int mNumber;
    QString mDescription;
    QString mState;
    QByteArray mWhat;
};

/// The run-time's own errors, with their fixed numbers and texts.
namespace RunTime {

constexpr int kOverflow = 6;
constexpr int kOutOfMemory = 7;
constexpr int kSubscriptOutOfRange = 9;
constexpr int kTypeMismatch = 13;
constexpr int kFileNotFound = 53;
constexpr int kPathFileAccess = 75;
constexpr int kObjectNotSet = 91;
constexpr int kInvalidUseOfNull = 94;
constexpr int kInvalidPropertyValue = 380;
constexpr int kCannotCreateObject = 429;
constexpr int kPrinterError = 482;
constexpr int kNoCurrentRecord = 3021;
constexpr int kNotUpdatable = 3251;
constexpr int kItemNotFound = 3265;
constexpr int kObjectClosed = 3704;
constexpr int kInvalidRow = 30009;
constexpr int kInvalidCol = 30010;
constexpr int kRowChanged = -2147217864;

/// The run-time's text for one of its numbers; empty for a number that it does not know.
QString TextOf(int number);

/// The error with that number and the run-time's text for it.
RunTimeError Error(int number);

} // namespace RunTime
