#include "reporter/Describe.h"

#include "report/Report.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString TypeOf(FieldValueType type) {
    switch (type) {
    case FieldValueType::Number:
        return u"number"_s;
    case FieldValueType::Date:
        return u"date"_s;
    case FieldValueType::DateTime:
        return u"datetime"_s;
    default:
        return u"text"_s;
    }
}

QString OwnValueOf(const ParameterField& field) {
    return field.CurrentValue() ? u"=%1  "_s.arg(field.CurrentValue()->ToText()) : QString();
}

} // namespace

QString DescribeParameters(Report& report) {
    qsizetype widest = 0;
    for (const ParameterField& field : report.ParameterFields())
        widest = std::max(widest, field.Name().size());
    QString text;
    for (const ParameterField& field : report.ParameterFields())
        text += u"%1  %2  %3%4\n"_s.arg(field.Name().leftJustified(widest),
                                        TypeOf(field.ValueType()).leftJustified(8), OwnValueOf(field),
                                        field.Prompt());
    return text;
}
