#pragma once

#include "reports/PeriodReports.h"

#include <span>

class frmMain;

/// One entry of the main window's menu. A caption of "-" is a separator; an entry without a handler and
/// without a report opens its submenu, or stands there inert.
struct MenuEntry {
    int level;
    const char* name;
    const char* caption;
    const char* shortcut = nullptr;
    bool visible = true;
    bool enabled = true;
    void (frmMain::*click)() = nullptr;
    /// The report of a period for whose days the entry asks.
    ReportType report = ReportType::None;

    /// The whole tree, in its order.
    static std::span<const MenuEntry> Tree();
};
