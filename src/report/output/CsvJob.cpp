#include "report/output/CsvJob.h"

#include "gateway/RowSet.h"
#include "text/Format.h"
#include "text/IsNumeric.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kRowsAStep = 200;

/// A spreadsheet takes a text that begins so for a formula, and does what it says.
bool LooksLikeAFormula(const QString& text) {
    static constexpr QStringView kBeginnings = u"=+-@\t\r";
    return !text.isEmpty() && kBeginnings.contains(text.front()) && !IsNumeric(text);
}

/// Dates are written as every spreadsheet reads them, in whatever country.
QString WrittenDate(const DateTime& date) {
    const DateTime::Fields fields = date.ToFields();
    const bool timed = fields.hour != 0 || fields.minute != 0 || fields.second != 0;
    return Format(date, timed ? u"yyyy-mm-dd hh:mm:ss" : u"yyyy-mm-dd");
}

QString Written(const Value& value) {
    if (const auto* date = std::get_if<DateTime>(&value.Get()))
        return WrittenDate(*date);
    const QString text = value.TextOrEmpty();
    const bool isText = std::holds_alternative<QString>(value.Get());
    return isText && LooksLikeAFormula(text) ? u'\'' + text : text;
}

void AddCell(QByteArray& line, const QString& text) {
    static constexpr QStringView kSpecial = u",;\"\r\n";
    const bool quoted = text.startsWith(u' ') || text.endsWith(u' ') ||
                        std::any_of(text.begin(), text.end(), [](QChar c) { return kSpecial.contains(c); });
    if (!quoted) {
        line += text.toUtf8();
        return;
    }
    QString doubled = text;
    doubled.replace(u'"', u"\"\""_s);
    line += '"' + doubled.toUtf8() + '"';
}

QByteArray CsvLines(const RowData& rows, size_t first, size_t end) {
    QByteArray lines;
    for (size_t row = first; row < end; ++row) {
        for (size_t column = 0; column < rows.columns.size(); ++column) {
            if (column > 0)
                lines += ',';
            AddCell(lines, Written(rows.Cell(row, column)));
        }
        lines += "\r\n";
    }
    return lines;
}

QByteArray CsvHead(const RowData& rows) {
    QByteArray head = "\xEF\xBB\xBF";
    for (size_t column = 0; column < rows.columns.size(); ++column) {
        if (column > 0)
            head += ',';
        AddCell(head, Written(rows.columns[column]));
    }
    return head + "\r\n";
}

} // namespace

CsvJob::CsvJob(const RowData& rows, const QString& file)
    : ReportJob(static_cast<int>(rows.RowCount() / kRowsAStep) + 1)
    , mRows(rows)
    , mFile(file) {}

bool CsvJob::Step() {
    if (!mFile.IsGood())
        return End(mFile.Problem());
    QByteArray content = Done() == 0 ? CsvHead(mRows) : QByteArray();
    const size_t first = static_cast<size_t>(Done()) * kRowsAStep;
    content += CsvLines(mRows, first, std::min(first + kRowsAStep, mRows.RowCount()));
    if (mFile.Device().write(content) != content.size())
        return End(mFile.Problem());
    return StepIsDone() || End(mFile.End());
}
