#include "report/template/TemplatePieces.h"

#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A stretch of a text, within braces or outside.
struct Stretch {
    bool braced = false;
    QString text;
};

std::vector<Stretch> Split(const ReportTemplate& report, int line, const QString& text) {
    std::vector<Stretch> stretches;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype open = text.indexOf(u'{', at);
        const QString words = text.mid(at, open < 0 ? -1 : open - at);
        if (words.contains(u'}'))
            throw TemplateError(report.file, line, u"There is a \"}\" without a \"{\" before it."_s);
        if (!words.isEmpty())
            stretches.push_back({false, words});
        if (open < 0)
            break;
        const qsizetype close = text.indexOf(u'}', open);
        if (close < 0)
            throw TemplateError(report.file, line, u"There is a \"{\" without a \"}\" behind it."_s);
        const QString name = text.mid(open + 1, close - open - 1).trimmed();
        if (name.isEmpty() || name.contains(u'{'))
            throw TemplateError(report.file, line, u"There is no name between \"{\" and \"}\"."_s);
        stretches.push_back({true, name});
        at = close + 1;
    }
    return stretches;
}

/// The place of the entry with that name, letter case aside.
template <class Entry> std::optional<size_t> Find(const std::vector<Entry>& entries, QStringView name) {
    const auto found = std::find_if(entries.begin(), entries.end(), [name](const Entry& entry) {
        return name.compare(entry.name, Qt::CaseInsensitive) == 0;
    });
    if (found == entries.end())
        return std::nullopt;
    return static_cast<size_t>(found - entries.begin());
}

size_t FindParameter(const ReportTemplate& report, int line, const QString& name) {
    if (const auto number = Find(report.parameters, name))
        return *number;
    throw TemplateError(report.file, line, u"There is no parameter \"%1\"."_s.arg(name));
}

TextPiece ReadField(const ReportTemplate& report, const QString& name) {
    TextPiece piece;
    piece.kind = TextPiece::Kind::Field;
    piece.text = name;
    const qsizetype point = name.indexOf(u'.');
    if (point <= 0)
        return piece;
    piece.query = Find(report.queries, QStringView(name).left(point));
    if (piece.query)
        piece.text = name.mid(point + 1);
    return piece;
}

TextPiece ReadPlaceholder(const ReportTemplate& report, int line, const QString& name) {
    if (name.startsWith(u'?')) {
        const QString parameter = name.mid(1);
        return {TextPiece::Kind::Parameter, parameter, {}, FindParameter(report, line, parameter)};
    }
    if (name == "page"_L1)
        return {TextPiece::Kind::Page, {}, {}, 0};
    if (name == "pages"_L1)
        return {TextPiece::Kind::Pages, {}, {}, 0};
    if (name == "now"_L1)
        return {TextPiece::Kind::Now, {}, {}, 0};
    if (name == "user"_L1)
        return {TextPiece::Kind::User, {}, {}, 0};
    if (name == "count"_L1)
        return {TextPiece::Kind::Count, {}, {}, 0};
    if (name.startsWith("sum "_L1))
        return {TextPiece::Kind::Sum, name.mid(4).trimmed(), {}, 0};
    return ReadField(report, name);
}

} // namespace

std::vector<TextPiece> ReadCellText(const ReportTemplate& report, int line, const QString& text) {
    std::vector<TextPiece> pieces;
    for (const Stretch& stretch : Split(report, line, text)) {
        if (stretch.braced)
            pieces.push_back(ReadPlaceholder(report, line, stretch.text));
        else
            pieces.push_back({TextPiece::Kind::Literal, stretch.text, {}, 0});
    }
    return pieces;
}

std::vector<QueryPiece> ReadQueryText(const ReportTemplate& report, int line, const QString& text) {
    std::vector<QueryPiece> pieces;
    qsizetype quotes = 0;
    for (const Stretch& stretch : Split(report, line, text)) {
        if (!stretch.braced) {
            quotes += stretch.text.count(u'\'');
            pieces.push_back({QueryPiece::Kind::Text, stretch.text, 0});
        } else if (quotes % 2 != 0) {
            // The value brings its own quotes; within others it would end them.
            throw TemplateError(report.file, line, u"{%1} stands within quotes."_s.arg(stretch.text));
        } else if (stretch.text.startsWith(u'?')) {
            const size_t number = FindParameter(report, line, stretch.text.mid(1));
            pieces.push_back({QueryPiece::Kind::Parameter, {}, number});
        } else if (const auto table = Find(report.tables, stretch.text)) {
            pieces.push_back({QueryPiece::Kind::Table, {}, *table});
        } else {
            throw TemplateError(report.file, line, u"There is no table \"%1\"."_s.arg(stretch.text));
        }
    }
    return pieces;
}
