#pragma once

#include <QString>

/// The hospital's own record: name, address, tax number, and whether items are listed by their generic names.
QString HospitalRecordCommand();

/// Asks how many of the wards' requests wait for this department.
///
/// Kept: the department is the fixed "HC", whatever department the workstation is set up for.
QString CheckPendingCommand();
