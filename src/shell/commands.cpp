#include "shell/commands.h"

using namespace Qt::StringLiterals;

QString HospitalRecordCommand() {
    return u"select * from PATIENT_DATA..tbhospitalInfo"_s;
}
