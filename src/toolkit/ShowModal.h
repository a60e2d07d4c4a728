#pragma once

class QDialog;

/// Runs a dialogue of one of the suite's components over the active window. True when it was accepted.
bool ShowModal(QDialog& dialog);
