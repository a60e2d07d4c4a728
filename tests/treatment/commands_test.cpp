#include "support/CommandTexts.h"
#include "support/PrintQt.h"
#include "treatment/commands.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TreatmentCommands, SaveQuotesEveryValueInItsOrder) {
    EXPECT_COMMAND(SaveTreatmentRecordCommand({u"100011"_s, u""_s, u" 7 "_s}),
                   u"Hemodialysis..spKidney_SaveHemodialysisTreatMentRecord '100011','',' 7 '"_s);
}

TEST(TreatmentCommands, SaveTakesAQuoteAsItStands) {
    EXPECT_COMMAND(SaveTreatmentRecordCommand({u"O'BRIEN"_s, u"x"_s}),
                   u"Hemodialysis..spKidney_SaveHemodialysisTreatMentRecord 'O'BRIEN','x'"_s);
}

TEST(TreatmentCommands, LoadHasNoBlankBeforeAnd) {
    EXPECT_COMMAND(TreatmentRecordCommand(u"104233B"_s, u"H1042C"_s),
                   u"select * from hemodialysis..tbHemodialysisResultEntry where idnum = '104233B'and "
                   "requestnum='H1042C'"_s);
}

TEST(TreatmentCommands, LoadTakesItsNumbersAsTheyStand) {
    EXPECT_COMMAND(
        TreatmentRecordCommand(u" 7'"_s, u""_s),
        u"select * from hemodialysis..tbHemodialysisResultEntry where idnum = ' 7''and requestnum=''"_s);
}
