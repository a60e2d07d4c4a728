#include "support/CaseName.h"
#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::IsEmpty;

// What a clerk types to post in another's name reaches the hospital as it was typed. The hospital refuses it.

namespace {

struct Attack {
    std::string name;
    QString script;
};

class InWhoseName : public Workstation, public testing::WithParamInterface<Attack> {
  protected:
    /// All that is on accounts, assessments and stock cards.
    std::vector<QString> Money() const {
        std::vector<QString> rows = Query(u"select * from BILLING..tbPatientCharges order by ChargeID"_s);
        for (const QString& table : {u"select * from BILLING..tbCashAssessment order by AssessNum"_s,
                                     u"select * from INVENTORY..tbInvStockCard order by StockCardID"_s}) {
            const std::vector<QString> more = Query(table);
            rows.insert(rows.end(), more.begin(), more.end());
        }
        return rows;
    }
};

} // namespace

TEST_P(InWhoseName, ATailThatNamesAnotherUserPostsNothing) {
    const std::vector<QString> before = Money();
    const Run run = RunScript(GetParam().script);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_FALSE(run.crashed);
    ASSERT_THAT(run.told, Not(IsEmpty())) << run.errors.toStdString();
    EXPECT_TRUE(run.told.back().startsWith(u"Run-time error '50002': "_s)) << run.told.back().toStdString();
    EXPECT_EQ(Money(), before);
}

INSTANTIATE_TEST_SUITE_P(Attacks, InWhoseName,
                         testing::Values(Attack{"FeesAmount", u"tail-in-a-fees-amount"_s},
                                         Attack{"FeesCode", u"tail-in-a-fees-code"_s},
                                         Attack{"PatientsName", u"tail-in-a-patients-name"_s},
                                         Attack{"AssessmentsAmount", u"tail-in-an-assessments-amount"_s}),
                         CaseName());
