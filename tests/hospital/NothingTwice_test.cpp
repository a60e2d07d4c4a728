#include "support/CaseName.h"
#include "support/hospital/HospitalTest.h"

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

// Whatever calls of the two procedures that cancel are sent, in whatever order, no more is taken back than
// was charged.

namespace {

class NothingTwice : public HospitalTest {
  protected:
    struct Line {
        QString hospNum;
        QString slip;
        QString centre;
        QString code;
        QString quantity;
        QString amount;
    };

    static QString Charge(const Line& line) {
        return Call(u"Clinical_Area..spEarCare_Append_Charging"_s, {line.hospNum,
                                                                    u"700124"_s,
                                                                    u"11/21/2026 10:15:07 AM"_s,
                                                                    line.centre,
                                                                    u"D"_s,
                                                                    line.code,
                                                                    line.quantity,
                                                                    line.slip,
                                                                    line.amount,
                                                                    u"NURSE"_s,
                                                                    u"W201"_s,
                                                                    {},
                                                                    {},
                                                                    u"I"_s,
                                                                    u"ITEM"_s});
    }
    void Post(const Line& line) { Run(Charge(line)); }
    /// Puts a line on the account as it stands there from a time when credits were still posted.
    void Enter(const Line& line) {
        Run(u"INSERT INTO BILLING..tbPatientCharges (HospNum, IdNum, PatientType, TransDate, RevenueID, "
            "RecordType, ItemID, Description, Quantity, Units, Amount, RefNum, UserID, RoomID, DoctorID, "
            "DoctorName, SourceDept, EntryDate) VALUES ('%1', '700124', 'I', '20261121', '%2', 'D', '%3', "
            "'ITEM', '%4', 0, %5, '%6', 'NURSE', 'W201', '', '', 'HC', '20261121')"_s.arg(
                line.hospNum, line.centre, line.code, line.quantity, line.amount, line.slip));
    }
    static QString Service(const Line& line) {
        return Call(u"Clinical_ARea..spEarCare_UpdateCharging"_s, {line.hospNum,
                                                                   u"700124"_s,
                                                                   line.code,
                                                                   line.amount,
                                                                   line.quantity,
                                                                   u"11/21/2026 10:20:00 AM"_s,
                                                                   line.centre,
                                                                   u"NURSE"_s,
                                                                   u"I"_s,
                                                                   u"C"_s,
                                                                   u"W201"_s,
                                                                   line.slip,
                                                                   {}});
    }
    static QString Stock(const Line& line, const QString& number) {
        return Call(u"INVENTORY..spStock_AppendStockCard"_s,
                    {line.hospNum, u"700124"_s, line.code, u"11/21/2026 10:20:00 AM"_s, line.slip,
                     line.quantity, line.amount, u"NURSE"_s, number, u"W201"_s, u"C"_s, u"I"_s});
    }
    /// Each charge and reversal of the lines that were posted, those of one item, quantity and amount
    /// together.
    std::vector<QStringList> Accounts() {
        return Rows(
            u"SELECT HospNum, RefNum, RevenueID, ItemID, REPLACE(Quantity, '-', '') AS Keyed, ABS(Amount) AS "
            "Size, SUM(CASE WHEN Amount > 0 THEN 1 ELSE 0 END), SUM(CASE WHEN Amount < 0 THEN 1 ELSE 0 END), "
            "SUM(Amount), SUM(Units) FROM BILLING..tbPatientCharges WHERE RefNum IN ('H9001C', 'H9002C') "
            "GROUP BY HospNum, RefNum, RevenueID, ItemID, REPLACE(Quantity, '-', ''), ABS(Amount) ORDER BY "
            "HospNum, RefNum, RevenueID, ItemID, REPLACE(Quantity, '-', ''), ABS(Amount)"_s);
    }
    QString Reversals() {
        return Cell(
            u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE RecordType = 'C' AND RefNum IN ('H9001C', "
            "'H9002C')"_s);
    }
    QString Movements() {
        return Cell(
            u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard WHERE RecordType = 'C' AND RefNum IN ('H9001C', "
            "'H9002C')"_s);
    }
};

/// Every combination of what may be told about a line, in an order that the seed gives.
class NothingTwiceInAnyOrder : public NothingTwice, public testing::WithParamInterface<std::uint32_t> {
  protected:
    void SetUp() override {
        for (const Line& line : Charged()) {
            if (line.amount.startsWith(u'-'))
                Enter(line);
            else
                Post(line);
        }
        for (const QStringList& row :
             Rows(u"SELECT ChargeID FROM BILLING..tbPatientCharges WHERE RefNum IN ('H9001C', 'H9002C')"_s))
            mNumbers << row[0];
    }
    static std::vector<Line> Charged() {
        const QString us = u"100050"_s;
        const QString slip = u"H9001C"_s;
        return {{us, slip, u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s},
                {us, slip, u"HC"_s, u"HC001"_s, u"2"_s, u"2800"_s},
                {us, u"H9002C"_s, u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s},
                {u"100051"_s, slip, u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s},
                {us, slip, u"MD"_s, u"D003"_s, u""_s, u"1500"_s},
                {us, slip, u"MD"_s, u"D003"_s, u""_s, u"500"_s},
                {us, slip, u"MD"_s, u"D003"_s, u""_s, u"1500"_s},
                {us, slip, u"MD"_s, u"D003"_s, u""_s, u"-1500"_s},
                {us, slip, u"HB"_s, u"M0002"_s, u"2"_s, u"2034"_s},
                {us, slip, u"HB"_s, u"M0002"_s, u"1"_s, u"1017"_s},
                {us, slip, u"HB"_s, u"M0002"_s, u"1"_s, u"2034"_s},
                {us, slip, u"AM"_s, u"AM001"_s, u""_s, u"750"_s}};
    }
    QStringList Commands() const {
        QStringList commands;
        for (const Line& charged : Charged())
            for (const QString& quantity : {u""_s, u"1"_s, u"2"_s, u"-1"_s, u"1000"_s})
                for (const QString& amount :
                     {u"2800"_s, u"1500.00"_s, u"500"_s, u"2034"_s, u"1017"_s, u"750"_s, u"2000"_s, u"0"_s,
                      u"-1500"_s, u"-2034"_s, u"-1017"_s, u"-750"_s}) {
                    Line line = charged;
                    line.quantity = quantity;
                    line.amount = amount;
                    commands << Service(line);
                    for (const QString& number : mNumbers)
                        if (amount.startsWith(u'-'))
                            commands << Stock(line, number);
                }
        return commands;
    }

    QStringList mNumbers;
};

} // namespace

TEST_P(NothingTwiceInAnyOrder, IsTakenBackAndNothingThatWasCharged) {
    QStringList commands = Commands();
    std::mt19937 random(GetParam());
    std::ranges::shuffle(commands, random);
    for (const QString& command : commands)
        Run(command);
    for (const QStringList& line : Accounts()) {
        EXPECT_LE(line[7].toInt(), line[6].toInt()) << line.join(u' ').toStdString();
        EXPECT_GE(line[8].toDouble(), 0) << line.join(u' ').toStdString();
        EXPECT_GE(line[9].toDouble(), 0) << line.join(u' ').toStdString();
    }
    // All lines but the negative one and the one that it has paid for.
    EXPECT_EQ(Reversals(), u"10"_s);
    EXPECT_EQ(
        Cell(u"SELECT SUM(Amount) FROM BILLING..tbPatientCharges WHERE RefNum IN ('H9001C', 'H9002C')"_s),
        u"0"_s);
    EXPECT_EQ(
        Cell(u"SELECT COUNT(*) FROM INVENTORY..tbInvStockCard AS s WHERE s.RecordType = 'C' AND s.RefNum = "
             "'H9001C' AND NOT EXISTS (SELECT c.ChargeID FROM BILLING..tbPatientCharges AS c WHERE "
             "c.RecordType "
             "= 'C' AND c.RefNum = s.RefNum AND c.Amount = s.Amount AND c.Units + s.QtyIn = 0)"_s),
        u"0"_s);
    EXPECT_LE(Movements().toInt(), 3);
}

INSTANTIATE_TEST_SUITE_P(Seeds, NothingTwiceInAnyOrder, testing::Values(1U, 20261121U));

namespace {

struct Untrue {
    const char* name;
    /// What the cancellation tells in place of what was charged.
    QString hospNum;
    QString slip;
    QString code;
    QString quantity;
    QString amount;
};

/// A cancellation that does not tell the line as it stands.
class UntrueCancellation : public NothingTwice, public testing::WithParamInterface<Untrue> {
  protected:
    Line Told(const Line& charged) const {
        const Untrue& untrue = GetParam();
        const auto orTrue = [](const QString& told, const QString& real) {
            return told.isEmpty() ? real : told;
        };
        return {orTrue(untrue.hospNum, charged.hospNum),
                orTrue(untrue.slip, charged.slip),
                charged.centre,
                orTrue(untrue.code, charged.code),
                orTrue(untrue.quantity, charged.quantity),
                orTrue(untrue.amount, charged.amount)};
    }
};

} // namespace

TEST_P(UntrueCancellation, TakesNothingBack) {
    const Line service = {u"100050"_s, u"H9001C"_s, u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s};
    const Line stock = {u"100050"_s, u"H9001C"_s, u"HB"_s, u"M0002"_s, u"1"_s, u"2800"_s};
    Post(service);
    Post(stock);
    const QString number = Cell(u"SELECT MAX(ChargeID) FROM BILLING..tbPatientCharges"_s);
    const auto negative = [](Line line) {
        line.amount = line.amount.startsWith(u'-') ? line.amount.mid(1) : u'-' + line.amount;
        return line;
    };
    Run(Service(Told(service)));
    Run(Stock(negative(Told(stock)), number));
    EXPECT_EQ(Reversals(), u"0"_s);
    EXPECT_EQ(Movements(), u"0"_s);
    // As they stand they are taken back.
    Run(Service(service));
    Run(Stock(negative(stock), number));
    EXPECT_EQ(Reversals(), u"2"_s);
    EXPECT_EQ(Movements(), u"1"_s);
}

INSTANTIATE_TEST_SUITE_P(Told, UntrueCancellation,
                         testing::Values(Untrue{"AnotherPatient", u"100051"_s, {}, {}, {}, {}},
                                         Untrue{"AnotherSlip", {}, u"H9002C"_s, {}, {}, {}},
                                         Untrue{"AnotherItem", {}, {}, u"HC002"_s, {}, {}},
                                         Untrue{"MoreOfIt", {}, {}, {}, u"1000"_s, {}},
                                         Untrue{"LessThanNothingOfIt", {}, {}, {}, u"-1"_s, {}},
                                         Untrue{"MoreMoney", {}, {}, {}, {}, u"9999"_s},
                                         Untrue{"LessMoney", {}, {}, {}, {}, u"100"_s},
                                         Untrue{"MoneyTheOtherWay", {}, {}, {}, {}, u"-2800"_s}),
                         CaseName());

TEST_F(NothingTwice, WhatWasCancelledIsNotGivenBackByACharge) {
    const Line line = {u"100050"_s, u"H9001C"_s, u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s};
    Post(line);
    Run(Service(line));
    Line back = line;
    back.amount = u"-2800"_s;
    EXPECT_THROW(Post(back), RunTimeError);
    back.quantity = u"-1"_s;
    EXPECT_THROW(Post(back), RunTimeError);
    EXPECT_EQ(Cell(u"SELECT SUM(Amount) FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C'"_s), u"0"_s);
    EXPECT_EQ(Cell(u"SELECT COUNT(*) FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C'"_s), u"2"_s);
}

TEST_F(NothingTwice, ReversalOfAnotherQuantityHasTakenItsAmountBack) {
    const Line line = {u"100050"_s, u"H9001C"_s, u"HC"_s, u"HC001"_s, u"1"_s, u"2800"_s};
    Post(line);
    Run(u"INSERT INTO BILLING..tbPatientCharges (HospNum, IdNum, PatientType, TransDate, RevenueID, "
        u"RecordType, ItemID, "
        "Description, Quantity, Units, Amount, RefNum, UserID, RoomID, DoctorID, DoctorName, SourceDept, "
        "EntryDate) "
        "VALUES "
        "('100050','700124','I','20261121','HC','C','HC001','ITEM','-9',-9,-2800,'H9001C','CLERK','W201','','"
        "',"
        "'HC','20261121')"_s);
    Run(Service(line));
    EXPECT_EQ(Reversals(), u"1"_s);
}

TEST_F(NothingTwice, OneOfTwoLinesOfAnAmountIsTakenBackInItsOwnQuantity) {
    const Line two = {u"100050"_s, u"H9001C"_s, u"HC"_s, u"HC001"_s, u"2"_s, u"2800"_s};
    Line one = two;
    one.quantity = u"1"_s;
    Post(two);
    Post(one);
    for (int i = 0; i < 2; ++i)
        Run(Service(one));
    EXPECT_EQ(
        Rows(u"SELECT Quantity, Units, Amount FROM BILLING..tbPatientCharges WHERE RefNum = 'H9001C' AND "
             "RecordType = 'C'"_s),
        (std::vector<QStringList>{{u"-1"_s, u"-1"_s, u"-2800"_s}}));
}
