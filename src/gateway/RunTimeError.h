#pragma once

// The failures of the run-time, which those of the database share.
#include "text/RunTimeError.h" // IWYU pragma: export
