#include "charges/clsDepartmentCode.h"

#include "charges/frmSearch.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct DepartmentRow {
    QString code;
    QString name;
};

/// Subscript 0 stays empty, so that a subscript of 0 can say "none".
const std::array<DepartmentRow, 9>& Departments() {
    static const std::array<DepartmentRow, 9> departments = {{
        {},
        {u"HS"_s, u"HEART STATION"_s},
        {u"CS"_s, u"CENTRAL SUPPLIES"_s},
        {u"CT"_s, u"CT-SCAN"_s},
        {u"LB"_s, u"LABORATORY"_s},
        {u"PH"_s, u"PHARMACY"_s},
        {u"PT"_s, u"REHAB"_s},
        {u"US"_s, u"ULTRASOUND"_s},
        {u"XR"_s, u"X-RAY"_s},
    }};
    return departments;
}

/// The subscript of the code, letter case included; 0 when it is none.
size_t DepartmentIndex(const QString& code) {
    for (size_t i = 1; i < Departments().size(); ++i) {
        if (Departments()[i].code == code)
            return i;
    }
    return 0;
}

/// Lets the clerk pick a department. False when none was picked.
bool PickDepartment() {
    frmSearch::SearchCaption = u"Departments"_s;
    frmSearch::DisableSearch = true;
    auto& search = Screens::Get<frmSearch>();
    FlexCells& cells = search.grdDispWindow->Cells();
    cells.SetRows(9);
    cells.SetTextMatrix(0, 1, u"Description"_s);
    cells.SetTextMatrix(0, 2, u"Code"_s);
    for (int i = 1; i <= 8; ++i) {
        cells.SetTextMatrix(i, 1, Departments()[static_cast<size_t>(i)].name);
        cells.SetTextMatrix(i, 2, Departments()[static_cast<size_t>(i)].code);
    }
    search.ShowModal();
    return frmSearch::Valid;
}

} // namespace

bool clsDepartmentCode::ValidateDepartment(const QString& DepartmentID) {
    QString code = DepartmentID;
    bool valid = DepartmentIndex(code) != 0;
    if (!valid) {
        valid = PickDepartment();
        if (valid)
            code = frmSearch::ResultCode;
    }
    if (valid) {
        const DepartmentRow& department = Departments()[DepartmentIndex(code)];
        mRevenueID = department.code;
        mRevenue = department.name;
    }
    frmSearch::DisableSearch = false;
    return valid;
}
