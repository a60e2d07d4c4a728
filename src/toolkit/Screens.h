#pragma once

#include "toolkit/Form.h"

#include <memory>
#include <typeindex>

/// The screens' single instances, each made and loaded when it is first touched and gone when it is unloaded.
/// A touch after that makes a fresh one.
class Screens {
  public:
    /// The screen's instance; a new one runs Form_Load before it is handed back, shown or not.
    template <class T> static T& Get() {
        if (Form* form = Find(typeid(T)))
            return static_cast<T&>(*form);
        auto form = std::make_unique<T>();
        T& screen = *form;
        Keep(typeid(T), std::move(form));
        return screen;
    }

    template <class T> static bool IsLoaded() { return Find(typeid(T)) != nullptr; }

    /// Unloads the screen if it is loaded. False when it refused.
    template <class T> static bool Unload() {
        Form* form = Find(typeid(T));
        return !form || form->Unload();
    }

    /// Drops the screen without asking it and without the steps of a closing. For an instance that was made
    /// for one question and that nobody has seen.
    template <class T> static void Drop() { DropForm(Find(typeid(T))); }

    /// Unloads every screen, the one made last first. False as soon as one refuses.
    static bool UnloadAll();

    /// Drops every screen without asking. For the end of the program and for tests.
    static void Clear();

  private:
    friend class Form;

    static Form* Find(std::type_index type);
    static void DropForm(Form* form);
    static void Keep(std::type_index type, std::unique_ptr<Form> form);
    /// Forgets an instance that is being unloaded.
    static void Forget(const Form* form);
};
