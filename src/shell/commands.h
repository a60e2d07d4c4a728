#pragma once

#include <QString>

/// The hospital's own record: name, address, tax number, and whether items are listed by their generic names.
QString HospitalRecordCommand();
