#pragma once

/// What every in-house component of the suite is, also those that are only created.
class Component {
  public:
    Component() = default;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    virtual ~Component() = default;
};
