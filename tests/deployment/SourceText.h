#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// What stands in the files of this project.

/// The file's text; a file that cannot be read fails the test. The path begins at the root of the project.
QString ReadFile(const QString& path);

/// The files below a folder whose names go with one of the patterns, as paths from the root of the project.
QStringList FilesBelow(const QString& folder, const QStringList& patterns);

/// Source text without its comments. What stands in quotes stays.
QString WithoutComments(const QString& source);

/// The texts in quotes of one expression, put together as the program does. What it puts in between is a "?".
struct QuotedText {
    QString text;
    /// Where the expression ends in the source, in characters.
    qsizetype position;
};

/// The quoted texts of a source without comments, one for each expression that has any.
std::vector<QuotedText> QuotedTexts(const QString& source);
