#pragma once

class QApplication;
class QIcon;
class QString;

/// The one place of the program's look: style, palette, face and spacing.
void ApplyLook(QApplication& application);

/// The spacing scale, in pixels.
namespace Space {
constexpr int kTight = 4;
constexpr int kNormal = 8;
constexpr int kWide = 16;
} // namespace Space

/// The icon of a picture's file, the same one each time: the toolkit keeps what it drew of an icon under the
/// number of that very icon, and forgets no number. A file beside it whose name ends in "-selected" is the
/// icon on a selected row.
QIcon KeptIcon(const QString& file);

/// One of the program's own icons by its name, such as "patient".
QIcon ProgramIcon(const QString& name);
