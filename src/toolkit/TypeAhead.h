#pragma once

#include <QtGlobal>

/// Keeps the keys that a clerk, or a scanner, types ahead. On X11 a key belongs to the window that had the
/// focus when it went down, even where that window is shut or gone by the time the key is read; the toolkit
/// drops it then. From here on keys are read one by one, each when what the one before has opened or closed
/// stands ready, and go to the window that is in front then. On other platforms it does nothing.
void KeepTypedAhead();

/// Whether the key press of that moment, as its event tells it, is one that the X server has made up for a
/// key that is held down. The toolkit tells such presses too, but not each of them: it looks for the press
/// behind a release before it may have come. On other platforms it tells them all, and this answers false.
bool IsMadeUpPress(quint64 moment);
