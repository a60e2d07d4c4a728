#include "toolkit/Picker.h"

#include "text/UCase.h"
#include "toolkit/ClickTable.h"
#include "toolkit/Keys.h"

#include <QAbstractButton>
#include <QLineEdit>

namespace {

void PickIfEnabled(const Picker& picker) {
    if (!picker.button || picker.button->isEnabled())
        picker.pick();
}

bool Picks(PickKeys keys, int keyAscii) {
    return keys == PickKeys::Any ? keyAscii != Key::kEscape
                                 : keys == PickKeys::Enter && keyAscii == Key::kEnter;
}

void WireList(const Picker& picker) {
    QObject::connect(picker.list, &ClickTable::DblClick, picker.list, [picker] { PickIfEnabled(picker); });
    OnKeyPress(picker.list, [picker](int& keyAscii) {
        if (!Picks(picker.keys, keyAscii))
            return;
        if (picker.keepsEnter)
            keyAscii = 0;
        PickIfEnabled(picker);
    });
    // Asked before the handler: the Enter that has opened the list is not meant for one of its rows.
    IgnoreHeldKeys(*picker.list);
}

bool BoxKeyDown(const Picker& picker, int keyCode) {
    if (keyCode != Key::kDown || !picker.downToList)
        return false;
    if (picker.markFirst)
        picker.markFirst();
    picker.list->setFocus();
    return true;
}

void BoxKeyPress(const Picker& picker, int& keyAscii) {
    if (picker.capitals)
        keyAscii = UCase(QChar(keyAscii)).unicode();
    if (keyAscii == Key::kEnter && picker.enter)
        picker.enter();
}

} // namespace

void WirePicker(const Picker& picker) {
    WireList(picker);
    if (!picker.box)
        return;
    OnKeyDown(picker.box, [picker](int keyCode) { return BoxKeyDown(picker, keyCode); });
    OnKeyPress(picker.box, [picker](int& keyAscii) { BoxKeyPress(picker, keyAscii); });
}
