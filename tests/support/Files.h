#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// Writes a file into the folder and answers its path.
QString WriteFile(const QTemporaryDir& folder, const QString& name, const QByteArray& content);

/// What is in a file; nothing where there is none.
QByteArray ReadFile(const QString& file);
