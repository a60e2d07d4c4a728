#include "shell/commands.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ShellCommands, HospitalRecord) {
    EXPECT_COMMAND(HospitalRecordCommand(), u"select * from PATIENT_DATA..tbhospitalInfo"_s);
}
