#include "catalogue/commands.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(CatalogueCommands, RevenueCentresByExactCode) {
    EXPECT_COMMAND(ExactRevenueCommand(u"HC"_s), u"Clinical_Area..spEarCare_SearchRevenue '1','HC'"_s);
}

TEST(CatalogueCommands, RevenueCentresByTheBeginningOfTheirName) {
    EXPECT_COMMAND(PartialRevenueCommand(u"EAR"_s), u"Clinical_Area..spEarCare_SearchRevenue '2','EAR'"_s);
}

TEST(CatalogueCommands, ListOfTheRevenuePickerHasASlot) {
    EXPECT_COMMAND(RevenueListQuery(), u"Clinical_Area..spEarCare_SearchRevenue '0','##'"_s);
}

TEST(CatalogueCommands, RatesOfACentre) {
    EXPECT_COMMAND(RatesCommand(u"HC"_s), u"Hemodialysis..spKidney_Rates 'HC'"_s);
}

TEST(CatalogueCommands, UltrasoundExaminations) {
    EXPECT_COMMAND(
        UltraExamsCommand(),
        u"select ultraexam as UtraExam, ultraexamid as UltraExamId from build_file..tbcoultraexam"_s);
    EXPECT_COMMAND(
        SearchUltraExamCommand(u"KUB's"_s),
        u"select ultraexam, ultraexamid from build_file..tbcoultraexam where ultraexam like'KUB's%'"_s);
}

TEST(CatalogueCommands, ArgumentsGoInAsTheyStand) {
    EXPECT_COMMAND(ExactRevenueCommand(u" o'b  "_s),
                   u"Clinical_Area..spEarCare_SearchRevenue '1',' o'b  '"_s);
    EXPECT_COMMAND(PartialRevenueCommand(u""_s), u"Clinical_Area..spEarCare_SearchRevenue '2',''"_s);
    EXPECT_COMMAND(RatesCommand(u"H'C"_s), u"Hemodialysis..spKidney_Rates 'H'C'"_s);
}
