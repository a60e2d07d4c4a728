#pragma once

class QWidget;

/// A window that stands beside the program's screens, as the manual does. To go to it and to come back is
/// like going to another program: no screen is left for it, no control hears a GotFocus for it, and it stays
/// in use while a modal screen is open.
void StandAside(QWidget& window);

/// Whether a window, or the window of a control, stands aside.
bool StandsAside(const QWidget* control);
