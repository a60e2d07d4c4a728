#pragma once

#include <QString>
#include <QStringList>

/// A command of a journal, taken apart.
struct SentCommand {
    enum class Kind {
        Other,
        Charge,
        Assessment,
        CancelService,
        CancelStock,
        Revoke,
        Registration,
        TakeSlip,
        TakeAssessment,
        ReadSlip,
        ReadAssessment
    };

    Kind kind = Kind::Other;
    /// The arguments of a procedure, without their quotes. Of a number that is taken: the number.
    QStringList arguments;
};

SentCommand TakeApart(const QString& text);
