#include "charges/ChargeLines.h"

#include "catalogue/clsRevenueCode.h"
#include "components/DepartmentCodes.h"
#include "text/Format.h"
#include "text/RunTimeError.h"
#include "text/Trim.h"
#include "text/UCase.h"
#include "text/Val.h"
#include "toolkit/FlexCells.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kMoney = u"0.00";
constexpr auto kQuantityKeys = "1234567890."_L1;

} // namespace

ChargeLines::ChargeLines(FlexCells& cells, const ChargeGridDifferences& differences)
    : mCells(cells)
    , mDifferences(differences) {}

void ChargeLines::ResetColumns() {
    for (const ChargeColumn& column : ChargeColumns(mDifferences)) {
        const size_t col = Subscript(column.column);
        ColLocked[col] = column.locked;
        ColChecked[col] = column.checked;
        ColInput[col] = column.input;
    }
}

size_t ChargeLines::Subscript(int col) {
    if (col < 0 || col >= Column::kCount)
        throw RunTime::Error(RunTime::kSubscriptOutOfRange);
    return static_cast<size_t>(col);
}

void ChargeLines::SetAmountLock() {
    if (mDifferences.amountClosedOnHC)
        SetLocked(Column::kAmount, mCells.CurrentText(Column::kDepartment) == Department::kEarCare);
}

int ChargeLines::FilterKey(int keyAscii) const {
    switch (ColInput[Subscript(mCells.Col())]) {
    case ChargeInput::UpperCase:
        return UCase(QChar(keyAscii)).unicode();
    case ChargeInput::Number:
        return keyAscii >= u' ' && !kQuantityKeys.contains(QChar(keyAscii)) ? 0 : keyAscii;
    default:
        return keyAscii;
    }
}

bool ChargeLines::OnDoctorsFeeLine() const {
    return mCells.CurrentText(Column::kDepartment) == Department::kDoctorsFee;
}

bool ChargeLines::PassesOverOnFocus() const {
    if (mCells.Col() == mDifferences.priceCol)
        return mCells.CurrentText(Column::kZeroPrice) == u"N"_s;
    if (mCells.Col() == Column::kAmount)
        return mCells.CurrentText(mDifferences.amountJumpCol) == u"Y"_s;
    return false;
}

int ChargeLines::FirstOpen(int from) const {
    for (int col = from; col < mCells.Cols(); ++col) {
        if (!IsLocked(col))
            return col;
    }
    return 0;
}

void ChargeLines::NextCell() {
    const int forward = mCells.Col() == Column::kAmount ? 0 : FirstOpen(mCells.Col() + 1);
    if (forward != 0) {
        mCells.SetCol(forward);
        return;
    }
    const int next = FirstOpen(Column::kDepartment);
    if (mCells.Row() == mCells.Rows() - 1) {
        if (!LastRowArmed) {
            LastRowArmed = true;
            return;
        }
        mCells.SetRows(mCells.Rows() + 1);
    }
    mCells.SetCell(mCells.Row() + 1, next);
}

int ChargeLines::WriteCentre(const clsRevenueCode& centre) {
    const int row = mCells.Row();
    mCells.SetTextMatrix(row, Column::kDepartment, centre.RevenueID());
    mCells.SetTextMatrix(row, Column::kParticular, centre.Revenue());
    const QString quantity = mCells.TextMatrix(row, mDifferences.quantityCol);
    if (!mDifferences.quantityKept || Trim(quantity).isEmpty())
        mCells.SetTextMatrix(row, mDifferences.quantityCol, u"1"_s);
    if (mDifferences.centreWritten) {
        mCells.SetTextMatrix(row, Column::kWithItems, centre.WithItems());
        mCells.SetTextMatrix(row, Column::kZeroPrice, u"N"_s);
        mCells.SetTextMatrix(row, Column::kSearchInventory, centre.SearchInventory() ? u"Y"_s : u"N"_s);
        mCells.SetTextMatrix(row, Column::kLocationID, centre.LocationID());
    }
    const bool codeIsKeyed = centre.WithItems() == u"Y"_s || centre.SearchInventory() ||
                             centre.RevenueID() == Department::kDoctorsFee;
    return codeIsKeyed ? Column::kCode : Column::kAmount;
}

void ChargeLines::ComputeAmount() {
    const int row = mCells.Row();
    const double price = Val(mCells.TextMatrix(row, mDifferences.priceCol));
    const double quantity = Val(mCells.TextMatrix(row, mDifferences.quantityCol));
    mCells.SetTextMatrix(row, Column::kAmount, Format(price * quantity, kMoney));
}

QString ChargeLines::ComputeTotal() const {
    double total = 0;
    for (int row = 1; row < mCells.Rows(); ++row)
        total += Val(mCells.TextMatrix(row, Column::kAmount));
    return Format(total, kMoney);
}

void ChargeLines::RewriteAsAmount() {
    mCells.SetText(Format(Val(mCells.Text()), kMoney));
}

bool ChargeLines::Check_Code(const QString& strCode) const {
    const QString department = Trim(mCells.CurrentText(Column::kDepartment));
    // Kept: the last line is left out, however many lines there are; CheckDuplicateExam sees it afterwards.
    for (int row = 1; row <= mCells.Rows() - 2; ++row) {
        if (row != mCells.Row() && Trim(mCells.TextMatrix(row, Column::kDepartment)) == department &&
            Trim(mCells.TextMatrix(row, Column::kCode)) == Trim(strCode))
            return true;
    }
    return false;
}

bool ChargeLines::CheckDuplicateExam(int& row, QString& department, QString& code) const {
    // Kept: the department is compared with the current line's own, so a code is refused on any other line,
    // under whatever department it stands there.
    const bool sameDepartment = mCells.CurrentText(Column::kDepartment) == department;
    for (int other = 1; other < mCells.Rows(); ++other) {
        if (other != row && sameDepartment && mCells.TextMatrix(other, Column::kCode) == code)
            return true;
    }
    return false;
}

bool ChargeLines::IsSupplyFree(const QString& department, const QString& code, int row) const {
    for (int other = 1; other < mCells.Rows(); ++other) {
        if (other != row && mCells.TextMatrix(other, Column::kDepartment) == department &&
            mCells.TextMatrix(other, Column::kCode) == code)
            return false;
    }
    return true;
}
