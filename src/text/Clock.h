#pragma once

#include "text/DateTime.h"
#include "text/Seam.h"

/// The workstation's present date and time. Every date that a screen sends or prints comes from here.
DateTime Now();

/// The workstation's present date at midnight.
DateTime Today();

/// Where Now comes from: the machine's clock. Reports ask it beside the user interface's thread too.
Seam<DateTime()>& ClockSeam();
