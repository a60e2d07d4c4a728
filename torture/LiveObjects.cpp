#include "torture/LiveObjects.h"

#include <QAbstractEventDispatcher>
#include <QSet>
#include <QTimer>

#include <algorithm>
#include <mutex>
#include <stdexcept>

// The toolkit's own table of hooks, which it keeps for tools that look into a running program. Its header is
// not among those that are installed; the places in it have been the same since there is one.
extern Q_DECL_IMPORT quintptr qtHookData[]; // NOLINT(readability-redundant-declaration)

namespace {

constexpr int kObjectBegins = 3;
constexpr int kObjectEnds = 4;

/// Reports have threads, which make and end objects too.
std::mutex& Lock() {
    static std::mutex lock;
    return lock;
}

/// Never destroyed: objects end until the very end of the process.
QSet<QObject*>& Alive() {
    static auto& alive = *new QSet<QObject*>;
    return alive;
}

void Begins(QObject* object) {
    const std::lock_guard lock(Lock());
    Alive().insert(object);
}

void Ends(QObject* object) {
    const std::lock_guard lock(Lock());
    Alive().remove(object);
}

} // namespace

void LiveObjects::Watch() {
    qtHookData[kObjectBegins] = quintptr(&Begins);
    qtHookData[kObjectEnds] = quintptr(&Ends);
    // A thread's first object brings along the one that stands for the thread.
    { const QObject first; }
    const qsizetype before = Count();
    {
        const QObject object;
        if (Count() != before + 1)
            throw std::runtime_error("the toolkit does not tell of its objects");
    }
    if (Count() != before)
        throw std::runtime_error("the toolkit does not tell of the end of its objects");
}

qsizetype LiveObjects::Count() {
    const std::lock_guard lock(Lock());
    return Alive().size();
}

qsizetype LiveObjects::Timers() {
    const std::lock_guard lock(Lock());
    return std::ranges::count_if(std::as_const(Alive()), [](const QObject* object) {
        return qobject_cast<const QTimer*>(object) != nullptr;
    });
}

bool LiveObjects::IsAnythingPutOff() {
    const std::lock_guard lock(Lock());
    return std::ranges::any_of(std::as_const(Alive()), [](const QObject* object) {
        return qstrcmp(object->metaObject()->className(), "QSingleShotTimer") == 0;
    });
}

qsizetype LiveObjects::RunningClocks() {
    const QAbstractEventDispatcher* loop = QAbstractEventDispatcher::instance();
    const std::lock_guard lock(Lock());
    qsizetype clocks = 0;
    for (QObject* object : std::as_const(Alive()))
        clocks += loop->registeredTimers(object).size();
    return clocks;
}
