#include "toolkit/DisplaySize.h"

#include "toolkit/UserSettings.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString kDisplaySizeSetting = u"DisplaySize"_s;
/// The toolkit reads its scale from there, and from nowhere else.
constexpr auto kScaleVariable = "QT_SCALE_FACTOR";

/// What the desktop's own scaling put there; null for nothing.
std::optional<QByteArray>& DesktopsScale() {
    static std::optional<QByteArray> scale;
    return scale;
}

double DesktopsFactor() {
    bool isNumber = false;
    const double factor = qgetenv(kScaleVariable).toDouble(&isNumber);
    return isNumber && factor > 0 ? factor : 1;
}

/// What the desktop leaves to windows, in the pixels that it scales. Only an application object can ask, and
/// the program's own has its scale when it is made.
QSize WorkArea(char* program) {
    int argumentCount = 1;
    std::array<char*, 2> arguments = {program, nullptr};
    const QGuiApplication asking(argumentCount, arguments.data());
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableSize() : QSize();
}

bool Fits(int percent, const QSize& workArea) {
    const QSize needed = DisplaySize::kLargestScreen * percent / 100;
    return needed.width() <= workArea.width() && needed.height() <= workArea.height();
}

} // namespace

int DisplaySize::Chosen() {
    const int kept = UserSettings().value(kDisplaySizeSetting).toInt();
    return std::ranges::find(kPercents, kept) != kPercents.end() ? kept : kAutomatic;
}

void DisplaySize::Choose(int percent) {
    UserSettings().setValue(kDisplaySizeSetting, percent);
}

int DisplaySize::FittingIn(const QSize& workArea) {
    int fitting = kPercents.front();
    for (const int percent : kPercents) {
        if (Fits(percent, workArea))
            fitting = percent;
    }
    return fitting;
}

void DisplaySize::Apply(char* program) {
    const int chosen = Chosen();
    const int percent = chosen == kAutomatic ? FittingIn(WorkArea(program)) : chosen;
    if (qEnvironmentVariableIsSet(kScaleVariable))
        DesktopsScale() = qgetenv(kScaleVariable);
    qputenv(kScaleVariable, QByteArray::number(DesktopsFactor() * percent / 100));
}

void DisplaySize::LeaveEnvironment() {
    if (DesktopsScale())
        qputenv(kScaleVariable, *DesktopsScale());
    else
        qunsetenv(kScaleVariable);
}
