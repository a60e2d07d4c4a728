#pragma once

#include "text/RunTimeError.h"

#include <memory>

/// A reference to an object that may not be set. Reaching through an unset one raises 91, which ends the
/// process with that text unless a trap stands.
template <class T> class Ref {
  public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    template <class U>
    Ref(std::shared_ptr<U> object)
        : mObject(std::move(object)) {}

    T* operator->() const { return &**this; }
    T& operator*() const {
        if (!mObject)
            throw RunTime::Error(RunTime::kObjectNotSet);
        return *mObject;
    }
    bool IsSet() const { return mObject != nullptr; }
    const std::shared_ptr<T>& Shared() const { return mObject; }

  private:
    std::shared_ptr<T> mObject;
};
