#include "shell/commands.h"
#include "shell/shared.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ShellCommands, HospitalRecord) {
    EXPECT_COMMAND(HospitalRecordCommand(), u"select * from PATIENT_DATA..tbhospitalInfo"_s);
}

TEST(ShellCommands, PendingRequestsAreThoseOfTheFixedDepartment) {
    EXPECT_COMMAND(CheckPendingCommand(), u"RADIOLOGY..spRadio_CheckPending 'HC'"_s);
    gDeptCode = u"HD"_s;
    EXPECT_COMMAND(CheckPendingCommand(), u"RADIOLOGY..spRadio_CheckPending 'HC'"_s);
    ResetShared();
}
