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

/// One of the program's own icons by its name, such as "patient".
QIcon ProgramIcon(const QString& name);
