#include "reporting/Report.h"

#include "gateway/CommandGateway.h"
#include "gateway/SqlText.h"
#include "reporting/TemplateError.h"
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

Report::Report(ReportTemplate report)
    : mTemplate(std::move(report)) {
    for (const ReportTableEntry& table : mTemplate.tables)
        mTables.emplace_back(table.name, table.location);
    for (const ReportParameter& parameter : mTemplate.parameters)
        mFields.emplace_back(parameter);
}

std::shared_ptr<const ReportDocument> Report::Document() {
    if (mDocument)
        return mDocument;
    const auto forget = qScopeGuard([this] {
        for (ReportTable& table : mTables)
            table.ForgetLogOn();
    });
    mDocument = std::make_shared<const ReportDocument>(mTemplate, Fetch());
    return mDocument;
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

const ReportLogOn& Report::LogOn() const {
    for (const ReportTable& table : mTables) {
        if (!table.HasLogOn())
            throw ReportError(u"The report's table \"%1\" is not logged on."_s.arg(table.Name()));
    }
    // Every location names its database, so one connection serves all tables of the report.
    return mTables.front().LogOn();
}

ReportData Report::Fetch() const {
    ReportData data;
    data.now = Now();
    for (const ParameterField& field : mFields)
        data.parameters.push_back(ValueOf(field));
    const ReportLogOn& logOn = LogOn();
    // A copy of its own: the logon's texts are overwritten afterwards.
    data.user = QString(logOn.user.constData(), logOn.user.size());
    const std::unique_ptr<CommandGateway> gateway = ConnectReport(logOn);
    for (const ReportQuery& query : mTemplate.queries) {
        const RowSet rows = gateway->Execute(ComposeQuery(query));
        if (rows.State() == RowSet::Status::Closed)
            throw TemplateError(mTemplate.file, query.line, u"The query gives no rows at all."_s);
        data.queries.push_back(rows.Data());
    }
    return data;
}
