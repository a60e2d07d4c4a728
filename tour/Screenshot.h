#pragma once

#include <QImage>

/// The program as it stands on the screen: the main window with the dialogues over it, each in a plain frame
/// with its title, since no window manager draws one here.
QImage TakeScreenshot();
