#include "toolkit/UserSettings.h"

using namespace Qt::StringLiterals;

QSettings UserSettings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"TARVEN"_s, u"Hemodialysis"_s);
}
