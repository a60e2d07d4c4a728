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

bool Holds(const QSize& workArea, const QSize& needed) {
    return needed.width() <= workArea.width() && needed.height() <= workArea.height();
}

/// The largest size at which the work area holds what needs so many pixels at 100 %.
int LargestFor(const QSize& needed, const QSize& workArea) {
    int largest = DisplaySize::kPercents.front();
    for (const int percent : DisplaySize::kPercents) {
        if (Holds(workArea, needed * percent / 100))
            largest = percent;
    }
    return largest;
}

int gDrawn = DisplaySize::kAutomatic;

} // namespace

int DisplaySize::Chosen() {
    const int kept = UserSettings().value(kDisplaySizeSetting).toInt();
    return std::ranges::find(kPercents, kept) != kPercents.end() ? kept : kAutomatic;
}

void DisplaySize::Choose(int percent) {
    UserSettings().setValue(kDisplaySizeSetting, percent);
}

int DisplaySize::FittingIn(const QSize& workArea) {
    return LargestFor(kLargestScreen, workArea);
}

int DisplaySize::HeldBy(const QSize& workArea, int chosen) {
    return qMin(chosen, LargestFor(kLeastArea, workArea));
}

int DisplaySize::Drawn() {
    return gDrawn;
}

Seam<QSize(char* program)>& DisplaySize::WorkAreaSeam() {
    static Seam<QSize(char* program)> seam(WorkArea);
    return seam;
}

void DisplaySize::Apply(char* program) {
    const int chosen = Chosen();
    const QSize workArea = WorkAreaSeam()(program);
    gDrawn = chosen == kAutomatic ? FittingIn(workArea) : HeldBy(workArea, chosen);
    if (qEnvironmentVariableIsSet(kScaleVariable))
        DesktopsScale() = qgetenv(kScaleVariable);
    qputenv(kScaleVariable, QByteArray::number(DesktopsFactor() * gDrawn / 100));
}

void DisplaySize::LeaveEnvironment() {
    if (DesktopsScale())
        qputenv(kScaleVariable, *DesktopsScale());
    else
        qunsetenv(kScaleVariable);
}
