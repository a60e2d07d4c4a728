#pragma once

class QIcon;
class QString;

/// An icon from a file of the program's. The file is drawn in the light desktop's colours; it shows in those
/// of the look, and on a selected row in the one that stands out from its mark.
QIcon IconFromFile(const QString& file);
