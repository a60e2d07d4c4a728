#include "tour/Album.h"

#include "driver/Screenshot.h"

using namespace Qt::StringLiterals;

void Album::Take(const QString& name) {
    SaveScreenshot(mDriver, u"%1/%2-%3.png"_s.arg(mFolder).arg(++mCount, 2, 10, QChar(u'0')).arg(name));
}
