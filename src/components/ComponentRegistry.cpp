#include "components/ComponentRegistry.h"

#include <QHash>

namespace {

QHash<QString, ComponentFactory>& Factories() {
    static QHash<QString, ComponentFactory> factories;
    return factories;
}

} // namespace

void RegisterComponent(const QString& className, const ComponentFactory& factory) {
    if (factory)
        Factories().insert(className, factory);
    else
        Factories().remove(className);
}

std::shared_ptr<Component> CreateComponent(const QString& className, const QString& server) {
    const auto factory = Factories().constFind(className);
    if (factory == Factories().constEnd())
        throw RunTime::Error(RunTime::kCannotCreateObject);
    return (*factory)(server);
}
