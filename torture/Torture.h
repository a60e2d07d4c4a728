#pragma once

#include <QString>

class TortureTable;

/// How long and with what a torture goes on.
struct TortureSize {
    /// Kills; saves of each desk.
    int times = 500;
    /// Patients of the long shift.
    int patients = 2000;
    /// 0 for as many as the torture takes by itself.
    int desks = 0;
    unsigned seed = 1;
    /// As part of every test: less of everything, and no more than some seconds.
    bool isShort = false;
    /// The file of the long shift's graph, empty for none.
    QString graph;
};

/// Workstations on one hospital file, killed again and again; then the same on a server, and a server that is
/// cut at every packet of a save.
void TortureByKills(TortureTable& table, const TortureSize& size);

/// Ever more workstations that post, cancel and revoke at once on one hospital file.
void TortureByCrowd(TortureTable& table, const TortureSize& size);

/// Ever more workstations at the pace of a real department, replayed on a server's wire.
void TortureByDesks(TortureTable& table, const TortureSize& size);

/// One workstation that works on for as long as weeks of shifts: memory, handles, timers and widgets stay as
/// they are. Draws them into a file where one is named.
void TortureByLongShift(TortureTable& table, const TortureSize& size);

/// Disks and files as nobody wants them: full, read-only, cut, foreign, oddly named; clocks and languages of
/// the machine that are not the usual ones.
void TortureByFiles(TortureTable& table, const TortureSize& size);

// What the tortures start as processes of their own.

/// The whole program with a shift keyed in it.
int RunShift(const QStringList& arguments);

/// The whole program with the shift keyed in it that is recorded for the replay.
int RunDeskShift(const QStringList& arguments);

/// The whole program with a shift that goes on and on.
int RunLongShift(const QStringList& arguments);

/// One desk of the crowd: the screens without their keys.
int RunCrowdDesk(const QStringList& arguments);

/// One desk of the torture of files: the whole program with one slip keyed in it.
int RunFilesDesk(const QStringList& arguments);
