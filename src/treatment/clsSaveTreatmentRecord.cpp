#include "treatment/clsSaveTreatmentRecord.h"

#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "treatment/commands.h"

void clsSaveTreatmentRecord::SaveDialysisTreatmentRecord() {
    QStringList values;
#define TREATMENT_VALUE(name) values.append(gTreatmentRecord->name());
    TREATMENT_FIELDS(TREATMENT_VALUE)
#undef TREATMENT_VALUE
    gCurrentUser->SQLConnection()->Open(SaveTreatmentRecordCommand(values), CursorType::Dynamic,
                                        LockType::Optimistic, CursorLocation::Client);
}

void clsSaveTreatmentRecord::UpdateDialysisTreatmentRecord(const QString& strIDNum,
                                                           const QString& strRequestNum) {
    const RowSet rows = gCurrentUser->SQLConnection()->Open(TreatmentRecordCommand(strIDNum, strRequestNum),
                                                            CursorType::Dynamic, LockType::Optimistic,
                                                            CursorLocation::Client);
    if (rows.Eof())
        return;
        // Kept: each column is looked up twice, for its Null and for its value.
#define TREATMENT_COLUMN(name)                                                                               \
    m##name = rows.Fields(u"" #name).IsNull() ? QString() : rows.Fields(u"" #name).ToText();
    TREATMENT_FIELDS(TREATMENT_COLUMN)
#undef TREATMENT_COLUMN
}
