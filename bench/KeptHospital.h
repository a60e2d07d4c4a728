#pragma once

#include "hospital-generator/HospitalSize.h"

#include <QString>
#include <QStringList>

/// A large hospital that is made once and kept beside the benchmarks' program, since the making takes
/// minutes.
struct KeptHospital {
    /// What its file's name begins with.
    QString name;
    Generator::HospitalSize size;
    /// Commands that run when the generator has done its work.
    QStringList afterwards = {};

    /// The path of its file, which is made where there is none. The file's name changes with the hospital's
    /// tables, with the generator and with what stands here; those of other tables are removed.
    QString Path() const;
};
