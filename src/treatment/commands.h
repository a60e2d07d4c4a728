#pragma once

#include <QString>
#include <QStringList>

/// The command texts of the treatment record. Each argument goes in as it stands; nothing is escaped or
/// trimmed.

/// Saves a treatment record: the values of its fields in their order.
QString SaveTreatmentRecordCommand(const QStringList& values);

/// The record of one treatment, by the admission or visit number and the request number.
QString TreatmentRecordCommand(const QString& idNum, const QString& requestNum);
