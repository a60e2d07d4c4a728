#include "desk/Desk.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

// One charge from the sign-on to the slip, keyed at a desk; then the hospital is asked.

namespace {

class RoadOfOneChargeAtADesk : public AnyDesk {
  protected:
    void KeyLines() {
        TabTo(u"txtDocID"_s);
        Key(u"D001{Return}"_s);
        TabTo(u"txtEntry"_s);
        // Department, code, quantity, price, and the amount where it is open.
        Key(u"hc{Return}HC001{Return}2{Return}{Return}"_s);
        Key(u"hb{Return}M0002{Return}3{Return}{Return}{Return}"_s);
        Key(u"md{Return}D003{Return}1500{Return}"_s);
    }

    void SaveAndPrint() {
        TabTo(u"cmdPrint"_s);
        Key(u"{Return}"_s);
        ExpectScreen(u"frmReportviewer"_s);
        Now();
        Picture(u"slip"_s);
        Key(u"{Escape}"_s);
        ExpectNoScreen(u"frmPostCharges"_s);
        ExpectScreen(u"frmMain"_s);
        ExpectAFocus();
    }
};

TEST_P(RoadOfOneChargeAtADesk, ReachesThePatientsAccount) {
    const QString counter =
        Folder().Query(u"select ChargeSlip from Clinical_Area..tbEarCareChargeSlip"_s).front();
    StartSignedOn(GetParam());
    Go(Further("", "PatientFinder", {{"frmPostCharges", "{Return}"}}).steps);
    KeyLines();
    // Class B: HC001 costs 3360, M0002 1017, whoever the patient is.
    EXPECT_EQ(Text(u"txtTAmount"_s), u"11271.00"_s);
    SaveAndPrint();
    EXPECT_EQ(PressToEnd(u"{Control+x}"_s), 0);
    EXPECT_THAT(
        Folder().Query(u"select HospNum, IdNum, RevenueID, ItemID, Quantity, Amount, UserID, DoctorID from "
                       "BILLING..tbPatientCharges where RefNum = 'H%1C' order by ChargeID"_s.arg(counter)),
        ElementsAre(u"100284|700107|HC|HC001|2|6720|NURSE|D001"_s,
                    u"100284|700107|HB|M0002|3|3051|NURSE|D001"_s,
                    u"100284|700107|MD|D003||1500|NURSE|D001"_s));
}

INSTANTIATE_TEST_SUITE_P(Under, RoadOfOneChargeAtADesk, testing::ValuesIn(kWindowManagers),
                         WindowManagerName());

} // namespace
