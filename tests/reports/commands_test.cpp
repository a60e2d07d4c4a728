#include "reports/commands.h"
#include "support/CommandTexts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ReportsCommands, PrintTableIsEmptied) {
    EXPECT_COMMAND(EmptyChargePrintCommand(), u"delete Clinical_Area..tbEarCareChargePrint"_s);
}
