#pragma once

#include <QImage>

class Driver;

/// The program as it stands on the screen: the main window with the dialogues over it, each in a plain frame
/// with its title, since no window manager draws one here.
QImage TakeScreenshot();

/// Saves the screen as it stands as a PNG file and prints the file's name. Raises DriverError when it cannot
/// be written.
void SaveScreenshot(Driver& driver, const QString& file);
