#include "support/cups/CupsServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QStandardPaths>
#include <QThread>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Milliseconds; a server that is well answers at once.
constexpr int kPatience = 20000;
constexpr unsigned long kPause = 20;

struct Paper {
    const char* name;
    int width;
    int height;
};
/// In points, as printers' descriptions have them.
constexpr std::array kPapers = {Paper{"A4", 595, 842}, Paper{"A5", 420, 595}, Paper{"Letter", 612, 792},
                                Paper{"Statement", 396, 612}};

/// Daemons stand where a user's path does not lead.
QString ProgramOf(const QString& name) {
    const QString found = QStandardPaths::findExecutable(name);
    return found.isEmpty() ? QStandardPaths::findExecutable(name, {u"/usr/sbin"_s, u"/sbin"_s}) : found;
}

void Write(const QString& path, const QString& content) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content.toUtf8());
}

/// The description of a printer that takes PDF as it is.
QString Description(const QStringList& papers) {
    QString text = u"*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
                   "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"PAPER.PPD\"\n"
                   "*Manufacturer: \"Paper\"\n*Product: \"(Paper)\"\n*ModelName: \"Paper\"\n"
                   "*ShortNickName: \"Paper\"\n*NickName: \"Paper\"\n*PSVersion: \"(3010.000) 0\"\n"
                   "*LanguageLevel: \"3\"\n*ColorDevice: False\n*DefaultColorSpace: Gray\n"
                   "*FileSystem: False\n*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n"_s;
    for (const auto& key : {u"PageSize"_s, u"PageRegion"_s}) {
        text += u"*OpenUI *%1: PickOne\n*Default%1: %2\n"_s.arg(key, papers.front());
        for (const QString& paper : papers)
            text += u"*%1 %2: \"\"\n"_s.arg(key, paper);
        text += u"*CloseUI: *%1\n"_s.arg(key);
    }
    text += u"*DefaultImageableArea: %1\n*DefaultPaperDimension: %1\n"_s.arg(papers.front());
    for (const Paper& paper : kPapers) {
        const QString name = QString::fromLatin1(paper.name);
        if (!papers.contains(name))
            continue;
        text += u"*ImageableArea %1: \"%2 %2 %3 %4\"\n"_s.arg(name)
                    .arg(CupsServer::kEdge)
                    .arg(paper.width - CupsServer::kEdge)
                    .arg(paper.height - CupsServer::kEdge);
        text += u"*PaperDimension %1: \"%2 %3\"\n"_s.arg(name).arg(paper.width).arg(paper.height);
    }
    return text;
}

} // namespace

QString CupsServer::Missing() {
    for (const auto& program : {u"cupsd"_s, u"lpadmin"_s, u"lpstat"_s, u"cupsreject"_s}) {
        if (ProgramOf(program).isEmpty())
            return program;
    }
    return QFile::exists(u"/usr/lib/cups/filter/pdftopdf"_s) ? QString() : u"pdftopdf"_s;
}

CupsServer::CupsServer() {
    WriteConfiguration();
    mServer.setStandardOutputFile(QProcess::nullDevice());
    mServer.setStandardErrorFile(QProcess::nullDevice());
    mServer.start(ProgramOf(u"cupsd"_s),
                  {u"-f"_s, u"-c"_s, PathOf(u"cupsd.conf"_s), u"-s"_s, PathOf(u"cups-files.conf"_s)});
    QElapsedTimer waited;
    waited.start();
    while (!IsRunning() && mServer.state() != QProcess::NotRunning && waited.elapsed() < kPatience)
        QThread::msleep(kPause);
    PrintThrough(PathOf(u"socket"_s));
}

CupsServer::~CupsServer() {
    PrintThrough({});
    mServer.terminate();
    if (!mServer.waitForFinished(kPatience))
        mServer.kill();
    mServer.waitForFinished(kPatience);
}

void CupsServer::WriteConfiguration() const {
    // Started by root, the server has its filters done by a user of few rights, who has to reach the spool.
    QFile::setPermissions(mFolder.path(), QFile::Permissions::fromInt(0x7755));
    for (const auto& folder : {u"root"_s, u"state"_s, u"cache"_s, u"spool"_s, u"spool/temp"_s})
        QDir(mFolder.path()).mkpath(folder);
    Write(
        PathOf(u"cupsd.conf"_s),
        u"LogLevel warn\nListen %1\nBrowsing No\nDefaultAuthType None\nPreserveJobHistory Yes\n"
        "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
        "<Location /admin>\n  Order allow,deny\n  Allow all\n</Location>\n"
        "<Policy default>\n  <Limit All>\n    Order deny,allow\n    Allow all\n  </Limit>\n</Policy>\n"_s.arg(
            PathOf(u"socket"_s)));
    Write(PathOf(u"cups-files.conf"_s),
          u"ServerRoot %1/root\nStateDir %1/state\nCacheDir %1/cache\nRequestRoot %1/spool\n"
          "TempDir %1/spool/temp\nAccessLog %1/access.log\nErrorLog %1/error.log\nPageLog %1/page.log\n"
          "FileDevice Yes\n"_s.arg(mFolder.path()));
}

bool CupsServer::IsRunning() {
    return Run(u"lpstat"_s, {u"-r"_s}).contains(u"is running"_s);
}

void CupsServer::AddQueue(const QString& name, const QStringList& papers) {
    const QString description = PathOf(name + u".ppd"_s);
    Write(description, Description(papers));
    Run(u"lpadmin"_s,
        {u"-p"_s, name, u"-E"_s, u"-v"_s, u"file://"_s + PathOf(name + u".pdf"_s), u"-P"_s, description});
}

void CupsServer::RemoveQueue(const QString& name) {
    Run(u"lpadmin"_s, {u"-x"_s, name});
}

void CupsServer::Reject(const QString& name) {
    Run(u"cupsreject"_s, {name});
}

QString CupsServer::Printed(const QString& name) {
    QElapsedTimer waited;
    waited.start();
    while (!Run(u"lpstat"_s, {u"-o"_s, name}).isEmpty() && waited.elapsed() < kPatience)
        QThread::msleep(kPause);
    const QString file = PathOf(name + u".pdf"_s);
    return QFile::exists(file) ? file : QString();
}

QString CupsServer::Run(const QString& program, const QStringList& arguments) const {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"CUPS_SERVER"_s, PathOf(u"socket"_s));
    environment.insert(u"LC_ALL"_s, u"C"_s);
    process.setProcessEnvironment(environment);
    process.start(ProgramOf(program), arguments);
    process.waitForFinished(kPatience);
    return QString::fromUtf8(process.readAllStandardOutput());
}

void CupsServer::PrintThrough(const QString& server) {
    // The library reads its environment once; it is the one that the toolkit's printing loads.
    QLibrary library(u"cups"_s, 2);
    using SetServer = void (*)(const char*);
    if (const auto set = reinterpret_cast<SetServer>(library.resolve("cupsSetServer")))
        set(server.isEmpty() ? nullptr : server.toLocal8Bit().constData());
}
