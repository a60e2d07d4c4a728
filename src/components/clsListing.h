#pragma once

#include "components/Component.h"

#include <QString>

#include <array>

class CommandGateway;

/// The listings by their numbers.
namespace ListingKind {
constexpr int kAddress = 0;
constexpr int kDoctor = 1;
constexpr int kCivilStatus = 13;
constexpr int kOtherRevenue = 21;
} // namespace ListingKind

/// The doctor that was found: his code and his name.
struct DoctorListing {
    QString ResultCode;
    QString LastName;
    QString FirstName;
    QString MiddleName;
};

/// The service that was found: its item code, its name and its rates.
struct OtherRevenueListing {
    QString ResultCode;
    QString OtherRevenue;
    /// RateA to RateH, one for each class of room.
    std::array<double, 8> Rates{};
};

/// The address that was found; its code is the ZIP code.
struct AddressListing {
    QString ResultCode;
    QString Town;
    QString Province;
};

/// The civil status that was found.
struct CivilStatusListing {
    QString ResultCode;
    QString CivilStatus;
};

/// What the last search of each listing has found; empty before.
struct ListingRecords {
    DoctorListing doctor;
    OtherRevenueListing otherRevenue;
    AddressListing address;
    CivilStatusListing civilStatus;
};

/// The code pickers, ListingLib.clsListing.
class clsListing : public Component {
  public:
    /// The name of the server on which the component may work.
    virtual void SetMTS_Server(const QString& server) = 0;
    /// Whether the listings are searched.
    virtual void SetSearchMode(bool search) = 0;
    /// The connection over which the listings are read; it must outlive the component.
    virtual void SetConnection(CommandGateway* connection) = 0;
    /// The company for whose patients the clerk searches.
    virtual void SetCompanyName(const QString& name) = 0;
    /// The section whose services listing 21 offers.
    virtual void SetOtherSectionID(const QString& section) = 0;
    /// Empties the records of all listings.
    virtual void Initialize_Classes() = 0;

    /// Finds the row of the listing with exactly that code, or lets the clerk pick one from a list that
    /// starts with the text; the row is then in the listing's record. False when the clerk picked none.
    /// `code` receives the code found. Raises 9 for a number that is no listing's.
    virtual bool SearchListing(QString& code, int kind) = 0;

    virtual const ListingRecords& Records() const = 0;
    const DoctorListing& DoctorRecord() const { return Records().doctor; }
    const OtherRevenueListing& OtherRevenueRecord() const { return Records().otherRevenue; }
    const AddressListing& AddressRecord() const { return Records().address; }
    const CivilStatusListing& CivilStatusRecord() const { return Records().civilStatus; }
};
