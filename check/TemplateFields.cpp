#include "check/TemplateFields.h"

#include "report/pages/Code128.h"
#include "text/RunTimeError.h"
#include "tsql/CommandParser.h"

using namespace Qt::StringLiterals;

namespace {

/// The query's text as it would be sent, with empty values.
QString TextOf(const ReportQuery& query, const ReportTemplate& read) {
    QString text;
    for (const QueryPiece& piece : query.pieces) {
        if (piece.kind == QueryPiece::Kind::Text)
            text += piece.text;
        else
            text += piece.kind == QueryPiece::Kind::Table ? read.tables[piece.number].location : u"''"_s;
    }
    return text;
}

/// The columns that a query answers.
QStringList ColumnsOf(const ReportQuery& query, const ReportTemplate& read, const Needs& needs) {
    const QString text = TextOf(query, read);
    TokenCursor cursor(text);
    const Command command = CommandParser(cursor).ParseCommand();
    if (const auto* call = std::get_if<ProcedureCall>(&command)) {
        const QString key = (call->procedure.database + u'.' + call->procedure.object).toLower();
        return needs.procedures.value(key).answers;
    }
    const auto* statement = std::get_if<Statement>(&command);
    const auto* select = statement ? std::get_if<SelectStatement>(statement) : nullptr;
    return select ? AnswersOf(select->query, needs) : QStringList();
}

/// Goes through what a template shows.
class FieldsReader {
  public:
    FieldsReader(const ReportTemplate& read, const Needs& needs)
        : mRead(read) {
        for (const ReportQuery& query : read.queries)
            TakeQuery(query, needs);
    }

    QStringList Problems() {
        Look(mRead.title);
        for (const auto* band : {&mRead.pageHeader, &mRead.pageFooter, &mRead.reportHeader,
                                 &mRead.reportFooter, &mRead.detail})
            Look(*band);
        for (const ReportGroup& group : mRead.groups) {
            Require(group.by, {}, group.line);
            Look(group.header);
            Look(group.footer);
        }
        return mProblems;
    }

  private:
    void TakeQuery(const ReportQuery& query, const Needs& needs) {
        QStringList columns;
        try {
            columns = ColumnsOf(query, mRead, needs);
            if (columns.isEmpty())
                mProblems << u"line %1: the query answers nothing that is known"_s.arg(query.line);
        } catch (const RunTimeError& error) {
            mProblems << u"line %1: %2"_s.arg(query.line).arg(error.Description());
        }
        mColumns.push_back(columns);
    }

    /// Nothing is told of the columns of a query that could not be made out.
    void Require(const QString& column, std::optional<size_t> query, int line) {
        const QStringList& columns = mColumns[query.value_or(0)];
        if (!column.isEmpty() && !columns.isEmpty() && !columns.contains(column, Qt::CaseInsensitive))
            mProblems << u"line %1: there is no column %2"_s.arg(line).arg(column);
    }

    /// What the words alone cannot be is not to be with the values among them either.
    void LookAtBars(const ReportCell& cell) {
        QString words;
        for (const TextPiece& piece : cell.text)
            words += piece.kind == TextPiece::Kind::Literal ? piece.text : QString();
        words = words.trimmed();
        if (!words.isEmpty() && !ModuleIn(cell.box.width(), Code128(words)))
            mProblems << u"line %1: \"%2\" cannot be bars there and would stand in words"_s.arg(cell.line)
                             .arg(words);
    }

    void Look(const ReportCell& cell) {
        if (cell.isBarcode)
            LookAtBars(cell);
        for (const TextPiece& piece : cell.text) {
            if (piece.kind == TextPiece::Kind::Field || piece.kind == TextPiece::Kind::Sum)
                Require(piece.text, piece.query, cell.line);
        }
    }

    void Look(const ReportChart& chart) {
        for (const QString& column : {chart.by, chart.label, chart.only})
            Require(column, {}, chart.line);
        for (const ChartSeries& series : chart.series)
            Require(series.value, {}, series.line);
    }

    void Look(const std::optional<ReportBand>& band) {
        if (!band)
            return;
        for (const ReportCell& cell : band->cells)
            Look(cell);
        for (const ReportChart& chart : band->charts)
            Look(chart);
    }

    const ReportTemplate& mRead;
    std::vector<QStringList> mColumns;
    QStringList mProblems;
};

} // namespace

QStringList ProblemsOfFields(const ReportTemplate& read, const Needs& needs) {
    return FieldsReader(read, needs).Problems();
}
