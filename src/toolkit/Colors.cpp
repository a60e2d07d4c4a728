#include "toolkit/Colors.h"

#include <QGuiApplication>

namespace {

constexpr QColor Rgb(int rgb) {
    return QColor((rgb >> 16) & 0xff, (rgb >> 8) & 0xff, rgb & 0xff);
}

constexpr Colors kLight = {.window = Rgb(0xf3f5f7),
                           .area = Rgb(0xe4e7ea),
                           .text = Rgb(0x1c232b),
                           .quiet = Rgb(0x525c66),
                           .field = Rgb(0xffffff),
                           .alternate = Rgb(0xf0f5f9),
                           .shown = Rgb(0xd9e0e7),
                           .button = Rgb(0xfbfcfd),
                           .held = Rgb(0xd9e0e7),
                           .line = Rgb(0x7f8993),
                           .grid = Rgb(0xc9d0d7),
                           .mark = Rgb(0x1f5f8b),
                           .onMark = Rgb(0xffffff),
                           .paleMark = Rgb(0xc4d8e8),
                           .heading = Rgb(0x1f5f8b),
                           .focus = Rgb(0x1f5f8b),
                           .problem = Rgb(0xa3262b),
                           .warning = Rgb(0x8a5a00),
                           .wrong = Rgb(0xfdecea),
                           .editor = Rgb(0xfff6cf),
                           .ink = Rgb(0x1f5f8b),
                           .softInk = Rgb(0x4d8fbd),
                           .found = Rgb(0xfff0bd),
                           .foundEdge = Rgb(0xb36b00),
                           .sheetEdge = Rgb(0x7f8993)};

constexpr Colors kDark = {.window = Rgb(0x22282e),
                          .area = Rgb(0x181d21),
                          .text = Rgb(0xe8edf2),
                          .quiet = Rgb(0xa3adb8),
                          .field = Rgb(0x171b1f),
                          .alternate = Rgb(0x1e2429),
                          .shown = Rgb(0x333c45),
                          .button = Rgb(0x343c44),
                          .held = Rgb(0x1e2429),
                          .line = Rgb(0x7f8a95),
                          .grid = Rgb(0x3a434c),
                          .mark = Rgb(0x256fa5),
                          .onMark = Rgb(0xffffff),
                          .paleMark = Rgb(0x2d4a63),
                          .heading = Rgb(0x7cbcea),
                          .focus = Rgb(0x7cbcea),
                          .problem = Rgb(0xff9c96),
                          .warning = Rgb(0xf0c060),
                          .wrong = Rgb(0x4d2427),
                          .editor = Rgb(0x4a4318),
                          .ink = Rgb(0x7cbcea),
                          .softInk = Rgb(0x4d8fbd),
                          .found = kLight.found,
                          .foundEdge = kLight.foundEdge,
                          .sheetEdge = kLight.sheetEdge};

const Colors* colorsInUse = &kLight;

/// A desktop whose windows are darker than what is written on them.
bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

} // namespace

const Colors& LightColors() {
    return kLight;
}

const Colors& DarkColors() {
    return kDark;
}

const Colors& TheColors() {
    return *colorsInUse;
}

void FollowDesktop() {
    colorsInUse = DarkDesktopSeam()() ? &kDark : &kLight;
}

QPalette PaletteOf(const Colors& colors) {
    QPalette palette(colors.button, colors.window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, colors.text);
    palette.setColor(QPalette::Base, colors.field);
    palette.setColor(QPalette::ToolTipBase, colors.field);
    palette.setColor(QPalette::AlternateBase, colors.alternate);
    palette.setColor(QPalette::Highlight, colors.mark);
    palette.setColor(QPalette::HighlightedText, colors.onMark);
    palette.setColor(QPalette::PlaceholderText, colors.quiet);
    palette.setColor(QPalette::Link, colors.heading);
    // What is disabled must still be read: a filled header is disabled more often than not.
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.quiet);
    palette.setColor(QPalette::Disabled, QPalette::Base, colors.shown);
    return palette;
}

Seam<bool()>& DarkDesktopSeam() {
    // The desktop's palette is the application's until the program has set its own.
    static Seam<bool()> seam([] {
        static const bool isDark = IsDark(QGuiApplication::palette());
        return isDark;
    });
    return seam;
}
