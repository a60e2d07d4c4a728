#pragma once

#include <QString>

#include <functional>

/// The patient to whom a package's items go, as the posting screen shows him.
struct PackagePatient {
    QString hospitalNumber;
    QString admissionNumber;
    QString room;
};

/// Reads the items of a package and drops them; nothing is written. A Null in an item's quantity or amount
/// raises 94.
///
/// Kept: an assessment's package costs nothing and leaves no charge in this release.
void ReadPackage(const QString& packageCode);

/// Writes each item of a package on its stock card under the reference number, and marks the entry as the
/// package's. `readPatient` reads the patient off the screen, once for each item. The stock component may
/// change the reference number. A Null in an item's quantity or amount raises 94.
void IssuePackage(QString& referenceNumber, const QString& packageCode,
                  const std::function<PackagePatient()>& readPatient);
