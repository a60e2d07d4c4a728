#pragma once

#include <QString>

#include <vector>

/// A page of the clerk's manual.
struct ManualPage {
    /// As its file is called, without the ending.
    QString name;
    /// Its first heading.
    QString title;
    /// In the form in which it was written.
    QString markdown;
};

/// Where the pages and their pictures lie in the program.
inline constexpr auto kManualFolder = ":/manual/";

/// The page with which the manual begins, and which leads to all others.
inline constexpr auto kContentsPage = "README";

/// Every page, the contents first, then in the order in which they name the others.
const std::vector<ManualPage>& ManualPages();

/// The page that tells of a screen or a dialogue, by its name; null where none does.
const ManualPage* PageOfScreen(const QString& screen);

/// A page as it is shown: keys look like what is to be typed.
QString ShownMarkdown(const QString& markdown);

/// Whether a page has the text somewhere, whichever way its letters are written. Every page has the empty
/// text.
bool HasText(const ManualPage& page, const QString& text);
