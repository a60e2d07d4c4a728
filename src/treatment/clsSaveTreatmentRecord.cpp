#include "treatment/clsSaveTreatmentRecord.h"

#include "gateway/CommandGateway.h"
#include "shell/shared.h"
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
#define TREATMENT_COLUMN(name) m##name = rows.Fields(u"" #name).TextOrEmpty();
    TREATMENT_FIELDS(TREATMENT_COLUMN)
#undef TREATMENT_COLUMN
}
