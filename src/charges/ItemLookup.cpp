#include "charges/ItemLookup.h"

#include "charges/ChargeLines.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "patients/PatientContext.h"
#include "text/Format.h"
#include "text/IsNumeric.h"
#include "text/RunTimeError.h"
#include "text/Trim.h"
#include "toolkit/FlexCells.h"
#include "toolkit/MsgBox.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kPriceFormat = u"0.00";
constexpr auto kMedicineSection = "1"_L1;
constexpr auto kSupplySection = "52"_L1;
constexpr auto kRateLetters = "ABCDEFGH"_L1;

/// One statement of a lookup: no current record empties the code, and the lookup goes on with the statement
/// after it.
template <class Statement> void Resumed(QString& code, Statement statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        if (error.Number() != RunTime::kNoCurrentRecord)
            throw;
        code.clear();
    }
}

/// The trap around a whole lookup: any other error is told and the lookup answers False.
template <class Lookup> bool Trapped(Lookup lookup) {
    try {
        return lookup();
    } catch (const RunTimeError& error) {
        const QString systemText = RunTime::TextOf(error.Number());
        MsgBox({.text = systemText.isEmpty() ? error.Description() : systemText, .icon = MsgIcon::Critical});
        return false;
    }
}

} // namespace

ItemLookup::ItemLookup(FlexCells& cells, ChargeLines& lines, LineEditor& editor)
    : mCells(cells)
    , mLines(lines)
    , mEditor(editor) {}

void ItemLookup::MoveOn() {
    mEditor.grdTable_LeaveCell();
    mLines.NextCell();
    mEditor.grdTable_EnterCell();
}

void ItemLookup::EnterCode(QString& code, bool& isDoctorsFee) {
    const int priceCol = mLines.Differences().priceCol;
    const int quantityCol = mLines.Differences().quantityCol;
    const bool priceLocked = mLines.IsLocked(priceCol);
    const bool quantityLocked = mLines.IsLocked(quantityCol);
    const bool amountLocked = mLines.IsLocked(Column::kAmount);
    if (isDoctorsFee) {
        mLines.SetLocked(priceCol, true);
        mLines.SetLocked(quantityCol, true);
        mLines.SetLocked(Column::kAmount, false);
    }
    if (mCells.Col() == Column::kCode) {
        if (isDoctorsFee ? LookupDoctorFee(code) : LookupItem(code))
            MoveOn();
        else if (isDoctorsFee)
            MsgBox({.text = u"Invalid Code"_s});
    }
    if (isDoctorsFee) {
        mLines.SetLocked(priceCol, priceLocked);
        mLines.SetLocked(quantityCol, quantityLocked);
        mLines.SetLocked(Column::kAmount, amountLocked);
    }
}

bool ItemLookup::LookupDoctorFee(QString& code) {
    gListing->SetSearchMode(true);
    if (!gListing->SearchListing(code, ListingKind::kDoctor))
        return false;
    const DoctorListing& doctor = gListing->DoctorRecord();
    const int row = mCells.Row();
    mCells.SetTextMatrix(row, Column::kCode, doctor.ResultCode);
    mCells.SetTextMatrix(row, Column::kParticular,
                         u"(PF) DR. "_s + doctor.LastName + u", "_s + doctor.FirstName);
    mCells.SetTextMatrix(row, mLines.Differences().priceCol, QString());
    mCells.SetTextMatrix(row, mLines.Differences().quantityCol, QString());
    return true;
}

bool ItemLookup::LookupItem(QString& code) {
    return Trapped([&] {
        Item item;
        Resumed(code, [] { gListing->SetSearchMode(true); });
        if (CurrentRevenueID == Department::kMedicines)
            SearchStock(code, kMedicineSection, item);
        else if (CurrentRevenueID == Department::kSupplies)
            SearchStock(code, kSupplySection, item);
        SearchServices(code, item);
        return item.found && WriteUnlessDuplicate(item);
    });
}

void ItemLookup::SearchStock(QString& code, const QString& section, Item& item) {
    gStockSection = section;
    Resumed(code, [this] {
        mEditor.SetEditorText(gStockListBasic->ShowList(mEditor.EditorText(), false, gStockSection));
    });
    bool standsOnDrug = false;
    Resumed(code, [&] { standsOnDrug = gStockItem->Drug().SearchDrug(mEditor.EditorText(), gStockSection); });
    if (!standsOnDrug)
        return;
    Resumed(code, [this] { mEditor.SetEditorText(gStockItem->Drug().DrugCode()); });
    if (mLines.Check_Code(mEditor.EditorText())) {
        MsgBox({.text = u"Can't charge the same Medicine/Supply !"_s});
        mCells.SetTextMatrix(mCells.Row(), Column::kParticular, QString());
        return;
    }
    TakeDrug(code, item);
}

void ItemLookup::TakeDrug(QString& code, Item& item) const {
    const StockDrug& drug = gStockItem->Drug();
    Resumed(code, [&] { item.code = drug.DrugCode(); });
    Resumed(code, [&] { item.name = drug.DrugName(); });
    Resumed(code, [&] {
        const StockPrices prices = drug.Invent();
        item.price = UseOutPrice ? prices.SellingPriceOut : prices.SellingPriceIn;
    });
    item.isFree = item.price == 0;
    item.found = true;
}

void ItemLookup::SearchServices(QString& code, Item& item) {
    Resumed(code, [this] { gListing->SetOtherSectionID(mCells.CurrentText(Column::kDepartment)); });
    if (mLines.Differences().servicesOfHC)
        Resumed(code, [] { gListing->SetOtherSectionID(Department::kEarCare); });
    bool listed = false;
    Resumed(code, [&] { listed = gListing->SearchListing(code, ListingKind::kOtherRevenue); });
    if (listed)
        TakeService(code, item);
}

void ItemLookup::TakeService(QString& code, Item& item) const {
    item.found = true;
    Resumed(code, [&] { item.code = gListing->OtherRevenueRecord().ResultCode; });
    Resumed(code, [&] { item.name = gListing->OtherRevenueRecord().OtherRevenue; });
    Resumed(code, [&] { TakeRate(item); });
    item.isFree = item.price == 0;
}

void ItemLookup::TakeRate(Item& item) const {
    const QString letter = Trim(gRoomClass);
    const qsizetype rate = letter.size() == 1 ? kRateLetters.indexOf(letter.front()) : -1;
    if (rate >= 0)
        item.price = gListing->OtherRevenueRecord().Rates[static_cast<size_t>(rate)];
    else if (mLines.Differences().otherLetterTakesRateA)
        item.price = gListing->OtherRevenueRecord().Rates[0];
}

bool ItemLookup::IsDuplicate(QString& code) {
    mEditor.SetRedraw(false);
    int row = mCells.Row();
    QString department = mCells.TextMatrix(row, Column::kDepartment);
    const bool duplicate = mLines.CheckDuplicateExam(row, department, code);
    mEditor.SetRedraw(true);
    return duplicate;
}

bool ItemLookup::WriteUnlessDuplicate(Item& item) {
    if (IsDuplicate(item.code)) {
        MsgBox({.text = u"Exam already selected."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s});
        ReopenEmpty();
        return false;
    }
    WriteItem(item);
    return true;
}

void ItemLookup::WriteItem(const Item& item) {
    const int row = mCells.Row();
    mCells.SetTextMatrix(row, Column::kCode, item.code);
    mCells.SetTextMatrix(row, Column::kParticular, item.name);
    mCells.SetTextMatrix(row, mLines.Differences().priceCol, Format(item.price, kPriceFormat));
    mCells.SetTextMatrix(row, Column::kZeroPrice, item.isFree ? u"Y"_s : u"N"_s);
}

void ItemLookup::ReopenEmpty() {
    mEditor.grdTable_LeaveCell();
    mCells.SetText(QString());
    mEditor.grdTable_EnterCell();
}

bool ItemLookup::LookupSupply(QString& code) {
    return Trapped([&] {
        const Item item = FindSupply(code);
        return item.found && WriteFreeSupply(item);
    });
}

ItemLookup::Item ItemLookup::FindSupply(QString& code) const {
    Item item;
    const QString section = mCells.CurrentText(Column::kLocationID);
    if (!IsNumeric(code)) {
        Resumed(code, [] { gStockList->SetDrugsORCSR(false); });
        Resumed(code, [&] { code = gStockList->ShowList(code, false, section); });
    }
    bool standsOnDrug = false;
    Resumed(code, [&] { standsOnDrug = gStockItem->Drug().SearchDrug(code, section); });
    if (standsOnDrug)
        TakeDrug(code, item);
    return item;
}

bool ItemLookup::IsSupplyFree(const QString& department, const QString& code, int row) const {
    return Trapped([&] { return mLines.IsSupplyFree(department, code, row); });
}

bool ItemLookup::WriteFreeSupply(const Item& item) {
    const int row = mCells.Row();
    if (!IsSupplyFree(mCells.TextMatrix(row, Column::kDepartment), item.code, row)) {
        MsgBox(
            {.text = u"Supply already selected."_s, .icon = MsgIcon::Exclamation, .title = u"Assessment"_s});
        mCells.SetText(QString());
        mEditor.grdTable_LeaveCell();
        mEditor.grdTable_EnterCell();
        return false;
    }
    WriteItem(item);
    return true;
}
