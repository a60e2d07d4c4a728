#include "report/ParameterField.h"

ParameterField::ParameterField(const ReportParameter& parameter)
    : mName(parameter.name)
    , mType(parameter.type)
    , mPrompt(parameter.prompt)
    , mValue(parameter.value) {}
