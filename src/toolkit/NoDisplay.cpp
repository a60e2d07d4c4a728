#include "toolkit/NoDisplay.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kNoDisplay = 2;

/// The toolkit tells at length which of its plugins it has tried; that is of no use to whoever has no
/// display.
bool IsOfPlugins(const QMessageLogContext& context) {
    return context.category && std::strcmp(context.category, "qt.qpa.plugin") == 0;
}

void Hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const bool hasNoDisplay = type == QtFatalMsg && QCoreApplication::startingUp();
    if (hasNoDisplay) {
        std::fputs("There is no display that a window could be opened on.\n", stderr);
        // Nothing was begun that would have to be left in order.
        std::_Exit(kNoDisplay);
    }
    if (!QCoreApplication::startingUp() || !IsOfPlugins(context))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

} // namespace

void EndInWordsWithoutDisplay() {
    qInstallMessageHandler(Hear);
}
