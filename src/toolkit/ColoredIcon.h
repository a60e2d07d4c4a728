#pragma once

class QIcon;
class QString;

/// One of the program's drawings by its name. It shows in the colours of the look, and on a selected row in
/// the one that stands out from its mark.
QIcon IconInColors(const QString& name);
