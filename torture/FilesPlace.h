#pragma once

#include "support/hospital/ProgramFolder.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// How a desk of the torture of files came to its end.
struct FilesDeskEnd {
    /// What is wrong with the end itself: it crashed, it hung, its clerk did not find what he looked for.
    QStringList problems;
    bool signedOn = false;
    /// What the sign-on window has told, or the box of a failure; empty for nothing.
    QString refused;
    QString failure;
    /// Patient, total and number of the slip, as the program has shown them.
    QString shown;

    /// What the clerk was told.
    const QString& Told() const { return refused.isEmpty() ? failure : refused; }
};

/// The files of a folder by their names, with rights and bytes, for telling that nothing was destroyed.
struct FileLeft {
    unsigned mode = 0;
    QByteArray content;

    bool operator==(const FileLeft&) const = default;
};
using FilesLeft = QMap<QString, FileLeft>;

/// A program's folder with a hospital in it, to which things are done that should not happen to a hospital.
/// Whoever works in it is an ordinary user of the machine.
class FilesPlace {
  public:
    /// The folder's name begins so.
    explicit FilesPlace(const QString& name);
    FilesPlace(const FilesPlace&) = delete;
    FilesPlace& operator=(const FilesPlace&) = delete;
    ~FilesPlace();

    /// Lets this process and those that it starts have disks of their own, which are gone with it. False
    /// where the system does not allow that.
    static bool MayHaveDisks();

    /// A folder of the place.
    QString Path() const { return mFolder.Path(); }
    QString DataFolder() const { return mFolder.File(QStringLiteral("data")); }
    QString Hospital() const { return mFolder.HospitalPath(); }
    QString Log() const { return Hospital() + QStringLiteral("-wal"); }
    QString Index() const { return Hospital() + QStringLiteral("-shm"); }
    const ProgramFolder& Folder() const { return mFolder; }

    /// What the desks find in their environment; a Null text takes a variable away.
    void Set(const QString& variable, const QString& value) { mVariables.insert(variable, value); }
    /// What their clock shows.
    void SetMoment(const QString& moment) { mMoment = moment; }
    /// The desks look for the hospital where the program itself does.
    void LookWhereTheProgramDoes() { mLooksItself = true; }

    /// Puts the data folder, as it is, on a disk of that many kilobytes.
    void PutOnADisk(int kilobytes);
    void ResizeDisk(int kilobytes) const;
    void MakeDiskReadOnly();
    /// Fills the disk until that many kilobytes are left.
    void FillDisk(int kilobytesLeft) const;

    /// What the data folder holds; the index, which is made anew from the log, and a log without commands are
    /// left out.
    FilesLeft Left() const;

    /// Runs a desk to its end. `beforeSave` is done when the slip is keyed and not yet saved.
    FilesDeskEnd Work(const std::function<void()>& beforeSave = {});
    /// The slip as it stands on paper, and as it stands in the hospital.
    QString Paper() const;
    QString Charges(const FilesDeskEnd& end) const;

  private:
    void GiveToTheClerk() const;
    QProcessEnvironment Environment() const;

    ProgramFolder mFolder;
    QMap<QString, QString> mVariables;
    QString mMoment = QStringLiteral("2026-11-21 10:15");
    bool mLooksItself = false;
    bool mHasDisk = false;
    int mDesks = 0;
};
