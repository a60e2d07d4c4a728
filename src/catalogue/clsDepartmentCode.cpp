#include "catalogue/clsDepartmentCode.h"

#include "catalogue/frmSearch.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// As wide as the dialogue has them.
constexpr std::array<GridColumn, 3> kDepartmentColumns = {
    {{}, {.heading = u"Description"}, {.heading = u"Code"}}};

} // namespace

void clsDepartmentCode::Class_Initialize() {
    mCodes = {u""_s, u"HS"_s, u"CS"_s, u"CT"_s, u"LB"_s, u"PH"_s, u"PT"_s, u"US"_s, u"XR"_s};
    mNames = {u""_s,         u"HEART STATION"_s, u"CENTRAL SUPPLIES"_s, u"CT-SCAN"_s, u"LABORATORY"_s,
              u"PHARMACY"_s, u"REHAB"_s,         u"ULTRASOUND"_s,       u"X-RAY"_s};
}

int clsDepartmentCode::DepartmentIndex(const QString& code) const {
    for (size_t i = 1; i < mCodes.size(); ++i) {
        if (mCodes[i] == code)
            return static_cast<int>(i);
    }
    return 0;
}

bool clsDepartmentCode::PickDepartment() const {
    frmSearch::SearchCaption = u"Departments"_s;
    frmSearch::DisableSearch = true;
    auto& search = Screens::Get<frmSearch>();
    FlexCells& cells = search.grdDispWindow->Cells();
    cells.SetRows(static_cast<int>(mCodes.size()));
    search.grdDispWindow->SetColumns(kDepartmentColumns);
    for (size_t i = 1; i < mCodes.size(); ++i) {
        cells.SetTextMatrix(static_cast<int>(i), 1, mNames[i]);
        cells.SetTextMatrix(static_cast<int>(i), 2, mCodes[i]);
    }
    search.ShowModal();
    return frmSearch::Valid();
}

bool clsDepartmentCode::ValidateDepartment(const QString& DepartmentID) {
    QString code = DepartmentID;
    bool valid = DepartmentIndex(code) != 0;
    if (!valid) {
        valid = PickDepartment();
        if (valid)
            code = frmSearch::ResultCode();
    }
    if (valid) {
        const auto department = static_cast<size_t>(DepartmentIndex(code));
        mRevenueID = mCodes[department];
        mRevenue = mNames[department];
    }
    frmSearch::DisableSearch = false;
    return valid;
}
