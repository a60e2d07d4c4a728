#pragma once

#include "suite/StockItem.h"
#include "text/Clock.h"
#include "trial/EmbeddedGateway.h"

#include <QString>

#include <cstdint>
#include <map>
#include <random>
#include <vector>

/// Centavos.
using Money = qint64;

/// A month of the unit's work, made with the workstation's own command texts, and the books that are kept of
/// it beside the database. Work begins some days before the month and ends some days behind it. The same
/// seed makes the same month.
class RandomMonth {
  public:
    /// Empties the hospital's accounts and makes the month December 2026.
    RandomMonth(EmbeddedGateway& gateway, std::uint32_t seed);
    ~RandomMonth();
    RandomMonth(const RandomMonth&) = delete;
    RandomMonth& operator=(const RandomMonth&) = delete;

    static DateTime FirstDay();
    static DateTime LastDay();

    /// What the books say. Sums are of the month, unless told otherwise.
    struct Books {
        /// Charges less reversals by patient type, I or O.
        std::map<QString, Money> income;
        /// Charges less reversals of all days, by admission or visit.
        std::map<QString, Money> accounts;
        /// At the cashier: assessed less revoked; paid; taken off again; assessed and waiting for payment.
        Money assessed = 0;
        Money paid = 0;
        Money paidAndRevoked = 0;
        Money unpaid = 0;
        /// Charges less reversals by patient type and company, and by day, "mm/dd/yyyy".
        std::map<std::pair<QString, QString>, Money> companies;
        std::map<QString, Money> days;
        /// Acts of the month, each with a line of its own in the audit.
        int acts = 0;
        /// Charges of the month, and slips with charges, by patient type.
        std::map<QString, int> chargesOfMonth;
        std::map<QString, int> slipsOfMonth;
        int cancellationsOfMonth = 0;
        /// What was done in all days, so that a test sees that the month has everything in it.
        int charges = 0;
        int cancellations = 0;
        int cancellationsInVain = 0;
        int assessments = 0;
        int revokes = 0;
        int paidBehindRevoke = 0;
        int reprints = 0;
    };
    const Books& Kept() const { return mBooks; }

  private:
    struct Account {
        QString hospNum;
        QString idNum;
        QString room;
        QString type;
        QString company;
    };
    /// A line on an account that may still be cancelled.
    struct Charge {
        Account account;
        QString slip;
        QString centre;
        QString code;
        QString quantity;
        Money amount = 0;
        bool cancelled = false;
    };
    struct Assessment {
        QString number;
        QString line;
        QString centre;
        Money amount = 0;
        bool paid = false;
        bool revoked = false;
        bool isOfTheMonth = false;
    };

    int Below(int end) { return int(mRandom() % std::uint32_t(end)); }
    Money Price() { return Below(8) == 0 ? Below(100) : Below(1'000'000); }
    bool IsInMonth() const;
    void SetTime(int day, int second);
    QString Moment() const;
    /// Signs one of the users on and tells which.
    QString SignOn();

    void Book(const QString& patientType, const Account& account, Money amount);
    void CountAct() { mBooks.acts += IsInMonth() ? 1 : 0; }
    void DoAnything();

    void EmptyTheAccounts();
    void ReadAccounts();
    void Work();
    QString TakeSlipNumber();
    void PostSlip();
    void PostLine(const Account& account, const QString& slip, int kind);
    void PostOfTheLaboratory(const Account& account);
    void CancelOne();
    void CancelService(const Charge& charge, const QString& patientType);
    void CancelStock(const Charge& charge);
    void Assess();
    void PayOne();
    void RevokeOne();
    void KeepBooks();

    EmbeddedGateway& mGateway;
    std::mt19937 mRandom;
    StockItem mStock;
    DateTime mNow;
    const Seam<DateTime()>::Replacement mClock = ClockSeam().Replace([this] { return mNow; });
    std::vector<Account> mAccounts;
    std::vector<Charge> mCharges;
    std::vector<Assessment> mAssessments;
    Books mBooks;
};
