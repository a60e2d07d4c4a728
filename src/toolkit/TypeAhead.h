#pragma once

/// Keeps the keys that a clerk, or a scanner, types ahead. On X11 a key belongs to the window that had the
/// focus when it went down, even where that window is shut or gone by the time the key is read; the toolkit
/// drops it then. From here on keys are read one by one, each when what the one before has opened or closed
/// stands ready, and go to the window that is in front then. On other platforms it does nothing.
void KeepTypedAhead();
