#pragma once

#include <QStringList>

namespace Generator {

/// The names from which patients, walk-ins and ward nurses are made up.
const QStringList& Surnames();
const QStringList& MaleNames();
const QStringList& FemaleNames();
const QStringList& Streets();
const QStringList& Barangays();

/// One town of the address list.
struct Town {
    QString zipCode;
    QString town;
    QString province;
};
const QList<Town>& Towns();

} // namespace Generator
