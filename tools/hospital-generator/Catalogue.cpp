#include "Catalogue.h"

#include "CatalogueData.h"

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace Generator {

namespace {

/// Rates B to H of a service, in percent of its rate A.
constexpr int kRatePercent[kRoomClassCount] = {100, 110, 120, 135, 150, 160, 130, 80};
constexpr int kClassH = 7;

/// A pesos text of the data as centavos.
qint64 Centavos(const QString& pesos) {
    return qRound64(pesos.toDouble() * 100);
}

/// A share of an amount, in whole pesos from 100 pesos on and in quarters below.
qint64 Share(qint64 centavos, int percent) {
    const qint64 step = centavos >= 100'00 ? 100 : 25;
    return (centavos * percent / 100 + step / 2) / step * step;
}

QString Numbered(QStringView prefix, int number, int digits) {
    return u"%1%2"_s.arg(prefix).arg(number, digits, 10, QChar(u'0'));
}

Service MakeService(const QString& centre, const QString& code, const QString& name, qint64 rateA,
                    const QString& mark) {
    Service service{centre, code, name, {}};
    for (int i = 0; i < kRoomClassCount; ++i)
        service.rates[size_t(i)] = mark == "z"_L1 ? 0 : Share(rateA, kRatePercent[i]);
    if (mark == "h"_L1)
        service.rates[kClassH] = 0;
    return service;
}

void AddCentres(Catalogue& catalogue) {
    for (const QString& row : CentreRows()) {
        const QStringList f = row.split(u'|');
        catalogue.centres.push_back({f[0], f[1], f[2] == "Y"_L1, !f[3].isEmpty(), f[4]});
    }
}

void AddServices(Catalogue& catalogue) {
    QString centre;
    int number = 0;
    for (const QString& row : ServiceRows()) {
        const QStringList f = row.split(u'|');
        number = f[0] == centre ? number + 1 : 1;
        centre = f[0];
        catalogue.services.push_back(
            MakeService(centre, Numbered(centre, number, 3), f[1], Centavos(f[2]), f[3]));
    }
}

void AddStock(Catalogue& catalogue) {
    int medicines = 0;
    int supplies = 0;
    for (const QString& row : StockRows()) {
        const QStringList f = row.split(u'|');
        const bool medicine = f[0] == "1"_L1;
        const QStringList variants = f[4].split(u',');
        for (int i = 0; i < variants.size(); ++i) {
            const QString code = medicine ? Numbered(u"M", ++medicines, 4) : Numbered(u"S", ++supplies, 4);
            const QString name = variants[i] == "STANDARD"_L1 ? f[1] : f[1] + u' ' + variants[i];
            const qint64 out = Share(Centavos(f[3]), 100 + 30 * i);
            catalogue.stock.push_back(
                {code, name, medicine ? f[1] : QString(), f[2], f[0], out, Share(out, 115)});
        }
    }
}

/// A dialyzer that the unit may charge as a service instead: the same code stands in stock and among the
/// services, both of the unit and of its supplies.
void AddServiceOfStockItem(Catalogue& catalogue) {
    const auto item = std::ranges::find(catalogue.stock, u"DIALYZER, PEDIATRIC 0.4 SQ M"_s, &StockItem::name);
    const QString name = u"DIALYZER, PEDIATRIC, PRIMED"_s;
    for (const QString& centre : {u"HC"_s, u"HD"_s})
        catalogue.services.push_back(MakeService(centre, item->code, name, Share(item->priceOut, 120), {}));
}

/// The code and the price of an item for the ward's class, by its name.
std::pair<QString, qint64> FindItem(const Catalogue& catalogue, const QString& centre, const QString& name) {
    for (const Service& service : catalogue.services)
        if (service.centre == centre && service.name == name)
            return {service.code, service.rates[0]};
    for (const StockItem& item : catalogue.stock)
        if (item.name == name)
            return {item.code, item.priceIn};
    throw std::logic_error("package item not in the catalogue: " + name.toStdString());
}

/// A package costs nine tenths of its items, as an item of the centre YP.
void AddPackages(Catalogue& catalogue) {
    int number = 0;
    for (const QString& row : PackageRows()) {
        const QStringList f = row.split(u'|');
        const QString package = Numbered(u"PK", ++number, 3);
        qint64 total = 0;
        for (const QString& part : f[1].split(u';')) {
            const QStringList p = part.split(u':');
            const auto [code, price] = FindItem(catalogue, p[0], p[1]);
            const int quantity = p[2].toInt();
            const qint64 amount = Share(price * quantity, 90);
            catalogue.packageItems.push_back({package, p[0], code, quantity, amount});
            total += amount;
        }
        catalogue.services.push_back(MakeService(u"YP"_s, package, f[0], total, {}));
    }
}

void AddDoctors(Catalogue& catalogue) {
    int number = 0;
    for (const QString& row : DoctorRows()) {
        const QStringList f = row.split(u'|');
        catalogue.doctors.push_back({Numbered(u"D", ++number, 3), f[0], f[1], f[2], f[3]});
    }
}

/// Beds of every class, as many times the trial hospital's as the in-patients need.
void AddRooms(Catalogue& catalogue, int inPatients) {
    for (const QString& row : StationRows()) {
        const QStringList f = row.split(u'|');
        catalogue.stations.push_back({f[0], f[1]});
    }
    const int times = (inPatients + 59) / 60;
    int roomClass = 0;
    for (const QString& row : RoomRows()) {
        const QStringList f = row.split(u'|');
        for (int bed = 1; bed <= f[4].toInt() * times; ++bed)
            catalogue.rooms.push_back({Numbered(f[2], bed, 2), roomClass, f[3]});
        ++roomClass;
    }
}

} // namespace

QString Doctor::CompleteName() const {
    return lastName + ", "_L1 + firstName + u' ' + middleName;
}

const Service& Catalogue::ServiceOf(const QString& centre, const QString& code) const {
    return *std::ranges::find_if(
        services, [&](const Service& service) { return service.centre == centre && service.code == code; });
}

const StockItem& Catalogue::StockOf(const QString& code) const {
    return *std::ranges::find(stock, code, &StockItem::code);
}

Catalogue MakeCatalogue(const HospitalSize& size) {
    Catalogue catalogue;
    AddCentres(catalogue);
    AddServices(catalogue);
    AddStock(catalogue);
    AddServiceOfStockItem(catalogue);
    AddPackages(catalogue);
    AddDoctors(catalogue);
    AddRooms(catalogue, size.inPatients);
    return catalogue;
}

} // namespace Generator
