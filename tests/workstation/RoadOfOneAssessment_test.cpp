#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::StartsWith;

// A walk-in who is new, his assessment, its slip, its status and its end, keyed without the mouse; the
// hospital is asked after each step.

class RoadOfOneAssessment : public Workstation {
  protected:
    std::vector<QString> Lines(const QString& columns, const QString& number) const {
        return Query(u"select %1 from BILLING..tbCashAssessment where RefNum = '%2' order by AssessNum"_s.arg(
            columns, number));
    }
};

TEST_F(RoadOfOneAssessment, OfANewWalkInEndsRevoked) {
    const QString counterQuery = u"select AssessmentNum from BILLING..tbAssessmentNum"_s;
    const int counter = QueryOne(counterQuery).toInt();
    const QString number = QString::number(counter);
    const Run written = RunScript(u"new-walk-in-assessment"_s);
    ASSERT_EQ(written.exitCode, 0) << written.errors.toStdString();

    // The walk-in has a hospital number of his own and his data.
    const QString hospNum =
        QueryOne(u"select HospNum from PATIENT_DATA..tbwalkin where LastName = 'Quintos'"_s);
    ASSERT_FALSE(hospNum.isEmpty());
    EXPECT_EQ(QueryOne(u"select count(*) from PATIENT_DATA..tbwalkin where HospNum = '"_s + hospNum + u"'"_s),
              u"1"_s);
    EXPECT_EQ(QueryOne(u"select count(*) from PATIENT_DATA..tbmaster where HospNum = '"_s + hospNum + u"'"_s),
              u"0"_s);
    EXPECT_THAT(written.told, ElementsAre(u"age 36"_s, u"patient Quintos, Perla Ramos "_s + hospNum,
                                          u"total 13616.00"_s, u"assessment "_s + number));

    const QString who = u"Quintos, Perla Ramos|"_s + hospNum;
    // Four lines for the cashier; the package's own line is none of them.
    EXPECT_EQ(QueryOne(counterQuery).toInt(), counter + 1);
    EXPECT_THAT(
        Lines(u"Name, HospNum, IdNum, Revenueid, ItemID, Quantity, Amount, DeptCode, UserID"_s, number),
        ElementsAre(who + u"||HC|HC001|2|5600|HC|NURSE"_s, who + u"||HB|M0002|3|3051|HC|NURSE"_s,
                    who + u"||HC|HC018|1|350|HC|NURSE"_s, who + u"||MD|D003||1500|HC|NURSE"_s));
    // The slip shows the package too.
    EXPECT_THAT(Query(u"select RevenueID, ItemID, Quantity, Amount from Clinical_Area..tbEarCareChargePrint "
                      "order by PrintID"_s),
                ElementsAre(u"HC|HC001|2|5600"_s, u"HB|M0002|3|3051"_s, u"HC|HC018|1|350"_s,
                            u"YP|PK002|1|3115"_s, u"MD|D003||1500"_s));

    const Run revoked = RunScript(u"assessment-status"_s);
    ASSERT_EQ(revoked.exitCode, 0) << revoked.errors.toStdString() << testing::PrintToString(revoked.told);
    EXPECT_THAT(revoked.told, ElementsAre(u"Are you sure to revoke?"_s, u"Assessment has been revoked."_s,
                                          u"Are you sure to close this program?"_s));
    for (const QString& line :
         Lines(u"case when RevokeDate is null then 'open' else 'revoked' end"_s, number))
        EXPECT_EQ(line, u"revoked"_s);
    EXPECT_EQ(Lines(u"AssessNum"_s, number).size(), 4U);
}

TEST_F(RoadOfOneAssessment, WithAnApostropheEndsTheProgramAndWritesNothing) {
    const QString before = HospitalContent();
    const Run run = RunScript(u"assessment-apostrophe"_s);
    EXPECT_EQ(run.exitCode, 1);
    ASSERT_EQ(run.told.size(), 1U);
    EXPECT_THAT(run.told[0].toStdString(), StartsWith("Run-time error"));
    EXPECT_EQ(HospitalContent(), before);
    EXPECT_TRUE(HospitalIsWhole());
}
