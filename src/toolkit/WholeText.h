#pragma once

class QHelpEvent;
class QString;
class QWidget;

/// Shows the whole of a text that is cut where the mouse stands, or hides the tip of before for an empty one.
void ShowWholeText(QWidget& control, const QHelpEvent& event, const QString& text);
