#include "RandomMonth.h"
#include "ReportsTest.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

// The printed reports of a month agree with one another, with the slips and with the books kept beside them.

namespace {

/// The amounts of money in the report's last line with that label, in centavos.
std::vector<Money> Amounts(const ReportDocument& document, const QString& label) {
    static const QRegularExpression amount(u"-?[0-9,]+\\.[0-9]{2}\\b"_s);
    std::vector<Money> amounts;
    const QStringList lines = TextOfPages(document).split(u'\n');
    for (auto line = lines.crbegin(); line != lines.crend() && amounts.empty(); ++line) {
        const qsizetype at = line->indexOf(label);
        if (at < 0)
            continue;
        for (const auto& found : amount.globalMatch(line->mid(at + label.size())))
            amounts.push_back(found.captured().remove(u',').remove(u'.').toLongLong());
    }
    return amounts;
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
        const QString companies = u"accounts of all companies"_s;
        std::vector<Value> audit = Range();
        audit.emplace_back(u"NURSE"_s);
        const auto statistics = Document(u"StatisticsReport.RPT"_s, Range());
        return {.audit = Amounts(*Document(u"AuditReport.RPT"_s, audit), u"acts in all"_s),
                .incomeIn = LastAmount(*Document(u"IncomeReport.RPT"_s, RangeOf(u"I"_s)), departments),
                .incomeOut = LastAmount(*Document(u"IncomeReport.RPT"_s, RangeOf(u"O"_s)), departments),
                .companyIn = LastAmount(*Document(u"CompanyReport.RPT"_s, RangeOf(u"I"_s)), companies),
                .companyOut = LastAmount(*Document(u"CompanyReport.RPT"_s, RangeOf(u"O"_s)), companies),
                .byService = LastAmount(*statistics, u"IN ALL, BY SERVICE"_s),
                .byDay = LastAmount(*statistics, u"IN ALL, BY DAY"_s),
                .cash = Amounts(*Document(u"IncomeReportCash.RPT"_s, Range()), departments)};
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
        return LastAmount(*ledger, u" lines"_s);
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

INSTANTIATE_TEST_SUITE_P(Seeds, Disagreement, testing::Values(5U));
