#pragma once

#include <QString>

#include <gtest/gtest.h>

/// Checks a command text against its golden text twice: as it was composed, and as it crosses the wire when
/// the gateway to the hospital's server sends it through the driver.
#define EXPECT_COMMAND(composed, golden) EXPECT_PRED_FORMAT2(CrossesTheWireAs, composed, golden)

testing::AssertionResult CrossesTheWireAs(const char* composedText, const char* goldenText,
                                          const QString& composed, const QString& golden);
