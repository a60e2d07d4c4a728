#pragma once

#include <QString>
#include <QStringList>

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

/// A control of a screen as the table tells it. What the table leaves open has no value.
struct ControlRow {
    /// Empty for a control that is found by its caption.
    QString name;
    /// A word that ControlKind knows.
    QString kind;
    std::optional<QString> caption;
    std::optional<bool> visible;
    std::optional<bool> enabled;
    std::optional<bool> isTabStop;
    int line = 0;
};

/// A screen as the table tells it, its controls in the order of work.
struct ScreenSection {
    /// The class.
    std::string name;
    std::optional<QString> title;
    /// How the screen is opened, in words that WaysIn knows.
    QStringList ways;
    bool isModal = false;
    std::vector<ControlRow> rows;
    /// Names of controls that are only looked up, such as a viewer's own buttons.
    QStringList own;
};

void PrintTo(const ScreenSection& section, std::ostream* out);

/// The screens of a table. Raises std::runtime_error with file name and line when a line cannot be read, when
/// a screen or a control stands twice, or when the file cannot be opened.
std::vector<ScreenSection> ReadScreenTable(const QString& file);
