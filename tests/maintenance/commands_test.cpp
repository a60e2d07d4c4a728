#include "maintenance/commands.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MaintenanceCommands, StatusListOfAll) {
    EXPECT_EQ(AssessmentStatusCommand(u""_s), u"Clinical_Area..spEarCare_AssessmentStatus '1',''"_s);
}

TEST(MaintenanceCommands, StatusListTakesTheSearchTextAsItStands) {
    EXPECT_EQ(AssessmentStatusCommand(u" o'brien "_s),
              u"Clinical_Area..spEarCare_AssessmentStatus '1',' o'brien '"_s);
}

TEST(MaintenanceCommands, LinesOfAReference) {
    EXPECT_EQ(LinesOfReferenceCommand(u"5017"_s),
              u"SELECT AssessNum, RefNum, Revenueid FROM BILLING..tbCashAssessment WHERE RefNum = '5017'"_s);
}

TEST(MaintenanceCommands, SlipDataOfAReference) {
    EXPECT_EQ(AssessmentSlipCommand(u"5017"_s),
              u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = '5017'"_s);
    EXPECT_EQ(AssessmentSlipCommand(u""_s), u"SELECT * FROM BILLING..tbCashAssessment WHERE Refnum = ''"_s);
}

TEST(MaintenanceCommands, RevokeOfALine) {
    EXPECT_EQ(AssessRevokeCommand(u"731"_s, u"5017"_s, u"HC"_s),
              u"Clinical_Area..spEarCare_AssessRevoke '731','5017','HC'"_s);
}

TEST(MaintenanceCommands, RevokeKeepsBlanksAndAnEmptyReference) {
    EXPECT_EQ(AssessRevokeCommand(u"731"_s, u""_s, u" HC "_s),
              u"Clinical_Area..spEarCare_AssessRevoke '731','',' HC '"_s);
}
