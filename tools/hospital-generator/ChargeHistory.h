#pragma once

#include "Catalogue.h"
#include "InsertWriter.h"
#include "PatientList.h"
#include "Prng.h"

#include <map>
#include <vector>

namespace Generator {

/// A ward's request, as the wards' system keeps it.
struct WardRequest {
    Moment requested;
    const Episode* admission = nullptr;
    QString doctor;
    QString nurse;
    QString centre;
    QString item;
    QString remarks;
    /// P pending, D charged, X revoked.
    QChar status = u'P';
    QString slip;
    QString closedBy;
    std::optional<Moment> closed;
};

/// A treatment that was charged.
struct Treatment {
    const Episode* episode = nullptr;
    Moment moment;
    QString slip;
    QString user;
};

/// A slip that the desk printed once more.
struct Reprint {
    QString slip;
    Moment moment;
    QString user;
};

/// What the posted months leave behind for the scripts after the charges'.
struct ChargeHistory {
    /// The number for the next slip.
    int nextSlip = 0;
    /// Units issued from stock, by item code.
    std::map<QString, int> issued;
    std::vector<Reprint> reprints;
    std::vector<WardRequest> requests;
    /// In the order of their slips.
    std::vector<Treatment> treatments;
};

/// Writes the charges that were posted to the accounts in the hospital's months, day by day and slip by slip.
class ChargeMaker {
  public:
    ChargeMaker(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients, Prng& prng,
                InsertWriter& writer);

    ChargeHistory Make();

  private:
    struct Line {
        QString centre;
        QString code;
        QString description;
        /// 0 for a doctor's fee, which has none.
        int quantity = 0;
        qint64 amount = 0;
    };

    std::vector<const Episode*> Due(int day) const;
    void MakeSlip(const Episode& episode, Moment moment);
    std::vector<Line> TreatmentLines(const Episode& episode);
    Line ServiceLine(const QString& centre, const QString& code, int quantity, int roomClass) const;
    Line StockLine(const QString& centre, const QString& code, int quantity);
    Line FeeLine(int doctor, int roomClass) const;
    void MakeLabSlip(const Episode& episode, Moment moment);
    void Write(const Episode& episode, Moment moment, const Line& line, bool reversal, const QString& slip,
               const QString& user, const QString& department);
    void Remember(const Episode& episode, Moment moment, const Line& line, const QString& slip);
    int RoomClass(const Episode& episode) const;

    const HospitalSize& mSize;
    const Catalogue& mCatalogue;
    const PatientList& mPatients;
    Prng& mPrng;
    InsertWriter& mWriter;
    ChargeHistory mHistory;
    int mNextLabSlip;
};

/// The wards' requests that still wait, from at least three stations, and a few that were revoked.
void AddOpenRequests(const HospitalSize& size, const Catalogue& catalogue, const PatientList& patients,
                     Prng& prng, std::vector<WardRequest>& requests);

/// A nurse's name as the wards write it.
QString NurseName(Prng& prng);

} // namespace Generator
