#include "toolkit/Screens.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

struct Entry {
    std::type_index type;
    Form* form;
};

/// In the order in which they were made.
std::vector<Entry>& Loaded() {
    static std::vector<Entry> screens;
    return screens;
}

} // namespace

Form* Screens::Find(std::type_index type) {
    const auto found = std::find_if(Loaded().begin(), Loaded().end(),
                                    [type](const Entry& entry) { return entry.type == type; });
    return found == Loaded().end() ? nullptr : found->form;
}

void Screens::Keep(std::type_index type, std::unique_ptr<Form> form) {
    Form* screen = form.release();
    Loaded().push_back({type, screen});
    screen->Load();
}

void Screens::Forget(const Form* form) {
    std::erase_if(Loaded(), [form](const Entry& entry) { return entry.form == form; });
}

void Screens::DropForm(Form* form) {
    if (!form)
        return;
    Forget(form);
    delete form;
}

bool Screens::UnloadAll() {
    while (!Loaded().empty()) {
        if (!Loaded().back().form->Unload())
            return false;
    }
    return true;
}

void Screens::Clear() {
    while (!Loaded().empty()) {
        Form* form = Loaded().back().form;
        Loaded().pop_back();
        delete form;
    }
}
