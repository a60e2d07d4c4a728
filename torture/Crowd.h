#pragma once

#include "driver/FilledGrid.h"

#include <QString>
#include <QStringList>

#include <vector>

/// One desk of the crowd, as it is told to its process.
struct CrowdDesk {
    QString folder;
    QString journal;
    QString user;
    QString password;
    int saves = 0;
    /// The mean of the pauses before a save, in seconds; they are spread as calls at random are. 0 for none.
    int pause = 0;
    unsigned seed = 0;

    QStringList Arguments() const;
    static CrowdDesk In(const QStringList& arguments);
};

/// What everybody cancels, and what everybody revokes.
namespace SharedSlip {
inline const QString kHospNum = QStringLiteral("100284");
inline const QString kIdNum = QStringLiteral("700107");
inline const QString kNumber = QStringLiteral("H1C");
inline const QString kAssessment = QStringLiteral("1");
std::vector<FilledLine> Lines();
} // namespace SharedSlip
