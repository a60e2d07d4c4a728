#include "check/SourceLines.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <array>
#include <odbcinst.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kKeys = {"Driver", "Servername", "Encryption", "Encrypt", "TrustServerCertificate",
                              "Trusted_Connection"};

bool IsYes(const QString& value) {
    static const QStringList words = {u"yes"_s, u"true"_s, u"1"_s, u"mandatory"_s, u"require"_s, u"strict"_s};
    return words.contains(value.trimmed().toLower());
}

/// FreeTDS' driver keeps encryption in a file of its own; any other one is taken for Microsoft's.
bool IsFreeTds(const SourceLines& source) {
    return source.value(u"driver"_s).contains("tds"_L1, Qt::CaseInsensitive);
}

Findings JudgeFreeTds(const QString& name, const SourceLines& source, const SourceLines& server) {
    const QString file = u" in freetds.conf, in the section that odbc.ini names with Servername"_s;
    // What odbc.ini says itself goes before the driver's own file.
    const QString encryption = source.value(u"encryption"_s, server.value(u"encryption"_s));
    Findings faults;
    if (!IsYes(encryption))
        faults.push_back(Fails(name,
                               encryption.isEmpty() ? u"nothing asks for it"_s
                                                    : u"encryption = "_s + encryption,
                               u"write encryption = require"_s + file + u", and no Encryption in odbc.ini"_s));
    if (server.value(u"ca file"_s).isEmpty())
        faults.push_back(Fails(name, u"no certificate is checked: nothing names a ca file"_s,
                               u"write ca file = ... with the hospital's certificate authority"_s + file));
    else if (!QFile::exists(server.value(u"ca file"_s)) && server.value(u"ca file"_s) != "system"_L1)
        faults.push_back(Fails(name, u"the ca file %1 is not there"_s.arg(server.value(u"ca file"_s)),
                               u"lay it there"_s));
    if (server.contains(u"check certificate hostname"_s) &&
        !IsYes(server.value(u"check certificate hostname"_s)))
        faults.push_back(Fails(name, u"the certificate may be another machine's"_s,
                               u"write check certificate hostname = yes"_s + file));
    return faults;
}

/// Microsoft's driver encrypts from version 18 on, unless it is told otherwise.
bool EncryptsUnasked(const SourceLines& source) {
    static const QRegularExpression version(u"msodbcsql.* (\\d+)\\.\\d+\\.\\d+$"_s);
    const auto match = version.match(source.value(u"driver"_s));
    return source.value(u"encrypt"_s).isEmpty() && match.hasMatch() && match.captured(1).toInt() >= 18;
}

Findings JudgeOther(const QString& name, const SourceLines& source) {
    Findings faults;
    if (!IsYes(source.value(u"encrypt"_s)) && !EncryptsUnasked(source))
        faults.push_back(Fails(name, u"nothing asks for it"_s, u"write Encrypt = yes in odbc.ini"_s));
    if (IsYes(source.value(u"trustservercertificate"_s)))
        faults.push_back(Fails(name, u"no certificate is checked"_s,
                               u"write TrustServerCertificate = no in odbc.ini"_s));
    return faults;
}

/// A text as the driver manager's functions take it. They only read it.
LPCWSTR Wide(const QString& text) {
    return reinterpret_cast<LPCWSTR>(text.utf16());
}

SourceLines LinesOfSource(const QString& source) {
    SourceLines lines;
    for (const char* key : kKeys) {
        std::array<char16_t, 1024> value{};
        const QString name = QString::fromLatin1(key);
        SQLGetPrivateProfileStringW(Wide(source), Wide(name), Wide(u""_s),
                                    reinterpret_cast<LPWSTR>(value.data()), int(value.size()),
                                    Wide(u"odbc.ini"_s));
        if (value[0] != 0)
            lines.insert(name.toLower(), QString::fromUtf16(value.data()));
    }
    return lines;
}

/// Where the driver looks for its servers, in its order.
QStringList ServerFiles() {
    return {qEnvironmentVariable("FREETDSCONF"), qEnvironmentVariable("FREETDS") + u"/etc/freetds.conf"_s,
            QDir::homePath() + u"/.freetds.conf"_s, u"/etc/freetds/freetds.conf"_s};
}

/// As the driver reads them: file after file until one has the server, and none where odbc.ini names the machine
/// itself (Server) and no section (Servername).
SourceLines LinesOfServer(const QString& server) {
    SourceLines lines;
    if (server.isEmpty())
        return lines;
    for (const QString& path : ServerFiles()) {
        QFile file(path);
        if (QFile::exists(path) && file.open(QIODevice::ReadOnly) &&
            ReadServerLines(QString::fromUtf8(file.readAll()), server, lines))
            break;
    }
    return lines;
}

} // namespace

Findings JudgeSourceLines(const QString& name, const SourceLines& source, const SourceLines& server) {
    Findings faults = IsFreeTds(source) ? JudgeFreeTds(name, source, server) : JudgeOther(name, source);
    if (IsYes(source.value(u"trusted_connection"_s)))
        faults.push_back(Fails(name, u"the data source logs on by itself, so every password would do"_s,
                               u"take Trusted_Connection out of odbc.ini"_s));
    return FaultsOr(std::move(faults), Ok(name, u"asked for, with the server's certificate checked"_s));
}

bool ReadServerLines(const QString& content, const QString& section, SourceLines& lines) {
    SourceLines own;
    SourceLines* current = nullptr;
    bool stands = false;
    for (const QString& written : content.split(u'\n')) {
        const QString line = written.trimmed();
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            const QString name = line.mid(1).chopped(1).trimmed();
            const bool isOwn = name.compare(section, Qt::CaseInsensitive) == 0;
            current = isOwn ? &own : name.toLower() == "global"_L1 ? &lines : nullptr;
            stands = stands || isOwn;
        } else if (current && line.contains(u'=') && !line.startsWith(u'#') && !line.startsWith(u';')) {
            current->insert(line.section(u'=', 0, 0).simplified().toLower(),
                            line.section(u'=', 1).trimmed());
        }
    }
    lines.insert(own);
    return stands;
}

Findings LookAtSourceLines(const QString& name, const QString& source, const QString& driver) {
    SourceLines lines = LinesOfSource(source);
    // odbc.ini may call it by any name.
    if (!driver.isEmpty())
        lines.insert(u"driver"_s, driver);
    return JudgeSourceLines(name, lines, LinesOfServer(lines.value(u"servername"_s)));
}
