#include "nursing/commands.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NursingCommands, QueueOfRequests) {
    EXPECT_EQ(NurseRequestCommand(), u"Clinical_Area..spEarCare_NurseRequest"_s);
}

TEST(NursingCommands, ClassOfARoomEndsInAQuoteAndABlank) {
    EXPECT_EQ(RoomClassCommand(u"301-A"_s),
              u"Select RoomClassID from build_file..tbCoRoom Where RoomID = '301-A' "_s);
    EXPECT_EQ(RoomClassCommand(u""_s), u"Select RoomClassID from build_file..tbCoRoom Where RoomID = '' "_s);
}

TEST(NursingCommands, ExamsOfAnIdNumber) {
    EXPECT_EQ(LoadExamCommand(u"700121"_s), u"CLinical_Area..spEarCare_LoadExamEntry '700121'"_s);
}

TEST(NursingCommands, RevokeOfARequest) {
    EXPECT_EQ(RevokeNurseRequestCommand(u"41"_s, u"NURSE"_s),
              u"RADIOLOGY..spRadio_RevokeNurseRequest '41','NURSE'"_s);
    EXPECT_EQ(RevokeNurseRequestCommand(u" 41 "_s, u""_s),
              u"RADIOLOGY..spRadio_RevokeNurseRequest ' 41 ',''"_s);
}

TEST(NursingCommands, NothingIsEscaped) {
    EXPECT_EQ(LoadExamCommand(u"O'B"_s), u"CLinical_Area..spEarCare_LoadExamEntry 'O'B'"_s);
}
