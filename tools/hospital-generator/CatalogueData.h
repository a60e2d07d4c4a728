#pragma once

#include <QString>
#include <QStringList>

namespace Generator {

/// The hand-written part of the catalogue, one row a text with its fields between bars.

/// Code, name, with items (Y or N), stock section (empty for none), location (empty for none).
QStringList CentreRows();
/// Centre, name, rate A in pesos, mark: h for nothing to pay in the charity ward, z for nothing to pay at
/// all.
QStringList ServiceRows();
/// Section, name, unit, price in pesos of the first variant, the variants between commas.
QStringList StockRows();
/// Last name, first name, middle name, specialty.
QStringList DoctorRows();
/// Code, name.
QStringList StationRows();
/// Class letter, name, prefix of its room numbers, station, beds.
QStringList RoomRows();
/// Name of a package, then its items as centre:name:quantity between semicolons.
QStringList PackageRows();
/// Code, name.
QStringList CompanyRows();
QStringList UltraExamNames();

} // namespace Generator
