#include "suite/LastPick.h"

#include <QStringList>

#include <utility>

namespace {

QStringList kept;

} // namespace

void KeepPick(const QString& text, const QString& code) {
    kept = {text, code};
}

void ForgetPick() {
    kept.clear();
}

bool TakePick(const QString& text) {
    return std::exchange(kept, {}).contains(text);
}
