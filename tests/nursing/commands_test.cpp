#include "components/shared.h"
#include "nursing/commands.h"
#include "support/CommandTexts.h"
#include "support/FreshVariables.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NursingCommands, QueueOfRequests) {
    EXPECT_COMMAND(NurseRequestCommand(), u"Clinical_Area..spEarCare_NurseRequest"_s);
}

TEST(NursingCommands, ClassOfARoomEndsInAQuoteAndABlank) {
    EXPECT_COMMAND(RoomClassCommand(u"301-A"_s),
                   u"Select RoomClassID from build_file..tbCoRoom Where RoomID = '301-A' "_s);
    EXPECT_COMMAND(RoomClassCommand(u""_s),
                   u"Select RoomClassID from build_file..tbCoRoom Where RoomID = '' "_s);
}

TEST(NursingCommands, ExamsOfAnIdNumber) {
    EXPECT_COMMAND(LoadExamCommand(u"700121"_s), u"CLinical_Area..spEarCare_LoadExamEntry '700121'"_s);
}

TEST(NursingCommands, RevokeOfARequest) {
    EXPECT_COMMAND(RevokeNurseRequestCommand(u"41"_s, u"NURSE"_s),
                   u"RADIOLOGY..spRadio_RevokeNurseRequest '41','NURSE'"_s);
    EXPECT_COMMAND(RevokeNurseRequestCommand(u" 41 "_s, u""_s),
                   u"RADIOLOGY..spRadio_RevokeNurseRequest ' 41 ',''"_s);
}

TEST(NursingCommands, NothingIsEscaped) {
    EXPECT_COMMAND(LoadExamCommand(u"O'B"_s), u"CLinical_Area..spEarCare_LoadExamEntry 'O'B'"_s);
}

TEST(NursingCommands, PendingRequestsAreThoseOfTheFixedDepartment) {
    EXPECT_COMMAND(CheckPendingCommand(), u"RADIOLOGY..spRadio_CheckPending 'HC'"_s);
    gDeptCode = u"HD"_s;
    EXPECT_COMMAND(CheckPendingCommand(), u"RADIOLOGY..spRadio_CheckPending 'HC'"_s);
    ResetShared();
}
