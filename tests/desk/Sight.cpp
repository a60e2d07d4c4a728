#include "desk/Sight.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

QRect RectOf(const QJsonValue& value) {
    const QJsonArray sides = value.toArray();
    return QRect(sides.at(0).toInt(), sides.at(1).toInt(), sides.at(2).toInt(), sides.at(3).toInt());
}

QSize SizeOf(const QJsonValue& value) {
    const QJsonArray sides = value.toArray();
    return QSize(sides.at(0).toInt(), sides.at(1).toInt());
}

std::vector<ShownWindow> WindowsOf(const QJsonValue& value) {
    std::vector<ShownWindow> windows;
    for (const QJsonValue& window : value.toArray())
        windows.push_back({.name = window[u"name"].toString(),
                           .title = window[u"title"].toString(),
                           .titleNeeds = window[u"titleNeeds"].toInt(),
                           .id = quint64(window[u"id"].toDouble()),
                           .place = RectOf(window[u"place"]),
                           .frame = RectOf(window[u"frame"]),
                           .area = RectOf(window[u"area"]),
                           .isActive = window[u"isActive"].toBool()});
    return windows;
}

std::vector<ShownText> TextsOf(const QJsonValue& value) {
    std::vector<ShownText> texts;
    for (const QJsonValue& text : value.toArray())
        texts.push_back({.text = text[u"text"].toString(),
                         .needs = SizeOf(text[u"needs"]),
                         .room = SizeOf(text[u"room"])});
    return texts;
}

} // namespace

State State::FromJson(const QJsonObject& answer) {
    return {.keysTaken = answer[u"keysTaken"].toInt(),
            .isWorking = answer[u"isWorking"].toBool(),
            .focus = answer[u"focus"].toString(),
            .focusKind = answer[u"focusKind"].toString(),
            .focusPlace = RectOf(answer[u"focusPlace"]),
            .caret = RectOf(answer[u"caret"]),
            .menuItem = answer[u"menuItem"].toString(),
            .isMenuOpen = answer[u"isMenuOpen"].toBool(),
            .windows = WindowsOf(answer[u"windows"]),
            .screens = WindowsOf(answer[u"screens"])};
}

const ShownWindow* State::Window(const QString& name) const {
    for (const auto* list : {&windows, &screens}) {
        for (const ShownWindow& window : *list) {
            if (window.name == name)
                return &window;
        }
    }
    return nullptr;
}

std::vector<Control> Control::ListFromJson(const QJsonObject& answer) {
    std::vector<Control> controls;
    for (const QJsonValue& control : answer[u"controls"].toArray())
        controls.push_back({.name = control[u"name"].toString(),
                            .kind = control[u"kind"].toString(),
                            .window = control[u"window"].toString(),
                            .place = RectOf(control[u"place"]),
                            .bounds = RectOf(control[u"bounds"]),
                            .isEnabled = control[u"isEnabled"].toBool(),
                            .text = control[u"text"].toString(),
                            .texts = TextsOf(control[u"texts"])});
    return controls;
}
