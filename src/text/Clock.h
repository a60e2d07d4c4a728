#pragma once

#include "text/DateTime.h"

#include <functional>

/// The workstation's present date and time. Every date that a screen sends or prints comes from here.
DateTime Now();

/// The workstation's present date at midnight.
DateTime Today();

/// Puts another clock in place of the machine's own; an empty function brings the machine's clock back.
void SetClock(std::function<DateTime()> clock);
