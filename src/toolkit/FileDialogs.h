#pragma once

#include "text/Seam.h"

#include <QString>

class QWidget;

/// Asks where to save a file; empty when the clerk gives up. `filter` is the dialogue's list of kinds, such
/// as "PDF (*.pdf)"; a name without an ending gets the one of the suggested name.
QString AskSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                    const QString& filter);

/// What asks: the toolkit's own dialogue. The tour saves without one.
Seam<QString(QWidget* parent, const QString& title, const QString& suggestedName, const QString& filter)>&
SaveDialogSeam();
