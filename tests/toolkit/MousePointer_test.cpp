#include "toolkit/MousePointer.h"

#include <QCursor>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {

TEST(MousePointer, HasThePublishedNumbers) {
    EXPECT_EQ(static_cast<int>(MousePointer::Default), 0);
    EXPECT_EQ(static_cast<int>(MousePointer::Wait), 11);
}

TEST(MousePointer, IsOneSettingAndNoStack) {
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    SetMousePointer(MousePointer::Wait);
    SetMousePointer(MousePointer::Wait);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    SetMousePointer(MousePointer::Default);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    SetMousePointer(MousePointer::Default);
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

} // namespace
