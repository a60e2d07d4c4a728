#include "report/ReportTable.h"

#include "report/template/TemplateError.h"
#include "report/template/TemplateReader.h"
#include "text/RunTimeError.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A text of our own, which can be overwritten without touching the caller's.
QString DeepCopy(const QString& text) {
    return QString(text.constData(), text.size());
}

} // namespace

ReportTable::ReportTable(const QString& name, const QString& location)
    : mName(name)
    , mLocation(location) {}

ReportTable::~ReportTable() {
    ForgetLogOn();
}

void ReportTable::SetLocation(const QString& location) {
    if (!IsTableLocation(location))
        throw ReportError(
            u"\"%1\" is no location of a table; it must be of the form Database.dbo.Table."_s.arg(location));
    mLocation = location;
}

void ReportTable::SetLogOnInfo(const QString& server, const QString& database, const QString& user,
                               const QString& password) {
    ForgetLogOn();
    mLogOn = {DeepCopy(server), DeepCopy(database), DeepCopy(user), DeepCopy(password)};
    mHasLogOn = true;
}

ReportLogOn ReportTable::TakeLogOn() {
    mHasLogOn = false;
    return std::exchange(mLogOn, {});
}

void ReportTable::ForgetLogOn() {
    mLogOn.Wipe();
    mHasLogOn = false;
}
