#include "reporter/MakeReport.h"

#include "report/output/CsvJob.h"
#include "report/output/PdfJob.h"
#include "report/ReportEngine.h"
#include "text/IsDate.h"
#include "text/IsNumeric.h"
#include "text/RunTimeError.h"
#include "toolkit/ProgramFiles.h"

#include <QFileInfo>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// A value as the report's type has it.
Value ValueOf(const ParameterField& field, const QString& text) {
    const auto refuse = [&field, &text](const QString& wanted) {
        throw ArgumentError(u"The parameter %1 is \"%2\" and must be %3."_s.arg(field.Name(), text, wanted));
    };
    if (field.TakesDates()) {
        if (!IsDate(text))
            refuse(u"a date such as 2026-12-31 or 12/31/2026"_s);
        return Value(Value(text).ToDate());
    }
    if (field.ValueType() != FieldValueType::Number)
        return Value(text);
    if (!IsNumeric(text))
        refuse(u"a number"_s);
    return Value(Value(text).ToDouble());
}

class Filling {
  public:
    explicit Filling(std::vector<ParameterField>& fields)
        : mFields(fields) {}

    void Take(const GivenValue& given) {
        ParameterField& field = given.name.isEmpty() ? Next() : Named(given.name);
        if (!mFilled.insert(&field).second)
            throw ArgumentError(u"The parameter %1 is given twice."_s.arg(field.Name()));
        field.SetCurrentValue(ValueOf(field, given.text));
    }

    void RequireWhole() const {
        for (const ParameterField& field : mFields) {
            if (!field.CurrentValue())
                throw ArgumentError(
                    u"The parameter %1 has no value (%2)."_s.arg(field.Name(), field.Prompt()));
        }
    }

  private:
    ParameterField& Named(const QString& name) {
        const auto found = std::find_if(mFields.begin(), mFields.end(), [&name](const ParameterField& field) {
            return field.Name().compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == mFields.end())
            throw ArgumentError(u"The report has no parameter %1; --describe lists them."_s.arg(name));
        return *found;
    }

    ParameterField& Next() {
        if (mNext == mFields.size())
            throw ArgumentError(u"The report has %1 parameters and is given more."_s.arg(mFields.size()));
        return mFields[mNext++];
    }

    std::vector<ParameterField>& mFields;
    std::set<const ParameterField*> mFilled;
    size_t mNext = 0;
};

QString TitleOf(const ReportDocument& document, const Report& report) {
    return document.Title().isEmpty() ? QFileInfo(report.File()).completeBaseName() : document.Title();
}

} // namespace

QString TemplateFile(const QString& name) {
    const QString path = ResolveFile(name);
    return QFileInfo::exists(path) ? path : ResolveFile(ProgramDirectory() + u"/Reports/"_s + name);
}

std::shared_ptr<Report> OpenTemplate(const QString& name) {
    return ReportEngine().OpenReport(TemplateFile(name), kOpenOption);
}

void Fill(Report& report, const std::vector<GivenValue>& values) {
    Filling filling(report.ParameterFields());
    for (const GivenValue& given : values)
        filling.Take(given);
    filling.RequireWhole();
}

void PointAt(Report& report, const QString& database) {
    for (ReportTable& table : report.Tables()) {
        const QString location = table.Location();
        try {
            table.SetLocation(database + location.mid(location.indexOf(u'.')));
        } catch (const RunTimeError&) {
            throw ArgumentError(u"\"%1\" is no name of a database."_s.arg(database));
        }
    }
}

void LogTablesOn(Report& report, const ReportLogOn& logOn) {
    for (ReportTable& table : report.Tables())
        table.SetLogOnInfo(logOn.server, logOn.database, logOn.user, logOn.password);
}

void RequirePlaceFor(const QString& file) {
    const QFileInfo place(file);
    if (place.isDir())
        throw FileError(file, u"it is a folder"_s);
    const QFileInfo folder(place.absolutePath());
    if (!folder.isDir())
        throw FileError(file, u"there is no folder %1"_s.arg(folder.filePath()));
    if (!folder.isWritable())
        throw FileError(file, u"the folder %1 cannot be written to"_s.arg(folder.filePath()));
}

void WriteReport(Report& report, const QString& file) {
    const auto document = report.Document();
    const bool isRows = file.endsWith(u".csv"_s, Qt::CaseInsensitive);
    const QString failure = isRows ? CsvJob(document->Rows(), file).Finish()
                                   : PdfJob(*document, TitleOf(*document, report), file).Finish();
    if (!failure.isEmpty())
        throw FileError(file, failure);
}
