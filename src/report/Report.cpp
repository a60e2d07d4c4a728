#include "report/Report.h"

#include "gateway/SqlText.h"
#include "report/template/TemplateError.h"
#include "text/Clock.h"
#include "text/RunTimeError.h"

#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

const Value& ValueOf(const ParameterField& field) {
    if (!field.CurrentValue())
        throw ReportError(u"The parameter \"%1\" has no value."_s.arg(field.Name()));
    return *field.CurrentValue();
}

} // namespace

Report::Report(std::shared_ptr<const ReportTemplate> report, QString path)
    : mPath(std::move(path))
    , mTemplate(std::move(report)) {
    for (const ReportTableEntry& table : mTemplate->tables)
        mTables.emplace_back(table.name, table.location);
    for (const ReportParameter& parameter : mTemplate->parameters)
        mFields.emplace_back(parameter);
}

std::shared_ptr<const ReportDocument> Report::Document() {
    if (!mDocument)
        mDocument = ReportFetch(Order()).Run();
    return mDocument;
}

ReportOrder Report::Order() {
    const auto forget = qScopeGuard([this] {
        for (ReportTable& table : mTables)
            table.ForgetLogOn();
    });
    ReportOrder order;
    order.report = mTemplate;
    order.values.now = Now();
    for (const ParameterField& field : mFields)
        order.values.parameters.push_back(ValueOf(field));
    for (const ReportQuery& query : mTemplate->queries)
        order.commands << ComposeQuery(query);
    order.logOn = TakeLogOn();
    // A copy of its own: the logon's texts are overwritten afterwards.
    order.values.user = QString(order.logOn.user.constData(), order.logOn.user.size());
    return order;
}

QString Report::ComposeQuery(const ReportQuery& query) const {
    QString command;
    for (const QueryPiece& piece : query.pieces) {
        if (piece.kind == QueryPiece::Kind::Text)
            command += piece.text;
        else if (piece.kind == QueryPiece::Kind::Table)
            command += mTables[piece.number].Location();
        else
            command += SqlLiteral(ValueOf(mFields[piece.number]));
    }
    return command;
}

ReportLogOn Report::TakeLogOn() {
    for (const ReportTable& table : mTables) {
        if (!table.HasLogOn())
            throw ReportError(u"The report's table \"%1\" is not logged on."_s.arg(table.Name()));
    }
    // Every location names its database, so one connection serves all tables of the report.
    return mTables.front().TakeLogOn();
}
