#pragma once

#include "gateway/Value.h"
#include "report/template/ReportTemplate.h"

#include <QString>

#include <optional>

/// A parameter of an open report.
class ParameterField {
  public:
    explicit ParameterField(const ReportParameter& parameter);

    const QString& Name() const { return mName; }
    FieldValueType ValueType() const { return mType; }
    /// Whether its values are dates, with or without a time.
    bool TakesDates() const { return mType == FieldValueType::Date || mType == FieldValueType::DateTime; }
    /// The question put to the clerk for a value that nobody gave.
    const QString& Prompt() const { return mPrompt; }

    /// A field holds one value: a value added to one that has a value takes its place.
    void AddCurrentValue(const Value& value) { SetCurrentValue(value); }
    void SetCurrentValue(const Value& value) { mValue = value; }
    /// The value given, else the template's own, else nothing.
    const std::optional<Value>& CurrentValue() const { return mValue; }

  private:
    QString mName;
    FieldValueType mType;
    QString mPrompt;
    std::optional<Value> mValue;
};
