#include "tour/Department.h"

#include "toolkit/ProgramFiles.h"

#include <QFile>

using namespace Qt::StringLiterals;

void ProvideDepartment() {
    QFile settings(ProgramDirectory() + u"/tarvenaux.ini"_s);
    if (settings.size() == 0 && settings.open(QIODevice::WriteOnly))
        settings.write("DeptCode = HC\nDeptDesc = HEMODIALYSIS\n");
}
