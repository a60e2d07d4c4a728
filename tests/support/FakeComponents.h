#pragma once

#include "components/clsCurrentUser.h"
#include "components/clsListing.h"
#include "components/clsPersonFinder.h"
#include "components/clsStockItem.h"
#include "components/clsStockList.h"
#include "text/RunTimeError.h"

#include <deque>
#include <optional>
#include <vector>

/// A session whose user has signed on over a gateway that the test owns.
class FakeCurrentUser : public clsCurrentUser {
  public:
    CommandGateway* connection = nullptr;
    bool connected = true;
    QString deptCode;
    WId parentWindow = 0;
    int shown = 0;
    bool onTrial = false;
    /// Counts how often the password was read.
    mutable int passwordReads = 0;

    void SetPasswordDeptCode(const QString& code) override { deptCode = code; }
    void SethwndParentForm(WId window) override { parentWindow = window; }
    void ShowMain() override { ++shown; }
    bool Connected() const override { return connected; }
    CommandGateway* SQLConnection() const override { return connection; }
    QString Initial() const override { return QStringLiteral("ABR"); }
    QString EmployeeName() const override { return QStringLiteral("ANA REYES"); }
    QString EmployeeCode() const override { return QStringLiteral("NURSE"); }
    bool IsOnTrial() const override { return onTrial; }
    QString ServerName() const override { return QStringLiteral("HOSPITAL"); }
    QString Database() const override { return QStringLiteral("PASSWORD"); }
    QString UserId() const override { return QStringLiteral("NURSE"); }
    QString serverpassword() const override {
        ++passwordReads;
        return QStringLiteral("secret");
    }
};

/// A failure that a component raises once, at one of the coming calls.
struct ComingFailure {
    std::optional<RunTimeError> error;
    /// How many calls pass before it.
    int after = 0;

    /// Raises the failure when its call has come.
    void Call();
};

/// Code pickers that expect searches in order and answer from records that the test sets.
class FakeListing : public clsListing {
  public:
    struct Search {
        QString code;
        int kind;
        QString section;
        bool operator==(const Search&) const = default;
    };

    bool searchMode = false;
    QString section;
    QString mtsServer = QStringLiteral("unset");
    QString companyName = QStringLiteral("unset");
    CommandGateway* connection = nullptr;
    int initialized = 0;
    std::vector<Search> searches;
    /// What the coming searches answer; False when it is empty.
    std::deque<bool> answers;
    /// Raised by the next search.
    std::optional<RunTimeError> failure;
    /// Raised by a reading of a record.
    mutable ComingFailure recordFailure;
    ListingRecords records;
    DoctorListing& doctor = records.doctor;
    OtherRevenueListing& service = records.otherRevenue;
    AddressListing& address = records.address;
    CivilStatusListing& civilStatus = records.civilStatus;

    void SetMTS_Server(const QString& server) override { mtsServer = server; }
    void SetSearchMode(bool search) override { searchMode = search; }
    void SetConnection(CommandGateway* gateway) override { connection = gateway; }
    void SetCompanyName(const QString& name) override { companyName = name; }
    void SetOtherSectionID(const QString& id) override { section = id; }
    void Initialize_Classes() override { ++initialized; }
    bool SearchListing(QString& code, int kind) override;
    const ListingRecords& Records() const override {
        recordFailure.Call();
        return records;
    }
};

/// A stock item component over items that the test sets.
class FakeStockItem : public clsStockItem, public StockDrug {
  public:
    struct Item {
        QString section;
        QString code;
        QString name;
        StockPrices prices;
    };

    std::vector<Item> items;
    /// Raised by a reading of what the item stood on is.
    mutable ComingFailure codeFailure;
    mutable ComingFailure nameFailure;
    mutable ComingFailure priceFailure;
    std::vector<QString> connections;
    bool connects = true;
    /// The stock card entries written so far.
    std::vector<StockCardEntry> entries;
    /// Raised by the next search or stock card entry.
    std::optional<RunTimeError> failure;

    bool InitConnect(const QString& connectionString) override;
    StockDrug& Drug() override { return *this; }
    bool SearchDrug(const QString& text, const QString& section) override;
    QString DrugCode() const override;
    QString DrugName() const override;
    StockPrices Invent() const override;
    void AppendStockCard(StockCardEntry& entry) override;

  private:
    Item mItem;
};

/// A stock picker that answers what the test sets.
class FakeStockList : public clsStockList {
  public:
    struct Showing {
        QString text;
        bool flag;
        QString section;
        bool operator==(const Showing&) const = default;
    };

    /// The pick; the text given when it is nothing.
    std::optional<QString> pick;
    /// Raised by the next showing.
    std::optional<RunTimeError> failure;
    std::vector<Showing> showings;
    std::vector<QString> connections;
    std::optional<bool> drugs;
    bool connects = true;

    bool InitConnection(const QString& connectionString) override;
    void SetDrugsORCSR(bool value) override { drugs = value; }
    QString ShowList(const QString& text, bool flag, const QString& section) override;
};

/// A patient master whose records the test sets.
class FakePersonFinder : public clsPersonFinder, public OutPatientVisit, public LoadablePatient {
  public:
    bool connects = true;
    CommandGateway* connection = nullptr;
    bool hasAdmission = true;
    bool hasVisit = true;
    bool hasPatient = true;
    AdmissionRecord admission;
    Value visitDate;
    Value discharge = DateTime();
    std::vector<QString> validated;

    /// An admission with everything set, which the test may then change.
    void FillAdmission();

    bool InitConnection(CommandGateway* gateway, const QString& server) override;
    bool ValidateAdmission(QString& idNumber) override;
    const AdmissionRecord& Admission() const override { return admission; }
    PatientClasses PatientClass() override { return {*this}; }
    bool OpenOutPatient(QString& idNumber, QString& hospitalNumber) override;
    Value AdmissionDate() const override { return visitDate; }
    Value dischargeDate() const override { return discharge; }
    LoadablePatient& Patient() override { return *this; }
    bool LoadPatient(QString& hospitalNumber) override;

    QString remoteServer = QStringLiteral("unset");
    std::vector<QString> opened;
    std::vector<QString> loaded;
};
