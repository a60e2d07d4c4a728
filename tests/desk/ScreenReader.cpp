#include "desk/ScreenReader.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kHearingPatience(20000);

} // namespace

ScreenReader::ScreenReader() {
    QProcessEnvironment own;
    for (const auto& name : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CACHE_HOME"_s, u"XDG_CONFIG_HOME"_s})
        own.insert(name, mFolder.path());
    mSession.emplace(u"dbus-daemon"_s,
                     QStringList{u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address=1"_s},
                     own);
    mAddress = QString::fromLatin1(mSession->ReadLine());
    // The system's own Python: the bus's modules belong to it.
    own.insert(Settings());
    mListener.emplace(u"/usr/bin/python3"_s, QStringList{u"" TARVEN_SOURCE_DIR "/tests/desk/listen.py"_s},
                      own);
    while (ReadHeard()) {
    }
}

std::unique_ptr<ScreenReader> ScreenReader::Start() {
    try {
        return std::unique_ptr<ScreenReader>(new ScreenReader);
    } catch (const std::runtime_error&) {
        return nullptr;
    }
}

QProcessEnvironment ScreenReader::Settings() const {
    QProcessEnvironment settings;
    settings.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, mAddress);
    settings.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    return settings;
}

bool ScreenReader::ReadHeard() {
    const QJsonObject line = QJsonDocument::fromJson(mListener->ReadLine()).object();
    if (!line.contains("heard"_L1)) {
        mAnswer = line["answer"_L1];
        return false;
    }
    mHeard.push_back({line["heard"_L1].toString(), line["role"_L1].toString(), line["name"_L1].toString(),
                      line["text"_L1].toString()});
    return true;
}

Heard ScreenReader::Expect(const QString& what, const QString& role, const QString& name) {
    try {
        QElapsedTimer waited;
        waited.start();
        for (;;) {
            while (mWaitedFor == mHeard.size()) {
                if (waited.hasExpired(kHearingPatience.count()))
                    throw std::runtime_error("too late");
                ReadHeard();
            }
            const Heard& heard = mHeard[mWaitedFor++];
            if (heard.what == what && heard.name == name && (role.isEmpty() || heard.role == role))
                return heard;
        }
    } catch (const std::runtime_error& silence) {
        std::string all;
        for (const Heard& heard : mHeard)
            all += (u"\n%1 %2 \"%3\" %4"_s.arg(heard.what, heard.role, heard.name, heard.text)).toStdString();
        throw std::runtime_error("never heard " + what.toStdString() + " " + role.toStdString() + " \"" +
                                 name.toStdString() + "\"; heard:" + all + "\n" + silence.what());
    }
}

QJsonValue ScreenReader::Ask(const QString& question) {
    mListener->Process().write(question.toUtf8() + '\n');
    while (ReadHeard()) {
    }
    return mAnswer;
}
