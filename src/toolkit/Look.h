#pragma once

#include <QStringList>

class QApplication;
class QIcon;
class QString;

/// The one place of the program's look: style, palette, face and spacing. The colours are the light or the
/// dark ones, as the desktop has it.
void ApplyLook(QApplication& application);

/// Makes the faces of a folder the program's, so that screens and pages are the same on every desk, whatever
/// its system has. Returns their families.
QStringList LoadFaces(const QString& folder);

/// The spacing scale, in pixels.
namespace Space {
constexpr int kTight = 4;
constexpr int kNormal = 8;
constexpr int kWide = 16;
} // namespace Space

/// One of the program's own icons by its name, such as "patient"; the same one each time: the toolkit keeps
/// what it drew of an icon under the number of that very icon, and forgets no number. It shows in the colours
/// of the look.
QIcon ProgramIcon(const QString& name);
