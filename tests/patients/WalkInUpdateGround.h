#pragma once

#include "patients/commands.h"
#include "patients/frmWalkInUpdate.h"
#include "support/ScreenTest.h"
#include "toolkit/DatePicker.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <map>

/// The ground of the tests of the walk-in update: the screen with its tabs, and rows for its commands.
class WalkInUpdateTest : public ScreenTest {
  protected:
    static frmWalkInUpdate& Open() {
        auto& screen = Screens::Get<frmWalkInUpdate>();
        screen.Show();
        Activate(screen);
        return screen;
    }

    static QLineEdit& Box(const Form& screen, const char* name) { return Find<QLineEdit>(screen, name); }
    static QComboBox& Combo(const Form& screen, const char* name) { return Find<QComboBox>(screen, name); }
    static QPushButton& Button(const Form& screen, const char* name) {
        return Find<QPushButton>(screen, name);
    }
    static DatePicker& Picker(const Form& screen) { return Find<DatePicker>(screen, "dtpBirthDate"); }
    static FlexGrid& Grid(const Form& screen) { return Find<FlexGrid>(screen, "grdTable"); }
    static int Tab(const Form& screen) { return Find<QTabWidget>(screen, "ssWalkIn").currentIndex(); }
    static void GoToRecord(const Form& screen) { Find<QTabWidget>(screen, "ssWalkIn").setCurrentIndex(1); }

    /// Two walk-ins as the list brings them.
    static std::shared_ptr<const RowData> TwoWalkIns() {
        using namespace Qt::StringLiterals;
        return Rows({u"a"_s, u"b"_s, u"c"_s, u"d"_s}, {{u"W000001"_s, u"CRUZ"_s, u"ANA"_s, u"SY"_s},
                                                       {u"W000002"_s, u"CRUZ"_s, u"BEN"_s, u"TAN"_s}});
    }
    static std::shared_ptr<const RowData> NoWalkIns() {
        using namespace Qt::StringLiterals;
        return Rows({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    }

    /// The record of a walk-in, with some columns of the test's own.
    static std::shared_ptr<const RowData> Record(std::map<QString, Value> changed = {}) {
        using namespace Qt::StringLiterals;
        std::map<QString, Value> record = {
            {u"HospNum"_s, u"W000002"_s},
            {u"LastName"_s, u"CRUZ"_s},
            {u"FirstName"_s, u"BEN"_s},
            {u"MiddleName"_s, u"TAN"_s},
            {u"BirthDate"_s, *DateTime::FromFields({.year = 1984, .month = 2, .day = 29})},
            {u"Age"_s, u"42"_s},
            {u"Sex"_s, u"M"_s},
            {u"CivilStatusid"_s, u"2"_s},
            {u"Address1"_s, u"12 RIZAL ST."_s},
            {u"Address2"_s, u"POBLACION"_s},
            {u"Address3"_s, u"QUEZON CITY, METRO MANILA"_s},
            {u"ZipCode"_s, u"1100"_s}};
        std::vector<QString> columns;
        std::vector<Value> cells;
        for (auto& [name, value] : record) {
            columns.push_back(name);
            cells.push_back(changed.contains(name) ? changed[name] : value);
        }
        return Rows(columns, {cells});
    }

    /// Lists the two walk-ins.
    void List(const Form& screen) {
        using namespace Qt::StringLiterals;
        Box(screen, "txtSearch").setText(u"CRUZ"_s);
        gateway.Expect(ListWalkInCommand(u"0"_s, u"CRUZ"_s), TwoWalkIns());
        Press(Box(screen, "txtSearch"), Qt::Key_Return);
    }

    /// Lists the two walk-ins and loads the second one's record.
    void Load(const Form& screen, std::shared_ptr<const RowData> record = Record()) {
        using namespace Qt::StringLiterals;
        List(screen);
        Grid(screen).Cells().SetRow(2);
        gateway.Expect(LoadWalkInCommand(u"W000002"_s), std::move(record));
        Click(Button(screen, "cmdEdit"));
    }
};
