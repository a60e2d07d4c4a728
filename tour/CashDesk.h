#pragma once

class Album;
class Driver;

/// Registers a walk-in, writes his assessment, looks it up again.
void VisitCashDesk(Driver& clerk, Album& album);
