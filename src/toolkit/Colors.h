#pragma once

#include "text/Seam.h"

#include <QColor>
#include <QPalette>

/// The colours of the look, each by what it is for. There is one table of them for a light desktop and one
/// for a dark one, and no other colour on the screen; a printed page has its template's.
struct Colors {
    /// The ground of screens, and that of the main window behind them.
    QColor window;
    QColor area;
    /// What is read, and what is read second: what is disabled, and what a box says while it is empty.
    QColor text;
    QColor quiet;
    /// The ground of boxes and lists, of every other row, and of boxes into which nobody keys.
    QColor field;
    QColor alternate;
    QColor shown;
    /// The ground of buttons and drop-down lists, and that of one that is held down.
    QColor button;
    QColor held;
    /// The edges of boxes, buttons and frames, and the lines between cells.
    QColor line;
    QColor grid;
    /// The mark of a row or cell with what stands on it, and the one of a list that was left.
    QColor mark;
    QColor onMark;
    QColor paleMark;
    /// The headings of screens, and the ring of the focus.
    QColor heading;
    QColor focus;
    /// What went wrong, what is to be heeded, and the ground of a box whose text cannot be taken.
    QColor problem;
    QColor warning;
    QColor wrong;
    /// The ground of the editor that floats over a grid.
    QColor editor;
    /// The strokes of icons: those that draw a thing, and those within it.
    QColor ink;
    QColor softInk;
    /// The sheets of a report are paper's white on every desktop: the dye of what was found there, so light
    /// that what is printed in grey can still be read, its edge, seen on paper and on a dark cell, and the
    /// sheet's.
    QColor found;
    QColor foundEdge;
    QColor sheetEdge;
};

/// The colours for a light desktop and those for a dark one.
const Colors& LightColors();
const Colors& DarkColors();

/// Those in which the program shows: the ones of the desktop as it stood when the look was applied.
const Colors& TheColors();
/// Makes the desktop's colours those of the program.
void FollowDesktop();

/// The toolkit's names for them.
QPalette PaletteOf(const Colors& colors);

/// Whether the desktop asks for dark windows.
Seam<bool()>& DarkDesktopSeam();
