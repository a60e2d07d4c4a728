#pragma once

#include "ChargeHistory.h"
#include "PatientList.h"

#include <QStringList>

#include <vector>

namespace Generator {

/// Records of dialysis treatments as rows of texts; an empty text stands for Null.
struct TreatmentRecords {
    QStringList columns;
    std::vector<QStringList> rows;
};

/// The records of the last treatments that were charged. A record's request is the treatment's charge slip.
/// The evaluation after the newest treatment has not been written yet.
TreatmentRecords MakeTreatmentRecords(const PatientList& patients, const std::vector<Treatment>& treatments);

} // namespace Generator
