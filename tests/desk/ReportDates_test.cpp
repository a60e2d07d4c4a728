#include "desk/Desk.h"

using namespace Qt::StringLiterals;

// The days of a report, keyed as people write them.

namespace {

struct Keyed {
    const char* name;
    const char* keys;
};

constexpr Keyed kKeyed[] = {{"Short", "8/1/2026"}, {"WithZeros", "08/01/2026"}, {"DigitsAlone", "08012026"}};

void PrintTo(const Keyed& keyed, std::ostream* out) {
    *out << keyed.keys;
}

using DateCase = std::tuple<WindowManager, Keyed>;

std::string NameOfDateCase(const testing::TestParamInfo<DateCase>& named) {
    return NameOf(std::get<0>(named.param)) + '_' + std::get<1>(named.param).name;
}

class ReportDates : public Desk, public testing::WithParamInterface<DateCase> {};

TEST_P(ReportDates, AreTheDatesThatWereKeyed) {
    const auto& [manager, keyed] = GetParam();
    StartSignedOn(manager);
    Go({{"frmReportRange", "{Alt+p}{Return}"}});
    ExpectFocus(u"dtpStartDate"_s);
    Key(QString::fromLatin1(keyed.keys) + u"{Tab}"_s);
    EXPECT_EQ(Now().focus.toStdString(), "dtpEndDate") << "a date is one stop of Tab";
    TabTo(u"dtpEndDate"_s);
    Key(QString::fromLatin1(keyed.keys) + u"{Tab}"_s);
    EXPECT_EQ(Text(u"dtpStartDate"_s).toStdString(), "08/01/2026");
    EXPECT_EQ(Text(u"dtpEndDate"_s).toStdString(), "08/01/2026");
}

INSTANTIATE_TEST_SUITE_P(Under, ReportDates,
                         testing::Combine(testing::ValuesIn(kWindowManagers), testing::ValuesIn(kKeyed)),
                         NameOfDateCase);

} // namespace
