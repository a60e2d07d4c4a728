#pragma once

#include <QString>

class QPrinter;

/// Whether the machine has any printer.
bool HasPrinters();
/// Whether the machine has that printer.
bool HasPrinter(const QString& name);

/// The printer that this user of the machine printed on last; empty for none yet.
QString LastPrinter();
void RememberPrinter(const QString& name);

/// What keeps a printer from taking a job, before it gets one; empty for nothing.
QString ObstacleOf(const QPrinter& printer);
/// What the machine's print system said to the job that it was handed last, empty where it took it. It has
/// to be asked at once, on the thread that printed: the toolkit itself keeps a refusal to itself.
QString RefusalOf(const QPrinter& printer);
