#pragma once

#include <QString>

/// The codes of departments and revenue centres that the program knows by themselves. They are matched to the
/// letter; all others it takes as the hospital's tables have them.
namespace Department {
inline const QString kDoctorsFee = QStringLiteral("MD");
inline const QString kEarCare = QStringLiteral("HC");
inline const QString kMedicines = QStringLiteral("HB");
inline const QString kSupplies = QStringLiteral("HD");
inline const QString kPackage = QStringLiteral("YP");
/// Where a stock card entry comes from.
inline const QString kCentralSupply = QStringLiteral("CS");
inline const QString kPharmacy = QStringLiteral("PH");
} // namespace Department
