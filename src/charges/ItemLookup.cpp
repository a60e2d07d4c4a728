#include "charges/ItemLookup.h"

#include "charges/ChargeLines.h"
#include "gateway/RunTimeError.h"
#include "patients/PatientContext.h"
#include "shell/shared.h"
#include "text/Format.h"
#include "text/IsNumeric.h"
#include "toolkit/FlexCells.h"
#include "toolkit/MsgBox.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kMoney = u"0.00";
constexpr auto kMedicineSection = "1"_L1;
constexpr auto kSupplySection = "52"_L1;
constexpr auto kRateLetters = "ABCDEFGH"_L1;

/// Thrown by the trap to leave the lookup after it has told of an error.
struct LookupEnded {};

/// The trap of the lookups around one step: no current record empties the code and the lookup goes on with
/// its next step; any other error is told and ends the lookup.
template <class Step> void Trapped(QString& code, Step step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        if (error.Number() == RunTime::kNoCurrentRecord) {
            code.clear();
            return;
        }
        const QString systemText = RunTime::TextOf(error.Number());
        MsgBox({.text = systemText.isEmpty() ? error.Description() : systemText, .icon = MsgIcon::Critical});
        throw LookupEnded();
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

void ItemLookup::EnterCode(QString& code, bool isDoctorsFee) {
    const std::array<bool, 3> locks = {mLines.IsLocked(4), mLines.IsLocked(5), mLines.IsLocked(6)};
    if (isDoctorsFee) {
        mLines.SetLocked(4, true);
        mLines.SetLocked(5, true);
        mLines.SetLocked(6, false);
    }
    if (mCells.Col() == Column::kCode) {
        if (isDoctorsFee ? LookupDoctorFee(code) : LookupItem(code))
            MoveOn();
        else if (isDoctorsFee)
            MsgBox({.text = u"Invalid Code"_s});
    }
    if (isDoctorsFee) {
        for (int i = 0; i < 3; ++i)
            mLines.SetLocked(4 + i, locks[static_cast<size_t>(i)]);
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
    try {
        Item item;
        Trapped(code, [] { gListing->SetSearchMode(true); });
        if (CurrentRevenueID == Department::kMedicines)
            SearchStock(code, kMedicineSection, item);
        else if (CurrentRevenueID == Department::kSupplies)
            SearchStock(code, kSupplySection, item);
        SearchServices(code, item);
        bool written = false;
        Trapped(code, [&] { written = item.found && WriteUnlessDuplicate(item); });
        return written;
    } catch (const LookupEnded&) {
        return false;
    }
}

void ItemLookup::SearchStock(QString& code, const QString& section, Item& item) {
    gStockSection = section;
    Trapped(code, [this] {
        mEditor.SetEditorText(gStockListBasic->ShowList(mEditor.EditorText(), false, gStockSection));
    });
    bool standsOnDrug = false;
    Trapped(code, [&] { standsOnDrug = gStockItem->Drug().SearchDrug(mEditor.EditorText(), gStockSection); });
    if (!standsOnDrug)
        return;
    Trapped(code, [this] { mEditor.SetEditorText(gStockItem->Drug().DrugCode()); });
    if (mLines.Check_Code(mEditor.EditorText())) {
        MsgBox({.text = u"Can't charge the same Medicine/Supply !"_s});
        mCells.SetTextMatrix(mCells.Row(), Column::kParticular, QString());
        return;
    }
    Trapped(code, [&] { TakeDrug(item); });
}

void ItemLookup::TakeDrug(Item& item) {
    const StockDrug& drug = gStockItem->Drug();
    item.code = drug.DrugCode();
    item.name = drug.DrugName();
    item.price = UseOutPrice ? drug.Invent().SellingPriceOut : drug.Invent().SellingPriceIn;
    item.isFree = item.price == 0;
    item.found = true;
}

void ItemLookup::SearchServices(QString& code, Item& item) {
    Trapped(code, [this] {
        gListing->SetOtherSectionID(mCells.TextMatrix(mCells.Row(), Column::kDepartment));
        if (mLines.Differences().servicesOfHC)
            gListing->SetOtherSectionID(Department::kEarCare);
    });
    bool listed = false;
    Trapped(code, [&] { listed = gListing->SearchListing(code, ListingKind::kOtherRevenue); });
    if (listed)
        Trapped(code, [&] { TakeService(item); });
}

void ItemLookup::TakeService(Item& item) {
    const OtherRevenueListing& service = gListing->OtherRevenueRecord();
    item.found = true;
    item.code = service.ResultCode;
    item.name = service.OtherRevenue;
    const QString letter = gRoomClass.trimmed();
    const qsizetype rate = letter.size() == 1 ? kRateLetters.indexOf(letter.front()) : -1;
    if (rate >= 0)
        item.price = service.Rates[static_cast<size_t>(rate)];
    else if (mLines.Differences().otherLetterTakesRateA)
        item.price = service.Rates[0];
    item.isFree = item.price == 0;
}

bool ItemLookup::IsDuplicate(const QString& code) {
    mEditor.SetRedraw(false);
    const bool duplicate =
        mLines.CheckDuplicateExam(mCells.Row(), mCells.TextMatrix(mCells.Row(), Column::kDepartment), code);
    mEditor.SetRedraw(true);
    return duplicate;
}

bool ItemLookup::WriteUnlessDuplicate(const Item& item) {
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
    mCells.SetTextMatrix(row, mLines.Differences().priceCol, Format(item.price, kMoney));
    mCells.SetTextMatrix(row, Column::kZeroPrice, item.isFree ? u"Y"_s : u"N"_s);
}

void ItemLookup::ReopenEmpty() {
    mEditor.grdTable_LeaveCell();
    mCells.SetText(QString());
    mEditor.grdTable_EnterCell();
}

bool ItemLookup::LookupSupply(QString& code) {
    try {
        Item item;
        const QString section = mCells.TextMatrix(mCells.Row(), Column::kLocationID);
        if (!IsNumeric(code)) {
            Trapped(code, [] { gStockList->SetDrugsORCSR(false); });
            Trapped(code, [&] { code = gStockList->ShowList(code, false, section); });
        }
        bool standsOnDrug = false;
        Trapped(code, [&] { standsOnDrug = gStockItem->Drug().SearchDrug(code, section); });
        if (standsOnDrug)
            Trapped(code, [&] { TakeDrug(item); });
        if (!item.found)
            return false;
        if (!mLines.IsSupplyFree(mCells.TextMatrix(mCells.Row(), Column::kDepartment), item.code,
                                 mCells.Row())) {
            MsgBox({.text = u"Supply already selected."_s,
                    .icon = MsgIcon::Exclamation,
                    .title = u"Assessment"_s});
            mCells.SetText(QString());
            mEditor.grdTable_LeaveCell();
            mEditor.grdTable_EnterCell();
            return false;
        }
        WriteItem(item);
        return true;
    } catch (const LookupEnded&) {
        return false;
    }
}
