#include "torture/Commands.h"

#include <QRegularExpression>

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Kind = SentCommand::Kind;

struct Beginning {
    QStringView text;
    Kind kind;
};

/// Names are told without regard to letter case.
constexpr std::array kBeginnings = {
    Beginning{u"Clinical_Area..spEarCare_Append_Charging ", Kind::Charge},
    Beginning{u"Clinical_Area..spEarCare_Assessment ", Kind::Assessment},
    Beginning{u"Clinical_Area..spEarCare_UpdateCharging ", Kind::CancelService},
    Beginning{u"INVENTORY..spStock_AppendStockCard ", Kind::CancelStock},
    Beginning{u"Clinical_Area..spEarCare_AssessRevoke ", Kind::Revoke},
    Beginning{u"Clinical_Area..spEarCare_Add_CashPatient ", Kind::Registration},
    Beginning{u"Select * from Clinical_Area..tbEarCareChargeSlip", Kind::ReadSlip},
    Beginning{u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum", Kind::ReadAssessment},
};

QStringList ArgumentsIn(const QString& text) {
    static const QRegularExpression pattern(u"N?'((?:[^']|'')*)'|([^\\s,']+)"_s);
    QStringList arguments;
    for (auto found = pattern.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        arguments << (match.hasCaptured(2) ? match.captured(2) : match.captured(1));
    }
    return arguments;
}

/// The row set's own write of a counter: column, new value, and the value that it was read with.
SentCommand TakenNumber(const QString& text) {
    static const QRegularExpression pattern(
        u"^UPDATE \\S+ SET \\[?(ChargeSlip|AssessmentNum)\\]?=\\d+ WHERE \\S+=(\\d+)$"_s);
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    return {.kind = match.captured(1) == "ChargeSlip"_L1 ? Kind::TakeSlip : Kind::TakeAssessment,
            .arguments = {match.captured(2)}};
}

} // namespace

SentCommand TakeApart(const QString& text) {
    for (const Beginning& beginning : kBeginnings) {
        if (text.startsWith(beginning.text, Qt::CaseInsensitive))
            return {.kind = beginning.kind, .arguments = ArgumentsIn(text.mid(beginning.text.size()))};
    }
    return TakenNumber(text);
}
