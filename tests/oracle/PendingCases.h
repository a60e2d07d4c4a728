#pragma once

#include "oracle/CaseFile.h"

#include <QString>

#include <set>
#include <vector>

/// The file that lists what the embedded engine answers otherwise than a server so far: lines of the tables,
/// each under its table and its section, and the random arithmetic while that differs too.
class PendingCases {
  public:
    /// Reads the file, which stands beside the tables' folder.
    PendingCases();

    bool Contains(const OracleCase& asked) const { return mCases.contains(KeyOf(asked)); }
    bool HasRandomArithmetic() const { return mHasRandomArithmetic; }
    /// The lines that none of these cases has.
    QStringList Strangers(const std::vector<OracleCase>& cases) const;
    /// Makes the file anew: these cases, which are in the tables' order, and the random arithmetic where it
    /// was.
    void Write(const std::vector<OracleCase>& failing) const;

  private:
    static QString HeadOf(const OracleCase& asked);
    static QString KeyOf(const OracleCase& asked) { return HeadOf(asked) + asked.written; }

    /// What stands in front of the first head.
    QStringList mNotes;
    std::set<QString> mCases;
    bool mHasRandomArithmetic = false;
};

/// The folder of the oracle's tests in the sources, with a slash behind it.
QString OracleFolder();
