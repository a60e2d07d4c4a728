#pragma once

#include <QString>

class QWidget;

/// Asks where to save a file; empty when the clerk gives up. `filter` is the dialogue's list of kinds, such
/// as "PDF (*.pdf)"; a name without an ending gets the one of the suggested name.
QString AskSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                    const QString& filter);

/// Answers in place of the dialogue, for tests and the tour; null brings the dialogue back.
using SaveFileAnswer = QString (*)(const QString& suggestedName);
void SetSaveFileAnswer(SaveFileAnswer answer);
