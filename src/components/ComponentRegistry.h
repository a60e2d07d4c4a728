#pragma once

#include "components/Component.h"
#include "components/Ref.h"

#include <QString>

#include <functional>
#include <memory>

/// Makes a component on the remote server of that name; the empty text stands for the workstation itself.
/// What it throws is the failure to create the component.
using ComponentFactory = std::function<std::shared_ptr<Component>(const QString& server)>;

/// Enters a class name with the factory behind it; an empty factory strikes the name out.
void RegisterComponent(const QString& className, const ComponentFactory& factory);

/// A new component of a registered class. Raises 429 for a class name that is not registered.
std::shared_ptr<Component> CreateComponent(const QString& className, const QString& server = {});

/// A new component of a registered class as the contract that its user knows. Raises 429 for a class that is
/// not registered and 13 for one that does not keep the contract.
template <class Contract> Ref<Contract> CreateObject(const QString& className, const QString& server = {}) {
    auto component = std::dynamic_pointer_cast<Contract>(CreateComponent(className, server));
    if (!component)
        throw RunTime::Error(RunTime::kTypeMismatch);
    return component;
}
