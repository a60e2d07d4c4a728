#pragma once

#include "HospitalSize.h"

#include <QString>

#include <functional>

namespace Generator {

/// Takes one statement of a hospital's data, without the line GO behind it, and the name of the script that
/// it belongs to, such as "30-patients". The statements come script by script, in the order in which they
/// must run.
using HospitalSink = std::function<void(const QString& script, const QString& statement)>;

/// Makes the data of a hospital of that size: patients, admissions, visits, charges and all that hangs on
/// them. Raises std::invalid_argument for a size of which none can be made.
///
/// The same size always gives the same statements. They are INSERTs of at most 500 rows and a few statements
/// over whole tables, and need the tables of hospital/schema. Dates count back from one fixed day; the last
/// script moves them so that the hospital stands as of the day on which it is made.
void GenerateHospital(const HospitalSize& size, const HospitalSink& sink);

} // namespace Generator
