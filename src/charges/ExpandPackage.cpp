#include "charges/ExpandPackage.h"

#include "charges/ChargeColumns.h"
#include "charges/commands.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/frmSearchPatient.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "text/Trim.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

/// One item of a package, with who is at work and for which type of patient.
struct PackageItem {
    QString revenueID;
    QString itemID;
    double quantity;
    double amount;
    QString userCode;
    QString patientType;
};

PackageItem ReadItem(const RowSet& rows, FinderQuestion& finder) {
    return {.revenueID = rows.Fields(u"RevenueID").TextOrEmpty(),
            .itemID = rows.Fields(u"ItemID").TextOrEmpty(),
            .quantity = rows.Fields(u"Quantity").ToDouble(),
            .amount = rows.Fields(u"Amount").ToDouble(),
            .userCode = gCurrentUser->EmployeeCode(),
            .patientType = finder.PatientType()};
}

void ForEachItem(const QString& packageCode, const std::function<void(const PackageItem&)>& step) {
    RowSet rows = gCurrentUser->SQLConnection()->Open(PackageCommand(Trim(packageCode)), CursorType::Dynamic,
                                                      LockType::ReadOnly);
    // One finder answers for all items.
    FinderQuestion finder;
    for (; !rows.Eof(); rows.MoveNext())
        step(ReadItem(rows, finder));
    rows.Close();
}

StockCardEntry EntryOf(const PackageItem& item, const QString& referenceNumber,
                       const PackagePatient& patient) {
    // Kept: what is compared with "HD" is the item and not its centre, so the entry is "PH" in practice.
    const QString source =
        item.itemID == Department::kSupplies ? Department::kCentralSupply : Department::kPharmacy;
    return {.hospitalNumber = patient.hospitalNumber,
            .idNumber = patient.admissionNumber,
            .itemID = item.itemID,
            .moment = Format(Now(), u"mm/dd/yyyy hh:mm:ss AM/PM"),
            .referenceNumber = referenceNumber,
            .quantity = item.quantity,
            .amount = item.amount,
            .userCode = item.userCode,
            .position10 = u"PRN"_s,
            .room = patient.room,
            .position16 = source,
            .position17 = source,
            .patientType = item.patientType};
}

} // namespace

void ReadPackage(const QString& packageCode) {
    ForEachItem(packageCode, [](const PackageItem&) {});
}

void IssuePackage(QString& referenceNumber, const QString& packageCode,
                  const std::function<PackagePatient()>& readPatient) {
    ForEachItem(packageCode, [&](const PackageItem& item) {
        StockCardEntry entry = EntryOf(item, referenceNumber, readPatient());
        gStockItem->Drug().AppendStockCard(entry);
        referenceNumber = entry.referenceNumber;
        // Kept: the code goes into the link as it was passed, untrimmed.
        gCurrentUser->SQLConnection()->ExecuteNoResult(
            LinkStockCardCommand(packageCode, entry.itemID, referenceNumber));
    });
}
