#include "patients/clsOutpatientSearch.h"
#include "patients/commands.h"
#include "patients/frmRegisteredOPD.h"
#include "patients/VisitRows.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "text/RunTimeError.h"
#include "toolkit/FlexGrid.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

class OutpatientSearchTest : public ScreenTest {
  protected:
    void ExpectNumber(const QString& sent, std::shared_ptr<const RowData> rows) {
        gateway.Expect(RegisteredOPDCommand(u"0"_s, u"1"_s, sent), std::move(rows));
    }
    /// Finds the two visits by name and picks the second.
    void Pick(const Form& list) {
        Type(Find<QLineEdit>(list, "txtSearch"), u"dela"_s);
        gateway.Expect(RegisteredOPDCommand(u"0"_s, u"0"_s, u"DELA"_s),
                       Visits({Visit(), Visit({{u"IdNum"_s, u"104299B"_s}})}));
        Press(Find<QLineEdit>(list, "txtSearch"), Qt::Key_Return);
        Find<FlexGrid>(list, "grdTable").Cells().SetRow(2);
    }
    bool Validate(const QString& text) {
        number = text;
        return search.ValidatePatient(number);
    }

    clsOutpatientSearch search;
    QString number;
};

TEST_F(OutpatientSearchTest, OneVisitIsTheHit) {
    ExpectNumber(u"104233b"_s, Visits({Visit()}));
    EXPECT_TRUE(Validate(u"104233b"_s));
    EXPECT_EQ(number, u"104233b"_s);
    EXPECT_EQ(search.IDNumber(), u"104233B"_s);
    EXPECT_EQ(search.HospitalNumber(), u"100233"_s);
    EXPECT_EQ(search.LastName(), u"DELA CRUZ"_s);
    EXPECT_EQ(search.FirstName(), u"ANA"_s);
    EXPECT_EQ(search.MiddleName(), u"SY"_s);
    EXPECT_EQ(search.AccountNum(), u"500233"_s);
    EXPECT_EQ(search.Company(), u"PHILHEALTH"_s);
    EXPECT_EQ(search.AdmDate(), u"11/03/2026"_s);
    EXPECT_EQ(search.AdmTime(), u"01:05PM"_s);
    EXPECT_EQ(search.DcrDate(), u"11/20/2026"_s);
    EXPECT_EQ(search.DcrTime(), u"09:30AM"_s);
    EXPECT_EQ(search.BillingDate(), u"11/21/2026"_s);
    EXPECT_EQ(search.CivilStatus(), u"2"_s);
    EXPECT_EQ(search.Sex(), u"F"_s);
    EXPECT_EQ(search.BirthDate(), u"2/29/1984"_s);
    EXPECT_EQ(search.Age(), u"42"_s);
    EXPECT_EQ(search.HouseStreet(), u"12 RIZAL ST."_s);
    EXPECT_EQ(search.Barangay(), u"POBLACION"_s);
    EXPECT_EQ(search.Town(), u"QUEZON CITY"_s);
    EXPECT_EQ(search.Province(), u"METRO MANILA"_s);
}

TEST_F(OutpatientSearchTest, RowsAreOpenedAtTheClient) {
    ExpectNumber(u"104233B"_s, Visits({Visit()}));
    Validate(u"104233B"_s);
    EXPECT_EQ(gateway.Openings().back().cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings().back().lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings().back().location, CursorLocation::Client);
}

TEST_F(OutpatientSearchTest, RunsOnTheSharedConnection) {
    user->connection = nullptr;
    ExpectNumber(u"999"_s, Visits({}));
    WhileModal([this](Form& list) {
        Pick(list);
        ExpectNumber(u"104299B"_s, Visits({Visit()}));
        Click(Find<QPushButton>(list, "cmdSelect"));
    });
    EXPECT_TRUE(Validate(u"999"_s));
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(OutpatientSearchTest, NullsOfAnOpenVisitAreEmpty) {
    std::map<QString, Value> changed;
    for (const QString& name : {u"AccountNum"_s, u"DcrDate"_s, u"BillingDate"_s, u"Sex"_s, u"BirthDate"_s,
                                u"Age"_s, u"HouseStreet"_s, u"Barangay"_s, u"Town"_s, u"Province"_s})
        changed[name] = Value();
    ExpectNumber(u"104233B"_s, Visits({Visit(changed)}));
    EXPECT_TRUE(Validate(u"104233B"_s));
    for (const QString& text : {search.AccountNum(), search.DcrDate(), search.DcrTime(), search.BillingDate(),
                                search.Sex(), search.BirthDate(), search.Age(), search.HouseStreet(),
                                search.Barangay(), search.Town(), search.Province()})
        EXPECT_EQ(text, u""_s);
    EXPECT_EQ(search.AdmDate(), u"11/03/2026"_s);
}

TEST_F(OutpatientSearchTest, OpenVisitAfterADischargedOneHasNoDischarge) {
    ExpectNumber(u"104233B"_s, Visits({Visit()}));
    Validate(u"104233B"_s);
    EXPECT_EQ(search.DcrDate(), u"11/20/2026"_s);
    ExpectNumber(u"104299B"_s, Visits({Visit({{u"DcrDate"_s, Value()}})}));
    EXPECT_TRUE(Validate(u"104299B"_s));
    EXPECT_EQ(search.DcrDate(), u""_s);
    EXPECT_EQ(search.DcrTime(), u""_s);
}

TEST_F(OutpatientSearchTest, EmptyCivilStatusIsSingle) {
    ExpectNumber(u"104233B"_s, Visits({Visit({{u"CivilStatus"_s, u""_s}})}));
    EXPECT_TRUE(Validate(u"104233B"_s));
    EXPECT_EQ(search.CivilStatus(), u"1"_s);
}

TEST_F(OutpatientSearchTest, NullWhereTheRecordMustHaveATextIsAnError) {
    for (const QString& name : {u"IdNum"_s, u"MiddleName"_s, u"Company"_s, u"AdmDate"_s}) {
        ExpectNumber(u"104233B"_s, Visits({Visit({{name, Value()}})}));
        try {
            Validate(u"104233B"_s);
            ADD_FAILURE() << "no error for " << name.toStdString();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), 94);
        }
    }
}

TEST_F(OutpatientSearchTest, NumberWithTwoVisitsOpensTheListAndThePickReplacesTheNumber) {
    ExpectNumber(u"100233"_s, Visits({Visit(), Visit()}));
    WhileModal([this](Form& list) {
        EXPECT_EQ(list.objectName(), u"frmRegisteredOPD"_s);
        EXPECT_EQ(list.windowTitle(), u"100233"_s);
        Pick(list);
        ExpectNumber(u"104299B"_s, Visits({Visit({{u"IdNum"_s, u"104299B"_s}}), Visit()}));
        Click(Find<QPushButton>(list, "cmdSelect"));
    });
    EXPECT_TRUE(Validate(u"100233"_s)) << "two rows after the choice are as good as one";
    EXPECT_EQ(number, u"104299B"_s);
    EXPECT_EQ(search.IDNumber(), u"104299B"_s);
}

TEST_F(OutpatientSearchTest, UnknownNumberOpensTheListToo) {
    ExpectNumber(u"999"_s, Visits({}));
    WhileModal([this](Form& list) {
        Pick(list);
        ExpectNumber(u"104299B"_s, Visits({Visit({{u"IdNum"_s, u"104299B"_s}})}));
        Click(Find<QPushButton>(list, "cmdSelect"));
    });
    EXPECT_TRUE(Validate(u"999"_s));
    EXPECT_EQ(search.IDNumber(), u"104299B"_s);
}

TEST_F(OutpatientSearchTest, ListThatIsClosedIsNoHitAndLeavesTheRecord) {
    ExpectNumber(u"104233B"_s, Visits({Visit()}));
    Validate(u"104233B"_s);
    ExpectNumber(u"999"_s, Visits({}));
    WhileModal([](Form& list) { Click(Find<QPushButton>(list, "cmdClose")); });
    EXPECT_FALSE(Validate(u"999"_s));
    EXPECT_EQ(number, u"999"_s);
    EXPECT_EQ(search.IDNumber(), u"104233B"_s);
}

TEST_F(OutpatientSearchTest, ChoiceThatIsGoneIsAnError) {
    ExpectNumber(u"999"_s, Visits({}));
    WhileModal([this](Form& list) {
        Pick(list);
        ExpectNumber(u"104299B"_s, Visits({}));
        Click(Find<QPushButton>(list, "cmdSelect"));
    });
    try {
        Validate(u"999"_s);
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 3021);
    }
}

TEST_F(OutpatientSearchTest, NothingMakesTheSharedOne) {
    EXPECT_FALSE(gOutpatientSearch.IsSet());
}
