#include "RandomMonth.h"
#include "ReportsTest.h"

#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::_;
using testing::ElementsAre;

// The printed reports of a month agree with one another, with the slips and with the books kept beside them.

namespace {

/// The figures of that form behind the label in the report's last line that has them, without point and
/// commas.
std::vector<Money> Figures(const ReportDocument& document, const QString& label,
                           const QRegularExpression& form) {
    std::vector<Money> figures;
    const QStringList lines = TextOfPages(document).split(u'\n');
    for (auto line = lines.crbegin(); line != lines.crend() && figures.empty(); ++line) {
        const qsizetype at = line->indexOf(label);
        if (at < 0)
            continue;
        for (const auto& found : form.globalMatch(line->mid(at + label.size())))
            figures.push_back(found.captured().remove(u',').remove(u'.').toLongLong());
    }
    return figures;
}

/// Amounts of money, in centavos.
std::vector<Money> Amounts(const ReportDocument& document, const QString& label) {
    static const QRegularExpression amount(u"-?[0-9,]+\\.[0-9]{2}\\b"_s);
    return Figures(document, label, amount);
}

std::vector<Money> Counts(const ReportDocument& document, const QString& label) {
    static const QRegularExpression count(u"(?<!\\S)[0-9,]+(?!\\S)"_s);
    return Figures(document, label, count);
}

Money LastAmount(const ReportDocument& document, const QString& label) {
    const std::vector<Money> amounts = Amounts(document, label);
    if (amounts.empty())
        throw std::runtime_error("no amounts at " + label.toStdString());
    return amounts.back();
}

class Agreement : public ReportsTest, public testing::WithParamInterface<std::uint32_t> {
  protected:
    /// What the reports of the month print.
    struct Printed {
        std::vector<Money> audit;
        Money incomeIn = 0;
        Money incomeOut = 0;
        Money companyIn = 0;
        Money companyOut = 0;
        Money byService = 0;
        Money byDay = 0;
        /// Paid, revoked, income, unpaid.
        std::vector<Money> cash;
        bool operator==(const Printed&) const = default;
    };

    std::vector<Value> Range() const {
        return {RandomMonth::FirstDay(), RandomMonth::LastDay(), u"HOSPITAL"_s, u"ADDRESS"_s};
    }
    std::vector<Value> RangeOf(const QString& type) const {
        std::vector<Value> values = Range();
        values.insert(values.begin(), type);
        return values;
    }
    Printed PrintAll() {
        const QString departments = u"ALL DEPARTMENTS"_s;
        const QString companies = u"All companies"_s;
        std::vector<Value> audit = Range();
        audit.emplace_back(u"NURSE"_s);
        const auto statistics = Document(u"StatisticsReport.RPT"_s, Range());
        return {.audit = Amounts(*Document(u"AuditReport.RPT"_s, audit), u"All users"_s),
                .incomeIn = LastAmount(*Document(u"IncomeReport.RPT"_s, RangeOf(u"I"_s)), departments),
                .incomeOut = LastAmount(*Document(u"IncomeReport.RPT"_s, RangeOf(u"O"_s)), departments),
                .companyIn = LastAmount(*Document(u"CompanyReport.RPT"_s, RangeOf(u"I"_s)), companies),
                .companyOut = LastAmount(*Document(u"CompanyReport.RPT"_s, RangeOf(u"O"_s)), companies),
                .byService = LastAmount(*statistics, u"IN ALL, BY SERVICE"_s),
                .byDay = LastAmount(*statistics, u"IN ALL, BY DAY"_s),
                .cash = Amounts(*Document(u"IncomeReportCash.RPT"_s, Range()), departments)};
    }
    std::shared_ptr<const ReportDocument> Company(const QString& type) {
        return Document(u"CompanyReport.RPT"_s, RangeOf(type));
    }
    /// Charges less reversals of the month, slip by slip.
    Money SumOfSlips() {
        Money sum = 0;
        for (const QStringList& slip :
             Rows(u"SELECT RefNum, SUM(Amount) FROM BILLING..tbPatientCharges WHERE SourceDept = 'HC' AND "
                  "TransDate >= '20261201' AND TransDate < '20270101' GROUP BY RefNum"_s))
            sum += qRound64(slip[1].toDouble() * 100);
        return sum;
    }
    Money LedgerOf(const QString& idNum) {
        const auto ledger =
            Document(u"Orvandelle_Ledger.rpt"_s,
                     {u"I"_s, idNum, u"H"_s, u"P"_s, u"1"_s, u"R"_s, u""_s, u""_s, u""_s, u"A"_s, u""_s});
        return LastAmount(*ledger, u"Lines: "_s);
    }
};

} // namespace

TEST_P(Agreement, OfARandomMonthIsToTheCentavo) {
    const RandomMonth month(*mGateway, GetParam());
    const RandomMonth::Books& books = month.Kept();
    for (const int count : {books.charges, books.cancellations, books.cancellationsInVain, books.assessments,
                            books.revokes, books.reprints})
        ASSERT_GT(count, 3) << "the month has everything in it";
    ASSERT_GT(books.paidAndRevoked, 0);
    ASSERT_GT(books.unpaid, 0);
    ASSERT_GT(books.paidBehindRevoke, 0);
    const Money in = books.income.at(u"I"_s);
    const Money out = books.income.at(u"O"_s);

    const Printed printed = PrintAll();
    EXPECT_EQ(SumOfSlips(), in + out);
    EXPECT_EQ(printed.audit, (std::vector<Money>{in + out, books.assessed}));
    EXPECT_EQ(printed.incomeIn, in);
    EXPECT_EQ(printed.incomeOut, out);
    EXPECT_EQ(printed.companyIn, in);
    EXPECT_EQ(printed.companyOut, out);
    EXPECT_EQ(printed.byService, in + out);
    EXPECT_EQ(printed.byDay, in + out);
    EXPECT_EQ(printed.cash, (std::vector<Money>{books.paid, -books.paidAndRevoked,
                                                books.paid - books.paidAndRevoked, books.unpaid}));
    for (const auto& [idNum, amount] : books.accounts)
        EXPECT_EQ(LedgerOf(idNum), amount) << idNum.toStdString();
}

TEST_P(Agreement, OfARandomMonthIsInItsCounts) {
    const RandomMonth month(*mGateway, GetParam());
    const RandomMonth::Books& books = month.Kept();
    std::vector<Value> audit = Range();
    audit.emplace_back(u"NURSE"_s);
    const auto acts = Document(u"AuditReport.RPT"_s, audit);
    EXPECT_THAT(Counts(*acts, u"All users, acts:"_s), ElementsAre(books.acts));
    EXPECT_FALSE(TextOfPages(*acts).contains("USER NOT RECORDED"_L1));
    for (const QString& type : {u"I"_s, u"O"_s}) {
        EXPECT_THAT(Counts(*Document(u"IncomeReport.RPT"_s, RangeOf(type)), u"ALL DEPARTMENTS"_s),
                    ElementsAre(books.chargesOfMonth.at(type)));
        // The accounts, then the slips.
        EXPECT_THAT(Counts(*Company(type), u"All companies, accounts:"_s),
                    ElementsAre(_, books.slipsOfMonth.at(type)));
    }
    const int charges = books.chargesOfMonth.at(u"I"_s) + books.chargesOfMonth.at(u"O"_s);
    const auto statistics = Document(u"StatisticsReport.RPT"_s, Range());
    for (const QString& part : {u"IN ALL, BY SERVICE"_s, u"IN ALL, BY DAY"_s})
        EXPECT_THAT(Counts(*statistics, part), ElementsAre(charges, books.cancellationsOfMonth));
}

TEST_P(Agreement, OfARandomMonthIsInEachCompanyAndDay) {
    const RandomMonth month(*mGateway, GetParam());
    const RandomMonth::Books& books = month.Kept();
    ASSERT_GT(books.companies.size(), 6U);
    for (const auto& [key, amount] : books.companies)
        EXPECT_EQ(LastAmount(*Company(key.first), u' ' + key.second + u", accounts: "_s), amount)
            << key.first.toStdString() << key.second.toStdString();
    ASSERT_GT(books.days.size(), 25U);
    const auto statistics = Document(u"StatisticsReport.RPT"_s, Range());
    for (const auto& [day, amount] : books.days)
        EXPECT_EQ(LastAmount(*statistics, u' ' + day + u' '), amount) << day.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Seeds, Agreement, testing::Values(1U, 20261201U));

/// Agreement would be worth nothing if a wrong figure did not show.
using Disagreement = Agreement;

TEST_P(Disagreement, OfOneCentavoShowsInEveryReport) {
    const RandomMonth month(*mGateway, GetParam());
    const Printed before = PrintAll();
    const QStringList line = Rows(u"SELECT TOP 1 ChargeID, PatientType, IdNum FROM BILLING..tbPatientCharges "
                                  "WHERE SourceDept = 'HC' AND TransDate >= '20261231' AND TransDate < "
                                  "'20270101' AND RecordType = 'D' ORDER BY ChargeID DESC"_s)
                                 .front();
    const Money ledger = LedgerOf(line[2]);
    Run(u"UPDATE BILLING..tbPatientCharges SET Amount = Amount + 0.01 WHERE ChargeID = "_s + line[0]);

    Printed expected = before;
    for (Money* figure : {&expected.audit[0], line[1] == "I"_L1 ? &expected.incomeIn : &expected.incomeOut,
                          line[1] == "I"_L1 ? &expected.companyIn : &expected.companyOut, &expected.byService,
                          &expected.byDay})
        ++*figure;
    EXPECT_EQ(PrintAll(), expected);
    EXPECT_EQ(LedgerOf(line[2]), ledger + 1);
}

TEST_P(Disagreement, OfOneCentavoAtTheCashierShowsWhereItsLineStands) {
    const RandomMonth month(*mGateway, GetParam());
    const auto within = [](const QString& column) {
        return u" AND %1 >= '20261201' AND %1 < '20270101'"_s.arg(column);
    };
    const QString select = u"SELECT TOP 1 AssessNum FROM BILLING..tbCashAssessment WHERE DeptCode = 'HC'"_s +
                           within(u"TransDate"_s);
    struct Line {
        QString which;
        /// What one centavo adds to the sum of the audit, and to paid, revoked, income and unpaid.
        Money audit;
        std::vector<Money> cash;
    };
    const std::vector<Line> lines = {
        {within(u"ORDate"_s) + u" AND RevokeDate IS NULL"_s, 1, {1, 0, 1, 0}},
        {within(u"ORDate"_s) + within(u"RevokeDate"_s) + u" AND RevokeDate > ORDate"_s, 0, {1, -1, 0, 0}},
        {within(u"ORDate"_s) + within(u"RevokeDate"_s) + u" AND RevokeDate < ORDate"_s, 0, {1, 0, 1, 0}},
        {u" AND ORDate IS NULL AND RevokeDate IS NULL"_s, 1, {0, 0, 0, 1}}};
    Printed expected = PrintAll();
    for (const Line& line : lines) {
        SCOPED_TRACE(line.which.toStdString());
        const std::vector<QStringList> found = Rows(select + line.which + u" ORDER BY AssessNum"_s);
        ASSERT_EQ(found.size(), 1U) << "the month has such a line";
        Run(u"UPDATE BILLING..tbCashAssessment SET Amount = Amount + 0.01 WHERE AssessNum = "_s +
            found[0][0]);
        expected.audit[1] += line.audit;
        for (size_t i = 0; i < line.cash.size(); ++i)
            expected.cash[i] += line.cash[i];
        EXPECT_EQ(PrintAll(), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Disagreement, testing::Values(5U));
