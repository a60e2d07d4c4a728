#include "desk/Desk.h"
#include "desk/ScreenReader.h"
#include "support/PrintQt.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

// What a screen reader is told on the accessibility bus, from the sign-on to the slip.

namespace {

QStringList Texts(const QJsonValue& value) {
    QStringList texts;
    for (const QJsonValue& text : value.toArray())
        texts << text.toString();
    return texts;
}

class Ears : public Desk {
  protected:
    void SetUp() override {
        mReader = ScreenReader::Start();
        if (!mReader)
            GTEST_SKIP() << "no accessibility bus can be had here; \"tools/setup test\" installs it";
        AddSettings(mReader->Settings());
        StartProgram(WindowManager::None);
    }

    ScreenReader& Reader() { return *mReader; }
    void ExpectFocusOn(const QString& role, const QString& name) { Reader().Expect(u"focus"_s, role, name); }

    void SignOnListening() {
        ExpectFocusOn(u"text"_s, u"User"_s);
        Key(u"NURSE{Tab}"_s);
        ExpectFocusOn(u"password text"_s, u"Password"_s);
        Key(u"nurse{Return}"_s);
        ExpectNoScreen(u"SignOnDialog"_s);
        ExpectScreen(u"frmMain"_s);
        ExpectFocusOn(u"push button"_s, u"Assessment Entry"_s);
    }

    void FindPatient() {
        Key(u"{Alt+q}{Down}"_s);
        ExpectFocusOn(u"menu item"_s, u"In-Patient Trans Entry"_s);
        Key(u"{Return}"_s);
        ExpectFocusOn(u"text"_s, u"Last Name"_s);
        Key(u"de guz{Return}"_s);
        ExpectScreen(u"frmSearchPatient"_s);
        EXPECT_EQ(Texts(Reader().Ask(u"table Patients found"_s).toObject()[u"first"_s]).front(),
                  Reader().Expect(u"focus"_s, u"table cell"_s, u"100284"_s).name);
        Key(u"{Return}"_s);
        ExpectScreen(u"frmPostCharges"_s);
    }

    void KeyLine() {
        TabTo(u"txtDocID"_s);
        Key(u"D001{Return}"_s);
        TabTo(u"txtEntry"_s);
        ExpectFocusOn(u"text"_s, u"Department, line 1"_s);
        Key(u"hc{Return}"_s);
        ExpectFocusOn(u"text"_s, u"Code, line 1"_s);
        Key(u"HC001{Return}"_s);
        EXPECT_EQ(Reader().Expect(u"focus"_s, u"text"_s, u"Quantity, line 1"_s).text, u"1"_s);
        Key(u"2{Return}"_s);
        ExpectFocusOn(u"text"_s, u"Price, line 1"_s);
        Key(u"{Return}"_s);
        ExpectFocusOn(u"text"_s, u"Department, line 2"_s);
    }

    /// Of the strip that tells of the wards' requests.
    std::ptrdiff_t AlertsHeard() {
        const std::vector<Heard>& all = Reader().All();
        return std::count_if(all.begin(), all.end(),
                             [](const Heard& heard) { return heard.role == u"alert"_s; });
    }

  private:
    std::unique_ptr<ScreenReader> mReader;
};

TEST_F(Ears, AreLedFromTheSignOnToTheSlip) {
    EXPECT_THAT(Texts(Reader().Ask(u"windows"_s)), Contains(u"dialog|Sign On"_s));
    SignOnListening();
    FindPatient();
    KeyLine();
    const QJsonObject lines = Reader().Ask(u"table Charges"_s).toObject();
    EXPECT_THAT(Texts(lines[u"headings"_s]), ElementsAre(u"Department"_s, u"Code"_s, u"Particular"_s,
                                                         u"Quantity"_s, u"Price"_s, u"Amount"_s));
    EXPECT_EQ(lines[u"children"_s].toInt(), 9 * 6);
    EXPECT_EQ(Texts(lines[u"first"_s])[1], u"HC001"_s);
    TabTo(u"cmdPrint"_s);
    ExpectFocusOn(u"push button"_s, u"Save/Print"_s);
    Key(u"{Return}"_s);
    ExpectScreen(u"frmReportviewer"_s);
    EXPECT_THAT(Texts(Reader().Ask(u"windows"_s)), Contains(u"dialog|Print ChargeSlip"_s));
    // The wards' requests waited all the while.
    EXPECT_EQ(AlertsHeard(), 1);
}

TEST_F(Ears, AreToldOnceOfTheWardsRequestsAndOfNoLetter) {
    SignOnListening();
    // The line types itself out several times meanwhile.
    ExpectText(u"Label1"_s, u"There are pending requests."_s);
    ExpectText(u"Label1"_s, u"There"_s);
    ExpectText(u"Label1"_s, u"There are pending requests."_s);
    Reader().Ask(u"windows"_s);
    EXPECT_EQ(AlertsHeard(), 1);
    const std::vector<Heard>& all = Reader().All();
    EXPECT_FALSE(std::any_of(all.begin(), all.end(), [](const Heard& heard) {
        return heard.what == u"name"_s && heard.role == u"label"_s &&
               u"There are pending requests."_s.startsWith(heard.name);
    }));
}

TEST_F(Ears, HearOfModalScreensAsDialoguesWithAName) {
    SignOnListening();
    Key(u"{Control+a}"_s);
    ExpectScreen(u"frmAssessment"_s);
    EXPECT_THAT(Texts(Reader().Ask(u"windows"_s)), Contains(u"dialog|Assessment Entry"_s));
    Key(u"{Escape}"_s);
    ExpectScreen(u"MsgBox"_s);
    EXPECT_THAT(Texts(Reader().Ask(u"windows"_s)), Contains(u"alert|OPD Registration System"_s));
    Key(u"{Return}"_s);
    ExpectNoScreen(u"frmAssessment"_s);
    Key(u"{F6}"_s);
    ExpectScreen(u"frmNursingRequest"_s);
    EXPECT_THAT(Texts(Reader().Ask(u"windows"_s)), Contains(u"dialog|Pending Requests"_s));
    // What the list keeps in columns without a width is not read.
    const QJsonObject queue = Reader().Ask(u"table Pending Requests"_s).toObject();
    const auto headings = Texts(queue[u"headings"_s]);
    EXPECT_GT(headings.size(), 3);
    EXPECT_THAT(headings, Not(Contains(QString())));
}

} // namespace
