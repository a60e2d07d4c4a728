#include "driver/Department.h"

#include "toolkit/ProgramFiles.h"

#include <QFile>

using namespace Qt::StringLiterals;

QString ProvideDepartment() {
    QFile settings(ProgramDirectory() + u"/tarvenaux.ini"_s);
    if (settings.size() != 0)
        return {};
    QFile department(u":/driver/tarvenaux.ini"_s);
    if (!department.open(QIODevice::ReadOnly))
        return u"cannot read %1: %2"_s.arg(department.fileName(), department.errorString());
    const QByteArray text = department.readAll();
    if (!settings.open(QIODevice::WriteOnly) || settings.write(text) != text.size() || !settings.flush())
        return u"cannot write %1: %2"_s.arg(settings.fileName(), settings.errorString());
    return {};
}
