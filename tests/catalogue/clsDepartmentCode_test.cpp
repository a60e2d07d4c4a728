#include "catalogue/clsDepartmentCode.h"
#include "catalogue/frmSearch.h"
#include "support/CaseName.h"
#include "support/ScreenTest.h"
#include "support/WhileModal.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const std::vector<std::pair<QString, QString>> kDepartments = {
    {u"HS"_s, u"HEART STATION"_s}, {u"CS"_s, u"CENTRAL SUPPLIES"_s},
    {u"CT"_s, u"CT-SCAN"_s},       {u"LB"_s, u"LABORATORY"_s},
    {u"PH"_s, u"PHARMACY"_s},      {u"PT"_s, u"REHAB"_s},
    {u"US"_s, u"ULTRASOUND"_s},    {u"XR"_s, u"X-RAY"_s}};

} // namespace

class clsDepartmentCodeTest : public ScreenTest {
  protected:
    clsDepartmentCode department;
};

TEST_F(clsDepartmentCodeTest, EachCodeIsValidAtOnce) {
    for (const auto& [code, name] : kDepartments) {
        EXPECT_TRUE(department.ValidateDepartment(code));
        EXPECT_EQ(department.RevenueID(), code);
        EXPECT_EQ(department.Revenue(), name);
        EXPECT_EQ(department.WithItems(), u""_s);
    }
    EXPECT_FALSE(Screens::IsLoaded<frmSearch>());
}

TEST_F(clsDepartmentCodeTest, LowerCaseMissesAndOpensTheList) {
    bool opened = false;
    WhileModal([&opened](Form& list) {
        opened = true;
        EXPECT_EQ(list.windowTitle(), u"Departments"_s);
        const FlexCells& cells = Find<FlexGrid>(list, "grdDispWindow").Cells();
        ASSERT_EQ(cells.Rows(), 9);
        EXPECT_EQ(cells.TextMatrix(0, 1), u"Description"_s);
        EXPECT_EQ(cells.TextMatrix(0, 2), u"Code"_s);
        for (int row = 1; row <= 8; ++row) {
            EXPECT_EQ(cells.TextMatrix(row, 1), kDepartments[size_t(row) - 1].second);
            EXPECT_EQ(cells.TextMatrix(row, 2), kDepartments[size_t(row) - 1].first);
        }
        EXPECT_FALSE(Find<QLineEdit>(list, "txtSearchStr").isEnabled());
    });
    EXPECT_FALSE(department.ValidateDepartment(u"xr"_s));
    EXPECT_TRUE(opened);
}

TEST_F(clsDepartmentCodeTest, BothHeadersOfTheListAreBold) {
    WhileModal([](Form& list) {
        const FlexCells& cells = Find<FlexGrid>(list, "grdDispWindow").Cells();
        for (int section = 0; section < 2; ++section)
            EXPECT_TRUE(cells.headerData(section, Qt::Horizontal, Qt::FontRole).value<QFont>().bold())
                << section;
    });
    EXPECT_FALSE(department.ValidateDepartment(u""_s));
}

TEST_F(clsDepartmentCodeTest, PickedRowIsTheDepartment) {
    WhileModal([](Form& list) {
        Find<FlexGrid>(list, "grdDispWindow").Cells().SetRow(7);
        Click(Find<QPushButton>(list, "cmdSelect"));
    });
    EXPECT_TRUE(department.ValidateDepartment(u"?"_s));
    EXPECT_EQ(department.RevenueID(), u"US"_s);
    EXPECT_EQ(department.Revenue(), u"ULTRASOUND"_s);
    EXPECT_EQ(department.WithItems(), u""_s);
}

TEST_F(clsDepartmentCodeTest, CancelKeepsTheEarlierDepartment) {
    EXPECT_TRUE(department.ValidateDepartment(u"LB"_s));
    WhileModal([](Form& list) { Click(Find<QPushButton>(list, "cmdCancel")); });
    EXPECT_FALSE(department.ValidateDepartment(u"?"_s));
    EXPECT_EQ(department.RevenueID(), u"LB"_s);
    EXPECT_EQ(department.Revenue(), u"LABORATORY"_s);
}

TEST_F(clsDepartmentCodeTest, SearchIsOnAgainWhateverCameOfIt) {
    frmSearch::DisableSearch = true;
    EXPECT_TRUE(department.ValidateDepartment(u"LB"_s));
    EXPECT_FALSE(frmSearch::DisableSearch);
    for (const char* button : {"cmdCancel", "cmdSelect"}) {
        WhileModal([button](Form& list) {
            EXPECT_TRUE(frmSearch::DisableSearch);
            Click(Find<QPushButton>(list, button));
        });
        department.ValidateDepartment(u"?"_s);
        EXPECT_FALSE(frmSearch::DisableSearch) << button;
    }
}
