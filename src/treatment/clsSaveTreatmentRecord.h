#pragma once

#include "treatment/TreatmentFields.h"

#include <QString>

#include <memory>
#include <utility>

/// The record of one hemodialysis treatment: who was treated, the prescription, the machine's readings and
/// the vital signs, the nurse's assessment before, the safety checks, the course and the evaluation after.
///
/// Each field is a text of its own, empty until it is written, whose meaning TreatmentFields.h tells. A field
/// takes any text; the record checks and converts nothing. `Bath()` reads the field Bath, `SetBath()` writes
/// it, and so on.
class clsSaveTreatmentRecord {
  public:
#define TREATMENT_PROPERTY(name)                                                                             \
    QString name() const {                                                                                   \
        return m##name;                                                                                      \
    }                                                                                                        \
    void Set##name(QString text) {                                                                           \
        m##name = std::move(text);                                                                           \
    }
    TREATMENT_FIELDS(TREATMENT_PROPERTY)
#undef TREATMENT_PROPERTY

    /// Sends every field to the database, the empty ones as well. Raises what the command raises.
    ///
    /// Kept: what is sent is gTreatmentRecord, whichever instance this is called on. So a record that was
    /// read into another instance is not what a save sends.
    void SaveDialysisTreatmentRecord();

    /// Reads the record of that admission or visit and request into this instance; writes nothing to the
    /// database. Without such a record every field keeps its value. A Null becomes the empty text. Where a
    /// column is missing it raises 3265, and the fields before it have been written.
    ///
    /// Kept: the name speaks of an update.
    void UpdateDialysisTreatmentRecord(const QString& strIDNum, const QString& strRequestNum);

  private:
#define TREATMENT_MEMBER(name) QString m##name;
    TREATMENT_FIELDS(TREATMENT_MEMBER)
#undef TREATMENT_MEMBER
};

/// The program's one treatment record, which comes into being when it is first reached and stays to the end.
class SharedTreatmentRecord {
  public:
    clsSaveTreatmentRecord* operator->() { return &**this; }
    clsSaveTreatmentRecord& operator*() {
        if (!mRecord)
            mRecord = std::make_unique<clsSaveTreatmentRecord>();
        return *mRecord;
    }

    bool Exists() const { return mRecord != nullptr; }

  private:
    std::unique_ptr<clsSaveTreatmentRecord> mRecord;
};

/// Read by every save. Kept: no screen creates a record or fills this one in this release.
inline SharedTreatmentRecord gTreatmentRecord;
