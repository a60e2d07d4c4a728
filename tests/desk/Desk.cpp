#include "desk/Desk.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kPatience(20000);
constexpr std::chrono::milliseconds kPause(5);
constexpr int kMostTabs = 40;
constexpr QSize kScreen(1280, 1024);

/// Asks until there is an answer. Raises std::runtime_error with `what` when the patience is at its end.
template <class Answer> auto Await(Answer answer, const QString& what) {
    QElapsedTimer waited;
    waited.start();
    for (;;) {
        if (const auto found = answer())
            return *found;
        if (waited.hasExpired(kPatience.count()))
            throw std::runtime_error("waited in vain for " + what.toStdString());
        std::this_thread::sleep_for(kPause);
    }
}

QString CaseName() {
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    QString name = QString::fromLatin1(info->test_suite_name()) + u'.' + QString::fromLatin1(info->name());
    return name.replace(u'/', u'-');
}

} // namespace

void Desk::TearDown() {
    if (HasFailure() || qEnvironmentVariableIsSet("TARVEN_DESK_KEEP"))
        SavePictures();
}

void Desk::SavePictures() {
    const QDir folder(u"" TARVEN_BUILD_DIR "/desk/"_s + CaseName());
    QDir(folder).removeRecursively();
    folder.mkpath(u"."_s);
    if (mSeat)
        Picture(u"end"_s);
    int number = 0;
    for (const auto& [name, picture] : mPictures)
        picture.save(folder.filePath(u"%1-%2.png"_s.arg(++number, 2, 10, QChar(u'0')).arg(name)));
    std::printf("The pictures are in %s\n", qPrintable(folder.path()));
    if (mProgram)
        std::printf("%s", mProgram->Process().readAllStandardError().constData());
}

QProcessEnvironment Desk::Settings() const {
    QProcessEnvironment settings;
    settings.insert(u"DISPLAY"_s, mServer->Display());
    for (const auto& name :
         {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_CACHE_HOME"_s, u"XDG_RUNTIME_DIR"_s})
        settings.insert(name, mFolder.Path());
    // No services of a desktop are looked for or started.
    settings.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
    settings.insert(u"NO_AT_BRIDGE"_s, u"1"_s);
    settings.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    settings.insert(mMoreSettings);
    return settings;
}

void Desk::StartProgram(WindowManager manager) {
    StartProgramOn(kScreen, manager);
}

void Desk::StartProgramOn(QSize screen, WindowManager manager, const QProcessEnvironment& desktop) {
    mServer.emplace(screen);
    mSeat.emplace(mServer->Display());
    mManager.emplace(manager, Settings());
    mHasFrames = manager != WindowManager::None;
    if (mHasFrames)
        Await([this] { return mSeat->WindowManagerAnswers() ? std::optional(true) : std::nullopt; },
              u"the window manager"_s);
    // Out of the way, where the pointer lies on nothing.
    mSeat->PointAt(QPoint(screen.width() - 1, screen.height() - 1));
    QProcessEnvironment settings = Settings();
    settings.insert(desktop);
    mProgram.emplace(u"" TARVEN_BUILD_DIR "/desk-child"_s, QStringList{mFolder.Path()}, settings);
    ExpectScreen(u"SignOnDialog"_s);
}

void Desk::StartSignedOn(WindowManager manager) {
    StartProgram(manager);
    SignOn();
}

void Desk::SignOn() {
    ExpectFocus(u"txtUser"_s);
    Key(u"NURSE{Tab}nurse{Return}"_s);
    ExpectNoScreen(u"SignOnDialog"_s);
    ExpectScreen(u"frmMain"_s);
}

int Desk::PressToEnd(const QString& keys) {
    mSeat->Press(keys);
    if (!mProgram->Process().waitForFinished(int(kPatience.count())))
        throw std::runtime_error("the program did not end");
    return mProgram->Process().exitCode();
}

void Desk::Key(const QString& keys) {
    for (const QString& key : SingleKeys(keys)) {
        Burst(key);
        Now();
    }
}

void Desk::Burst(const QString& keys) {
    mKeysSent += mSeat->Press(keys);
    WaitFor([this](const State& state) { return state.keysTaken >= mKeysSent; },
            u"the program to get the keys "_s + keys);
}

void Desk::KeyToBeginAnew(const QString& key) {
    const quint64 window = WindowOf(u"SignOnDialog"_s).id;
    mSeat->Press(key);
    // Nothing is asked meanwhile: a process that goes takes the question with it.
    Await([&] { return mSeat->FrameOf(window).isEmpty() ? std::optional(true) : std::nullopt; },
          u"the program to go"_s);
    // The one that begins counts from its own first key.
    mKeysSent = 0;
    ExpectScreen(u"SignOnDialog"_s);
}

void Desk::TabTo(const QString& control) {
    for (int i = 0; i < kMostTabs; ++i) {
        if (Now().focus == control)
            return;
        Key(u"{Tab}"_s);
    }
    throw std::runtime_error("the Tab key does not lead to " + control.toStdString());
}

void Desk::Go(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        Take(step);
        ExpectScreen(QString::fromLatin1(step.screen));
        Now();
    }
}

void Desk::Take(const Step& step) {
    if (step.by == By::Class)
        return OpenByClass(QString::fromLatin1(step.screen));
    if (step.by == By::DoubleClick)
        return DoubleClick(QString::fromLatin1(step.at));
    if (step.at)
        TabTo(QString::fromLatin1(step.at));
    Key(QString::fromLatin1(step.keys));
}

void Desk::OpenByClass(const QString& screen) {
    Ask("open " + screen.toLatin1());
}

void Desk::DoubleClick(const QString& control) {
    const QPoint middle = PlaceAtRest(control).center();
    mSeat->Click(middle);
    mSeat->Click(middle);
}

QRect Desk::PlaceAtRest(const QString& control) {
    constexpr std::chrono::milliseconds kRest(100);
    WindowOf(ExpectControl(control).window);
    return Await(
        [&] {
            const QRect place = ExpectControl(control).place;
            std::this_thread::sleep_for(kRest);
            return ExpectControl(control).place == place ? std::optional(place) : std::nullopt;
        },
        control + u" to stand still"_s);
}

void Desk::Click(const QString& control) {
    mSeat->Click(ControlOf(control).place.center());
    Now();
}

QJsonObject Desk::Ask(const QByteArray& question) {
    mProgram->Process().write(question + '\n');
    return QJsonDocument::fromJson(mProgram->ReadLine()).object();
}

State Desk::AskState() {
    return State::FromJson(Ask("state"));
}

State Desk::Now() {
    return WaitFor([](const State& state) { return !state.isWorking; }, u"the end of the program's work"_s);
}

std::vector<Control> Desk::Controls(const QString& window) {
    std::vector<Control> controls = Control::ListFromJson(Ask("controls"));
    if (!window.isEmpty())
        std::erase_if(controls, [&window](const Control& control) { return control.window != window; });
    return controls;
}

std::optional<Control> Desk::FindControl(const QString& name) {
    for (Control& control : Controls()) {
        if (control.name == name)
            return std::move(control);
    }
    return std::nullopt;
}

Control Desk::ControlOf(const QString& name) {
    if (std::optional<Control> control = FindControl(name))
        return std::move(*control);
    throw std::runtime_error(name.toStdString() + " is not on the screen");
}

Control Desk::ExpectControl(const QString& name) {
    return Await([&] { return FindControl(name); }, name + u" to be shown"_s);
}

State Desk::WaitFor(const std::function<bool(const State&)>& condition, const QString& what) {
    return Await(
        [&] {
            State state = AskState();
            return condition(state) ? std::optional(std::move(state)) : std::nullopt;
        },
        what);
}

State Desk::ExpectAFocus() {
    return WaitFor([](const State& state) { return !state.focusPlace.isEmpty(); },
                   u"the focus on anything visible"_s);
}

State Desk::ExpectFocus(const QString& control) {
    return WaitFor([&control](const State& state) { return state.focus == control; },
                   u"the focus on "_s + control);
}

State Desk::ExpectScreen(const QString& name) {
    return WaitFor(
        [&name](const State& state) {
            const ShownWindow* window = state.Window(name);
            return window && window->isActive;
        },
        u"the screen "_s + name);
}

void Desk::ExpectNoScreen(const QString& name) {
    WaitFor([&name](const State& state) { return state.Window(name) == nullptr; }, u"the end of "_s + name);
}

void Desk::ExpectText(const QString& control, const QString& text) {
    WaitFor(
        [this, &control, &text](const State&) {
            const std::optional<Control> shown = FindControl(control);
            return shown && shown->text == text;
        },
        text + u" in "_s + control);
}

QImage Desk::Picture(const QString& name) {
    QImage picture = mSeat->Picture();
    mPictures.emplace_back(name, picture);
    return picture;
}

QString WayDesk::GoThere() {
    StartSignedOn(Manager());
    Go(TheWay().steps);
    return QString::fromLatin1(TheWay().End());
}
