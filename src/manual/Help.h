#pragma once

class QString;
class QWidget;

/// From here on F1 opens the manual at the page of the screen in hand.
void OfferHelp();

/// The page for a clerk whose keys go to that control: that of the screen or dialogue around it; where a
/// message box or the main window is around it, that of the screen to which he came last.
QString PageInHand(const QWidget* control);
