#include "toolkit/BeginAnew.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdlib>

// A process cannot take another's place here: the next one begins beside this one, which ends.
void BeginAnew() {
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (QProcess::startDetached(QCoreApplication::applicationFilePath(), words))
        std::_Exit(EXIT_SUCCESS);
}
