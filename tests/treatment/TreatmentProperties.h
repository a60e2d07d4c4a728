#pragma once

#include "treatment/clsSaveTreatmentRecord.h"

#include <QString>

#include <vector>

/// A field of the treatment record by its name, with its read and its write.
struct TreatmentProperty {
    QString name;
    QString (clsSaveTreatmentRecord::*read)() const;
    void (clsSaveTreatmentRecord::*write)(QString);
};

/// Every field that the class has.
inline std::vector<TreatmentProperty> TreatmentProperties() {
#define TREATMENT_TABLE(field)                                                                               \
    {QStringLiteral(#field), &clsSaveTreatmentRecord::field, &clsSaveTreatmentRecord::Set##field},
    return {TREATMENT_FIELDS(TREATMENT_TABLE)};
#undef TREATMENT_TABLE
}
