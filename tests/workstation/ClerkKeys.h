#pragma once

#include "tour/Driver.h"

#include <QStringList>

// What several scripts key.

/// A line of the child's output, for the test.
void Tell(const QString& what);

/// Keys the trial hospital's clerk and her password.
void KeyLogOn(Driver& clerk);
/// The same, and waits until the sign-on window has closed.
void SignOn(Driver& clerk);

/// Waits for the box of a failure, tells its text and presses its button; the process ends with it.
void ReadFailure(Driver& clerk);

/// Keys texts, each ended by Enter.
void Key(Driver& clerk, const QStringList& texts);
