#include "suite/Listing.h"

#include "gateway/CommandGateway.h"
#include "gateway/SqlText.h"
#include "suite/LastPick.h"
#include "suite/PickDialog.h"
#include "text/RunTimeError.h"
#include "toolkit/ShowModal.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString ListedText(const RowSet& row, QStringView field) {
    return row.Fields(field).TextOrEmpty();
}

void TakeListedService(const RowSet& row, OtherRevenueListing& service) {
    service.ResultCode = ListedText(row, u"ItemID");
    service.OtherRevenue = ListedText(row, u"OtherRevenue");
    for (size_t i = 0; i < service.Rates.size(); ++i)
        service.Rates[i] = row.Fields(u"Rate%1"_s.arg(QChar(u'A' + int(i)))).ToDouble();
}

} // namespace

/// Where the rows of a listing come from, how its list looks and what is kept of a row.
struct Listing::Source {
    int kind;
    QString title;
    /// Ends so that " AND …" can follow.
    QString command;
    QString codeField;
    QString order;
    std::vector<GridColumn> columns;
    /// Keeps a row of it as what the last search has found.
    void (*take)(const RowSet& row, ListingRecords& records);

    static const std::vector<Source>& All();

    QString ByCode(const QString& code) const {
        return command + u" AND "_s + codeField + u" = "_s + SqlLiteral(code);
    }
    QString Ordered() const { return command + u" ORDER BY "_s + order; }
};

const std::vector<Listing::Source>& Listing::Source::All() {
    static const std::vector<Source> sources = {
        {ListingKind::kAddress,
         u"Addresses"_s,
         u"SELECT ZipCode, Town, Province FROM build_file..tbCoAddress WHERE ZipCode <> ''"_s,
         u"ZipCode"_s,
         u"Town, Province"_s,
         {{u"Code", 1000, u"ZipCode"}, {u"Town", 3000, u"Town"}, {u"Province", 3000, u"Province"}},
         [](const RowSet& row, ListingRecords& records) {
             records.address = {ListedText(row, u"ZipCode"), ListedText(row, u"Town"),
                                ListedText(row, u"Province")};
         }},
        {ListingKind::kDoctor,
         u"Doctors"_s,
         u"SELECT DoctorID, LastName, FirstName, MiddleName, Specialty FROM build_file..tbCoDoctor WHERE "
         "DoctorID <> ''"_s,
         u"DoctorID"_s,
         u"LastName, FirstName"_s,
         {{u"Code", 1000, u"DoctorID"},
          {u"Last Name", 2200, u"LastName"},
          {u"First Name", 2200, u"FirstName"},
          {u"Specialty", 2800, u"Specialty"}},
         [](const RowSet& row, ListingRecords& records) {
             records.doctor = {ListedText(row, u"DoctorID"), ListedText(row, u"LastName"),
                               ListedText(row, u"FirstName"), ListedText(row, u"MiddleName")};
         }},
        {ListingKind::kCivilStatus,
         u"Civil Status"_s,
         u"SELECT CivilStatusID, CivilStatus FROM build_file..tbCoCivilStatus WHERE CivilStatusID <> ''"_s,
         u"CivilStatusID"_s,
         u"CivilStatusID"_s,
         {{u"Code", 1000, u"CivilStatusID"}, {u"Civil Status", 3000, u"CivilStatus"}},
         [](const RowSet& row, ListingRecords& records) {
             records.civilStatus = {ListedText(row, u"CivilStatusID"), ListedText(row, u"CivilStatus")};
         }},
        {ListingKind::kOtherRevenue,
         u"Services"_s,
         u"SELECT ItemID, OtherRevenue, RateA, RateB, RateC, RateD, RateE, RateF, RateG, RateH FROM "
         "build_file..tbCoOtherRevenue WHERE RevenueID = "_s,
         u"ItemID"_s,
         u"OtherRevenue"_s,
         {{u"Code", 1200, u"ItemID"}, {u"Service", 5200, u"OtherRevenue"}},
         [](const RowSet& row, ListingRecords& records) { TakeListedService(row, records.otherRevenue); }},
    };
    return sources;
}

void Listing::Initialize_Classes() {
    mRecords = {};
}

Listing::Source Listing::SourceOf(int kind) const {
    const std::vector<Source>& all = Source::All();
    const auto found =
        std::find_if(all.begin(), all.end(), [kind](const Source& s) { return s.kind == kind; });
    if (found == all.end())
        throw RunTime::Error(RunTime::kSubscriptOutOfRange);
    Source source = *found;
    // Services are those of the section in hand.
    if (kind == ListingKind::kOtherRevenue)
        source.command += SqlLiteral(mOtherSectionID);
    return source;
}

CommandGateway& Listing::Connection() const {
    if (!mConnection)
        throw RunTime::Error(RunTime::kObjectNotSet);
    return *mConnection;
}

bool Listing::SearchListing(QString& code, int kind) {
    const Source source = SourceOf(kind);
    const bool isPicked = TakePick(code) && kind == ListingKind::kOtherRevenue;
    if (!code.isEmpty()) {
        const RowSet exact = Connection().Execute(source.ByCode(code));
        if (!exact.Eof()) {
            source.take(exact, mRecords);
            code = exact.Fields(source.codeField).ToText();
            return true;
        }
    }
    if (isPicked)
        return false;
    RowSet rows = Connection().Execute(source.Ordered());
    const auto data = rows.Data();
    if (kind == ListingKind::kOtherRevenue && !code.isEmpty() &&
        !AnyRowMatches(*data, source.columns, code) && IsStockText(code))
        return false;
    PickDialog dialog(source.title, source.columns, data, code);
    if (!ShowModal(dialog))
        return false;
    for (size_t row = 0; row < dialog.PickedRow(); ++row)
        rows.MoveNext();
    source.take(rows, mRecords);
    code = rows.Fields(source.codeField).ToText();
    return true;
}

bool Listing::IsStockText(const QString& text) const {
    const QString command = u"SELECT TOP 1 ItemID FROM INVENTORY..tbInvMaster WHERE ItemID = "_s +
                            SqlLiteral(text) + u" OR LEFT(ItemName, LEN("_s + SqlLiteral(text) + u")) = "_s +
                            SqlLiteral(text);
    return !Connection().Execute(command).Eof();
}
