#include "desk/XServer.h"

using namespace Qt::StringLiterals;

XServer::XServer(QSize screen)
    : mDisplay(qEnvironmentVariable("TARVEN_DESK_DISPLAY")) {
    if (!mDisplay.isEmpty())
        return;
    const QString size = u"%1x%2x24"_s.arg(screen.width()).arg(screen.height());
    // It looks for a free display by itself and writes its number when it is ready. A key that is held
    // repeats for nobody, and the screen never goes dark.
    mServer.emplace(u"Xvfb"_s,
                    QStringList{u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, size, u"-dpi"_s, u"96"_s,
                                u"-nolisten"_s, u"tcp"_s, u"-noreset"_s, u"-r"_s, u"-s"_s, u"0"_s},
                    QProcessEnvironment());
    mDisplay = u':' + QString::fromLatin1(mServer->ReadLine());
}
