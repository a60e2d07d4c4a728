#pragma once

#include <QString>

// What a picker was asked for and gave back last. One lookup of the charge screens asks the stock first and
// the services next, both by what was keyed: once the clerk has picked, a second list would only be in his
// way, and a second Enter of his would put a service in the place of the item that he picked.

/// Keeps that a picker was asked with that text and gave that code back.
void KeepPick(const QString& text, const QString& code);

/// Forgets what was kept: another picker is asked.
void ForgetPick();

/// Whether the text is what the last picker was asked with or what it gave back. Asking forgets it.
bool TakePick(const QString& text);
