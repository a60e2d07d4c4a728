#pragma once

#include "components/clsListing.h"

/// The code pickers over the hospital's own lists: doctors, services with their rates, addresses, civil
/// status.
class Listing : public clsListing {
  public:
    // Every list is searched, on the workstation itself, whatever the company: the three setters with nothing
    // in them are part of the contract alone.
    void SetMTS_Server(const QString&) override {}
    void SetSearchMode(bool) override {}
    void SetConnection(CommandGateway* connection) override { mConnection = connection; }
    void SetCompanyName(const QString&) override {}
    void SetOtherSectionID(const QString& section) override { mOtherSectionID = section; }
    void Initialize_Classes() override;

    /// A text for which the stock picker has just given an item is looked for among the services by its exact
    /// code alone, and no list opens. Nor does one for a text that stock knows by code or name and no service
    /// matches: it was keyed for the stock.
    bool SearchListing(QString& code, int kind) override;

    const ListingRecords& Records() const override { return mRecords; }

  private:
    struct Source;

    CommandGateway& Connection() const;
    Source SourceOf(int kind) const;
    bool IsStockText(const QString& text) const;

    CommandGateway* mConnection = nullptr;
    QString mOtherSectionID;
    ListingRecords mRecords;
};
