#include "patients/FinderTarget.h"

#include <QHash>

namespace {

QHash<QString, FinderTargetSource>& Sources() {
    static QHash<QString, FinderTargetSource> sources;
    return sources;
}

} // namespace

void RegisterFinderTarget(const QString& chargeMode, const FinderTargetSource& source) {
    if (source)
        Sources().insert(chargeMode, source);
    else
        Sources().remove(chargeMode);
}

FinderTarget* FinderTargetOf(const QString& chargeMode) {
    const auto source = Sources().constFind(chargeMode);
    return source == Sources().constEnd() ? nullptr : &(*source)();
}
