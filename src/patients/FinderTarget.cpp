#include "patients/FinderTarget.h"

#include "text/RunTimeError.h"

#include <QHash>

namespace {

QHash<QString, FinderTargetSource>& Sources() {
    static QHash<QString, FinderTargetSource> sources;
    return sources;
}

} // namespace

void RegisterFinderTarget(const QString& chargeMode, FinderTargetSource source) {
    Sources().insert(chargeMode, std::move(source));
}

void ForgetFinderTargets() {
    Sources().clear();
}

bool HasFinderTarget(const QString& chargeMode) {
    return Sources().contains(chargeMode);
}

FinderTarget& FinderTargetOf(const QString& chargeMode) {
    const auto source = Sources().constFind(chargeMode);
    if (source == Sources().constEnd())
        throw RunTime::Error(RunTime::kObjectNotSet);
    return (*source)();
}
