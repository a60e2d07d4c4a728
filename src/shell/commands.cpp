#include "shell/commands.h"

using namespace Qt::StringLiterals;

QString HospitalRecordCommand() {
    return u"select * from PATIENT_DATA..tbhospitalInfo"_s;
}

QString CheckPendingCommand() {
    return u"RADIOLOGY..spRadio_CheckPending 'HC'"_s;
}
