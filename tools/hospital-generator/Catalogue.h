#pragma once

#include "HospitalSize.h"

#include <QString>

#include <array>
#include <vector>

namespace Generator {

/// The letters of the room classes; a service has a rate for each.
inline constexpr char kRoomClasses[] = {'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H'};
inline constexpr int kRoomClassCount = 8;

struct Centre {
    QString code;
    QString name;
    bool withItems = false;
    bool fromStock = false;
    /// Empty for none.
    QString location;
};

/// A priced item of a centre. Rates are in centavos, one for each room class.
struct Service {
    QString centre;
    QString code;
    QString name;
    std::array<qint64, kRoomClassCount> rates{};
};

/// A stock item; prices in centavos.
struct StockItem {
    QString code;
    QString name;
    QString generic;
    QString unit;
    QString section;
    qint64 priceOut = 0;
    qint64 priceIn = 0;
};

struct Doctor {
    QString code;
    QString lastName;
    QString firstName;
    QString middleName;
    QString specialty;

    /// As the patient master shows a doctor: "LAST, FIRST MIDDLE".
    QString CompleteName() const;
};

struct Station {
    QString code;
    QString name;
};

struct Room {
    QString code;
    /// Index into kRoomClasses.
    int roomClass = 0;
    QString station;
};

struct PackageItem {
    QString package;
    QString centre;
    QString code;
    int quantity = 0;
    qint64 amount = 0;
};

/// What the hospital charges for, and where: everything that stands before the first patient comes.
struct Catalogue {
    std::vector<Centre> centres;
    std::vector<Service> services;
    std::vector<StockItem> stock;
    std::vector<Doctor> doctors;
    std::vector<Station> stations;
    /// One a bed; at least a third more beds than in-patients.
    std::vector<Room> rooms;
    std::vector<PackageItem> packageItems;

    const Service& ServiceOf(const QString& centre, const QString& code) const;
    const StockItem& StockOf(const QString& code) const;
};

Catalogue MakeCatalogue(const HospitalSize& size);

} // namespace Generator
