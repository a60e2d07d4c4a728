#include "report/template/TemplateError.h"

#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

RunTimeError TemplateError(const QString& file, int line, const QString& what) {
    return ReportError(u"%1, line %2: %3"_s.arg(file, QString::number(line), what));
}

RunTimeError ReportError(const QString& what) {
    return RunTimeError(kReportFailure, what);
}
