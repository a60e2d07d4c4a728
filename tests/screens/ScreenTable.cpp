#include "screens/ScreenTable.h"

#include "screens/ControlKind.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <ostream>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kScreenCells = 5;
constexpr qsizetype kControlCells = 6;
constexpr qsizetype kOwnCells = 2;

class TableReader {
  public:
    explicit TableReader(const QString& file)
        : mFile(file) {}

    std::vector<ScreenSection> Read();

  private:
    [[noreturn]] void Fail(const QString& what) const;
    QStringList CellsOf(const QString& text) const;
    void CheckCount(const QStringList& cells, qsizetype wanted) const;
    void ReadScreen(const QStringList& cells);
    void ReadControl(const QStringList& cells);
    void ReadOwn(const QStringList& cells);
    std::optional<QString> QuotedOrOpen(const QString& cell) const;
    /// The first word means true, the second one false.
    bool OneOf(const QString& cell, const QString& yes, const QString& no) const;
    std::optional<bool> OneOfOrOpen(const QString& cell, const QString& yes) const;
    ScreenSection& Current();
    void CheckNew(const QString& name);

    QString mFile;
    int mLine = 0;
    std::vector<ScreenSection> mSections;
};

std::vector<ScreenSection> TableReader::Read() {
    QFile file(mFile);
    if (!file.open(QIODevice::ReadOnly))
        Fail(file.errorString());
    for (const QString& text : QString::fromUtf8(file.readAll()).split(u'\n')) {
        ++mLine;
        if (text.trimmed().isEmpty() || text.startsWith(u'#'))
            continue;
        const QStringList cells = CellsOf(text);
        if (cells.front() == u"screen"_s)
            ReadScreen(cells);
        else if (cells.front() == u"own"_s)
            ReadOwn(cells);
        else
            ReadControl(cells);
    }
    return std::move(mSections);
}

void TableReader::Fail(const QString& what) const {
    throw std::runtime_error(
        u"%1:%2: %3"_s.arg(QFileInfo(mFile).fileName()).arg(mLine).arg(what).toStdString());
}

QStringList TableReader::CellsOf(const QString& text) const {
    QStringList cells = text.split(u'|');
    for (QString& cell : cells)
        cell = cell.trimmed();
    return cells;
}

void TableReader::CheckCount(const QStringList& cells, qsizetype wanted) const {
    if (cells.size() != wanted)
        Fail(u"%1 cells instead of %2"_s.arg(cells.size()).arg(wanted));
}

void TableReader::ReadScreen(const QStringList& cells) {
    CheckCount(cells, kScreenCells);
    ScreenSection section{.name = cells[1].toStdString(),
                          .title = QuotedOrOpen(cells[2]),
                          .ways = cells[3].split(u", "_s),
                          .isModal = OneOf(cells[4], u"modal"_s, u"not modal"_s),
                          .rows = {},
                          .own = {}};
    if (std::ranges::any_of(mSections,
                            [&](const ScreenSection& known) { return known.name == section.name; }))
        Fail(u"%1 stands twice"_s.arg(cells[1]));
    mSections.push_back(std::move(section));
}

void TableReader::ReadControl(const QStringList& cells) {
    CheckCount(cells, kControlCells);
    ControlRow row{.name = cells[0] == u"-"_s ? QString() : cells[0],
                   .kind = cells[1],
                   .caption = QuotedOrOpen(cells[2]),
                   .visible = OneOfOrOpen(cells[3], u"yes"_s),
                   .enabled = OneOfOrOpen(cells[4], u"yes"_s),
                   .isTabStop = OneOfOrOpen(cells[5], u"tab"_s),
                   .line = mLine};
    const ControlKind* kind = ControlKind::Named(row.kind);
    if (!kind)
        Fail(u"no kind of control is called \"%1\""_s.arg(row.kind));
    if (row.name.isEmpty() && (!row.caption || !kind->caption))
        Fail(u"a control without a name is found by the caption on it"_s);
    CheckNew(row.name);
    Current().rows.push_back(std::move(row));
}

void TableReader::ReadOwn(const QStringList& cells) {
    CheckCount(cells, kOwnCells);
    for (const QString& name : cells[1].split(u' ', Qt::SkipEmptyParts)) {
        CheckNew(name);
        Current().own << name;
    }
}

std::optional<QString> TableReader::QuotedOrOpen(const QString& cell) const {
    if (cell == u"-"_s)
        return std::nullopt;
    if (cell.size() < 2 || !cell.startsWith(u'"') || !cell.endsWith(u'"'))
        Fail(u"%1 is neither \"-\" nor in quotes"_s.arg(cell));
    return cell.mid(1, cell.size() - 2);
}

bool TableReader::OneOf(const QString& cell, const QString& yes, const QString& no) const {
    if (cell != yes && cell != no)
        Fail(u"\"%1\" is neither \"%2\" nor \"%3\""_s.arg(cell, yes, no));
    return cell == yes;
}

std::optional<bool> TableReader::OneOfOrOpen(const QString& cell, const QString& yes) const {
    if (cell == u"-"_s)
        return std::nullopt;
    return OneOf(cell, yes, u"no"_s);
}

ScreenSection& TableReader::Current() {
    if (mSections.empty())
        Fail(u"a control before the first screen"_s);
    return mSections.back();
}

void TableReader::CheckNew(const QString& name) {
    const ScreenSection& section = Current();
    const bool known =
        section.own.contains(name) ||
        std::ranges::any_of(section.rows, [&](const ControlRow& row) { return row.name == name; });
    if (!name.isEmpty() && known)
        Fail(u"%1 stands twice"_s.arg(name));
}

} // namespace

void PrintTo(const ScreenSection& section, std::ostream* out) {
    *out << section.name;
}

std::vector<ScreenSection> ReadScreenTable(const QString& file) {
    return TableReader(file).Read();
}
