#pragma once

/// What tarven-report ends with.
namespace Outcome {
constexpr int kMade = 0;
/// The template, the rows or the file to be written failed.
constexpr int kFailed = 1;
/// It was not begun: the command line or the sign-on was wrong.
constexpr int kNotBegun = 2;
} // namespace Outcome
