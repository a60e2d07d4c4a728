#include "support/Contrast.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QPalette>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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

TEST(Look, AnIconIsTheSameOneEachTime) {
    EXPECT_EQ(ProgramIcon(u"patient"_s).cacheKey(), ProgramIcon(u"patient"_s).cacheKey());
    EXPECT_NE(ProgramIcon(u"patient"_s).cacheKey(), ProgramIcon(u"assess"_s).cacheKey());
}

TEST(Look, TheIconOfASelectedRowStandsOutFromItsColour) {
    const QImage icon = ProgramIcon(u"patient"_s).pixmap(24, QIcon::Selected).toImage();
    const QColor shoulder = icon.pixelColor(icon.width() / 2, icon.height() * 4 / 5);
    EXPECT_GE(Contrast(shoulder, QApplication::palette().color(QPalette::Highlight)), 4.5);
}

} // namespace
