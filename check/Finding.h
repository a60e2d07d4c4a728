#pragma once

#include <QString>

#include <vector>

enum class Verdict {
    Ok,
    Fault,
    /// It does not apply to this hospital, or this user cannot see it.
    NotLookedAt,
};

/// One line of what was looked at.
struct Finding {
    /// What was looked at, such as "collation".
    QString name;
    Verdict verdict = Verdict::Ok;
    QString seen;
    /// For a fault: what the administrator does about it.
    QString toDo = {};
};

using Findings = std::vector<Finding>;

inline Finding Ok(const QString& name, const QString& seen) {
    return {name, Verdict::Ok, seen};
}

inline Finding Fails(const QString& name, const QString& seen, const QString& toDo) {
    return {name, Verdict::Fault, seen, toDo};
}

inline Finding NotLookedAt(const QString& name, const QString& why) {
    return {name, Verdict::NotLookedAt, why};
}

/// One green line where nothing is wrong, else the faults alone.
inline Findings FaultsOr(Findings faults, const Finding& whole) {
    return faults.empty() ? Findings{whole} : faults;
}
