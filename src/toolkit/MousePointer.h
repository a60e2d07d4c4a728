#pragma once

/// The shapes of the screen's pointer that the system uses, with their published numbers.
enum class MousePointer { Default = 0, Wait = 11 };

/// Sets the pointer of the whole program. It is one setting, not a stack: the last call counts.
void SetMousePointer(MousePointer pointer);

/// The shape that the program's pointer has now.
MousePointer CurrentMousePointer();
