#include "shell/commands.h"

#include "gateway/CommandText.h"

QString HospitalRecordCommand() {
    return CommandText(u"select * from PATIENT_DATA..tbhospitalInfo");
}
