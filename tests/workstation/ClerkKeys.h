#pragma once

#include "driver/Driver.h"
#include "driver/SignOn.h"

#include <QStringList>

// What several scripts key.

/// A line of the child's output, for the test.
void Tell(const QString& what);

/// Waits for the box of a failure, tells its text and presses its button; the process ends with it.
void ReadFailure(Driver& clerk);

/// Keys texts, each ended by Enter.
void Key(Driver& clerk, const QStringList& texts);

/// Opens a charge screen or list by its menu item, finds a patient by the beginning of his name, takes the
/// first hit and tells it.
void FindPatient(Driver& clerk, const QString& menuItem, const QString& name);

/// Keys three lines: a service, a medicine with an own amount, a doctor's fee. Tells the total.
void KeyThreeLines(Driver& clerk);
/// Saves the charges; the slip's viewer opens.
void PressSave(Driver& clerk);
/// Saves the slip as a PDF, closes the viewer, and tells the slip's number.
void CloseSlip(Driver& clerk);

/// Tells a message box and answers it with its default button.
void AnswerBox(Driver& clerk);
