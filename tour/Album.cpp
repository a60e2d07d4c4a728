#include "tour/Album.h"

#include "tour/Driver.h"
#include "tour/Screenshot.h"

#include <QImage>

#include <cstdio>

using namespace Qt::StringLiterals;

void Album::Take(const QString& name) {
    mDriver.OnScreen([&] {
        const QString file = u"%1/%2-%3.png"_s.arg(mFolder).arg(++mCount, 2, 10, QChar(u'0')).arg(name);
        if (!TakeScreenshot().save(file))
            throw DriverError(u"cannot write "_s + file);
        std::printf("  %s\n", qPrintable(file));
    });
}
