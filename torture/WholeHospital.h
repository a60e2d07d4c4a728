#pragma once

#include "torture/Journal.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class HospitalCopy;

/// Whether a hospital's file still holds what the desks' journals say, and nothing else: every command that
/// was answered is there once, one that nobody has answered is there once or not at all, and whatever belongs
/// together agrees.
///
/// It looks at a copy, so that the next workstation finds the file as the last one has left it.
class WholeHospital {
  public:
    /// Remembers how the hospital stands before anybody works in it.
    explicit WholeHospital(const QString& path);
    ~WholeHospital();

    /// What is wrong, a line each; nothing where all is well. `journals` are all since the beginning; nobody
    /// works in the hospital meanwhile. The counters are remembered, so that a later look sees one that has
    /// gone back.
    QStringList Problems(const std::vector<ReadJournal>& journals);

    /// Whether every page, row and index of the file agrees with the others. Desks may work on.
    bool FileIsSound() const;

  private:
    using Rows = std::vector<QStringList>;
    struct Beginning {
        qint64 charge = 0;
        qint64 assessment = 0;
        qint64 stockCard = 0;
        qint64 audit = 0;
        qint64 revoked = 0;
        qint64 walkIn = 0;
    };
    class Look;

    Rows Query(const QString& command) const;
    qint64 Number(const QString& command) const;

    QString mPath;
    std::unique_ptr<HospitalCopy> mCopy;
    Beginning mBeginning;
    /// The counters of slips, of assessments and of walk-ins, as they stood at the beginning and at the last
    /// look.
    QMap<QString, qint64> mFirst;
    QMap<QString, qint64> mLast;
};

/// What the desks have done, by their journals.
struct WorkDone {
    int answered = 0;
    int charges = 0;
    int assessments = 0;
    int cancellations = 0;
    int revokes = 0;
    int registrations = 0;
    /// Numbers that a save has got from the counter, and saves that another one was faster than.
    int numbers = 0;
    int lostRaces = 0;
};

WorkDone WorkIn(const std::vector<ReadJournal>& journals);
