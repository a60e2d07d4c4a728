#pragma once

#include "check/Finding.h"

#include <QMap>
#include <QString>

/// Keys and values of a section, keys in small letters.
using SourceLines = QMap<QString, QString>;

/// Judges what the lines of a data source, and those of its server in the driver's own file, say of encryption
/// and of the server's certificate. `server` is empty for a driver without a file of its own.
Findings JudgeSourceLines(const QString& name, const SourceLines& source, const SourceLines& server);

/// Reads the lines of one section of a file in the form of freetds.conf, those of [global] where it says nothing
/// else, over those that are there already. Answers whether the section stands in the file.
bool ReadServerLines(const QString& content, const QString& section, SourceLines& lines);

/// Looks at the machine's lines for a data source, and judges them. `driver` is what the driver calls itself;
/// empty where it does not tell.
Findings LookAtSourceLines(const QString& name, const QString& source, const QString& driver);
