#include "toolkit/Look.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPalette>

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The relative luminance of a colour and the contrast of two, as the Web Content Accessibility
/// Guidelines 2.1 define them.
double Luminance(const QColor& color) {
    const auto part = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const auto [low, high] = std::minmax({Luminance(a), Luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

TEST(Look, WhatIsDisabledCanStillBeRead) {
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        EXPECT_GE(
            Contrast(palette.color(group, QPalette::WindowText), palette.color(group, QPalette::Window)),
            4.5);
        EXPECT_GE(Contrast(palette.color(group, QPalette::Text), QColor(0xee, 0xf1, 0xf4)), 4.5);
        EXPECT_GE(
            Contrast(palette.color(group, QPalette::ButtonText), palette.color(group, QPalette::Button)),
            4.5);
    }
}

TEST(Look, TheProgramsIconsAreThere) {
    for (const QString& name : {u"assess"_s, u"patient"_s, u"program"_s, u"reports"_s, u"transaction"_s})
        EXPECT_FALSE(ProgramIcon(name).pixmap(32).isNull()) << name.toStdString();
}

TEST(Look, TheIconOfASelectedRowStandsOutFromItsColour) {
    const QImage icon = ProgramIcon(u"patient"_s).pixmap(24, QIcon::Selected).toImage();
    const QColor shoulder = icon.pixelColor(icon.width() / 2, icon.height() * 4 / 5);
    EXPECT_GE(Contrast(shoulder, QApplication::palette().color(QPalette::Highlight)), 4.5);
}

} // namespace
