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

struct DoctorListing {
    QString ResultCode;
    QString LastName;
    QString FirstName;
    QString MiddleName;
};

struct OtherRevenueListing {
    QString ResultCode;
    QString OtherRevenue;
    /// RateA to RateH.
    std::array<double, 8> Rates{};
};

struct AddressListing {
    QString ResultCode;
    QString Town;
    QString Province;
};

struct CivilStatusListing {
    QString ResultCode;
    QString CivilStatus;
};

/// The code pickers, ListingLib.clsListing.
class clsListing : public Component {
  public:
    virtual void SetMTS_Server(const QString& server) = 0;
    virtual void SetSearchMode(bool search) = 0;
    virtual void SetConnection(CommandGateway* connection) = 0;
    virtual void SetCompanyName(const QString& name) = 0;
    /// The section whose services listing 21 offers.
    virtual void SetOtherSectionID(const QString& section) = 0;
    virtual void Initialize_Classes() = 0;

    /// Finds the row of the listing with exactly that code, or lets the clerk pick one from a list that
    /// starts with the text; the row is then in the listing's record. False when the clerk picked none.
    /// `code` receives the code found. Raises 9 for a number that is no listing's.
    virtual bool SearchListing(QString& code, int kind) = 0;

    virtual const DoctorListing& DoctorRecord() const = 0;
    virtual const OtherRevenueListing& OtherRevenueRecord() const = 0;
    virtual const AddressListing& AddressRecord() const = 0;
    virtual const CivilStatusListing& CivilStatusRecord() const = 0;
};
