#include "support/PrintQt.h"
#include "workstation/Workstation.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

// A charge posted, listed, cancelled, cancelled again and printed again, keyed without the mouse; then the
// hospital is asked.

class AfterTheSave : public Workstation {};

TEST_F(AfterTheSave, AChargeIsCancelledOnceAndItsReprintIsRecorded) {
    const int before = QueryOne(u"select count(*) from BILLING..tbPatientCharges where IdNum = '700107' and "
                                "SourceDept = 'HC'"_s)
                           .toInt();
    const Run run = RunScript(u"charge-cancelled"_s);
    ASSERT_EQ(run.exitCode, 0) << run.errors.toStdString() << testing::PrintToString(run.told);
    ASSERT_GE(run.told.size(), 3U);
    const QString slip = run.told[2].mid(5);
    const QString line = u"line HC|HC001|HEMODIALYSIS TREATMENT|2|6720|"_s + slip;
    EXPECT_THAT(run.told, ElementsAre(u"patient 100284 700107"_s, u"total 11271.00"_s, u"slip "_s + slip,
                                      u"patient 100284 700107"_s, u"listed 3 of %1"_s.arg(before + 3), line,
                                      u"Are you sure you want to Cancel this Charge?"_s,
                                      u"listed 4 of %1"_s.arg(before + 4), line,
                                      u"Can't Cancel this Charges. The Total Amount is already Zero!"_s,
                                      u"listed 4 of %1"_s.arg(before + 4), line));

    // The reversal names the slip and the item; nothing else of the slip has moved.
    EXPECT_THAT(Query(u"select RevenueID, RecordType, ItemID, Quantity, Amount, UserID from "
                      "BILLING..tbPatientCharges where RefNum = '"_s +
                      slip + u"' order by ChargeID"_s),
                ElementsAre(u"HC|D|HC001|2|6720|NURSE"_s, u"HB|D|M0002|3|3051|NURSE"_s,
                            u"MD|D|D003||1500|NURSE"_s, u"HC|C|HC001|-2|-6720|NURSE"_s));
    EXPECT_EQ(QueryOne(u"select sum(Amount) from BILLING..tbPatientCharges where RefNum = '"_s + slip +
                       u"' and ItemID = 'HC001'"_s)
                  .toDouble(),
              0);
    EXPECT_EQ(QueryOne(u"select Times from BILLING..tbAuditTrail where RefNum = '"_s + slip + u"'"_s),
              u"1"_s);
}
