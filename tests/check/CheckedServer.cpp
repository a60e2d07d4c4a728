#include "check/CheckedServer.h"

#include "check/questions.h"
#include "support/tds/EngineSession.h"
#include "text/Clock.h"

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

QString TypeOf(TypeFamily family) {
    switch (family) {
    case TypeFamily::Whole:
        return u"int"_s;
    case TypeFamily::Fixed:
        return u"money"_s;
    case TypeFamily::Float:
        return u"float"_s;
    case TypeFamily::Date:
        return u"datetime"_s;
    default:
        return u"varchar"_s;
    }
}

bool LiesIn(const QString& key, const QString& database) {
    return key.startsWith(database.toLower() + u'.');
}

Value Text(const QString& text) {
    return Value(text);
}

CatalogAnswer SessionAnswer() {
    const qint64 zone = QDateTime::currentDateTime().offsetFromUtc() / 60;
    return {{u"Language"_s, u"DateOrder"_s, u"Isolation"_s, u"Login"_s, u"Clock"_s, u"Zone"_s},
            {{Text(u"us_english"_s), Text(u"mdy"_s), Value(qint64(2)), Text(u"NURSE"_s), Value(Now()),
              Value(zone)}}};
}

CatalogAnswer DatabaseAnswer() {
    return {{u"CollationName"_s, u"Chaining"_s, u"ReadOnly"_s, u"Owner"_s},
            {{Text(u"SQL_Latin1_General_CP1_CI_AS"_s), Value(qint64(1)), Value(qint64(0)), Text(u"0105"_s)}}};
}

CatalogAnswer WholesAnswer(const QStringList& rights) {
    CatalogAnswer answer{{u"Permission"_s}, {}};
    for (const QString& right : rights)
        answer.rows.push_back({Text(right)});
    return answer;
}

CatalogAnswer ParametersAnswer(const Needs& needs, const QString& database) {
    CatalogAnswer answer{{u"ObjectName"_s, u"ParameterName"_s, u"TypeName"_s}, {}};
    for (const auto& [key, procedure] : needs.procedures.asKeyValueRange()) {
        if (!LiesIn(key, database))
            continue;
        const Value name = Text(procedure.name.section(u'.', -1));
        if (procedure.parameters.empty())
            answer.rows.push_back({name, Value(), Value()});
        for (const NeededColumn& parameter : procedure.parameters)
            answer.rows.push_back({name, Text(parameter.name), Text(TypeOf(parameter.family))});
    }
    return answer;
}

CatalogAnswer AnswersAnswer(const Needs& needs, const QString& database) {
    CatalogAnswer answer{{u"ObjectName"_s, u"ColumnName"_s, u"Reason"_s}, {}};
    for (const auto& [key, procedure] : needs.procedures.asKeyValueRange()) {
        for (const QString& column : procedure.answers) {
            if (LiesIn(key, database))
                answer.rows.push_back({Text(procedure.name.section(u'.', -1)), Text(column), Value()});
        }
    }
    return answer;
}

CatalogAnswer ColumnsAnswer(const Needs& needs, const QString& database) {
    CatalogAnswer answer{{u"ObjectName"_s, u"ColumnName"_s, u"TypeName"_s}, {}};
    for (const auto& [key, table] : needs.tables.asKeyValueRange()) {
        for (const NeededColumn& column : table.columns) {
            if (LiesIn(key, database))
                answer.rows.push_back(
                    {Text(table.name.section(u'.', -1)), Text(column.name), Text(TypeOf(column.family))});
        }
    }
    return answer;
}

CatalogAnswer PermissionsAnswer(const Needs& needs, const QString& database) {
    CatalogAnswer answer{{u"ObjectName"_s, u"ColumnName"_s, u"Permission"_s, u"Standby"_s}, {}};
    for (const NamedRight& right : needs.rights.workstation.keys()) {
        const QString object = right.section(u' ', 1, 1);
        if (LiesIn(object, database))
            answer.rows.push_back({Text(object.section(u'.', 1)),
                                   Text(right.section(u'(', 1).chopped(right.contains(u'(') ? 1 : 0)),
                                   Text(right.section(u' ', 0, 0)), Value(qint64(0))});
    }
    return answer;
}

void Say(const CatalogAnswer& told, TdsAnswer& answer) {
    RowData rows;
    rows.columns.assign(told.columns.begin(), told.columns.end());
    for (const std::vector<Value>& row : told.rows) {
        for (const Value& cell : row)
            rows.Add(cell);
    }
    AnswerWithRows(answer, rows);
}

} // namespace

size_t CatalogAnswer::RowOf(const QString& column, const QString& text) const {
    const auto at = size_t(columns.indexOf(column));
    const auto row = std::ranges::find_if(rows, [&](const std::vector<Value>& cells) {
        return cells[at].TextOrEmpty().compare(text, Qt::CaseInsensitive) == 0;
    });
    EXPECT_NE(row, rows.end()) << text.toStdString();
    return size_t(row - rows.begin());
}

void CatalogAnswer::Remove(const QString& column, const QString& text) {
    rows.erase(rows.begin() + std::ptrdiff_t(RowOf(column, text)));
}

CheckedServer::CheckedServer(const QString& hospital, const Needs& needs, Change change)
    : mNeeds(needs)
    , mChange(std::move(change))
    , mHospital(EngineSessions(hospital))
    , mResponder([this](const TdsLogin& login) { return NewSession(login); }) {}

void CheckedServer::Refuse(const QString& text, int number, const QString& message) {
    mRefusal = {text, number, message};
}

void CheckedServer::Delay(const QString& text, int milliseconds) {
    mSlow = text;
    mDelay = std::chrono::milliseconds(milliseconds);
}

TdsResponder::Handler CheckedServer::NewSession(const TdsLogin& login) {
    static const QRegularExpression use(u"^USE \\[(.*)\\]$"_s);
    return [this, hospital = mHospital(login), database = std::make_shared<QString>()](const QString& batch,
                                                                                       TdsAnswer& answer) {
        if (const auto match = use.match(batch); match.hasMatch())
            *database = match.captured(1);
        if (!mSlow.isEmpty() && batch.contains(mSlow))
            std::this_thread::sleep_for(mDelay);
        if (!mRefusal.text.isEmpty() && batch.contains(mRefusal.text))
            answer.Error(mRefusal.number, mRefusal.message);
        else if (!AnswerAboutItself(batch, *database, answer))
            hospital(batch, answer);
    };
}

bool CheckedServer::AnswerAboutItself(const QString& batch, const QString& database, TdsAnswer& answer) {
    CatalogAnswer told = AnswerTo(batch, database);
    if (told.columns.isEmpty())
        return false;
    if (mChange)
        mChange(batch, database, told);
    Say(told, answer);
    return true;
}

CatalogAnswer CheckedServer::AnswerTo(const QString& question, const QString& database) const {
    if (question == SessionQuestion())
        return SessionAnswer();
    if (question == DatabaseQuestion())
        return DatabaseAnswer();
    if (question == ServerPermissionsQuestion())
        return WholesAnswer({u"CONNECT SQL"_s, u"VIEW ANY DATABASE"_s});
    if (question == DatabasePermissionsQuestion())
        return WholesAnswer({u"CONNECT"_s, u"VIEW ANY COLUMN MASTER KEY DEFINITION"_s});
    if (question == ParametersQuestion())
        return ParametersAnswer(mNeeds, database);
    if (question == AnswersQuestion())
        return AnswersAnswer(mNeeds, database);
    if (question == ColumnsQuestion())
        return ColumnsAnswer(mNeeds, database);
    if (question == PermissionsQuestion())
        return PermissionsAnswer(mNeeds, database);
    return {};
}
