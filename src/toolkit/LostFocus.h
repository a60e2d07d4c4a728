#pragma once

/// Sees to it that the window in front always has a control with the focus, while the program runs. Where a
/// chain of modal windows, a screen that closes or a control that goes leaves none, the focus goes to the
/// control that had it last in that window, else to the nearest one around it, else to the first of the
/// screen in front; in a main window without a screen to the first of the toolbar.
void CatchLostFocus();
