#include "check/SourceLines.h"
#include "support/PrintQt.h"
#include "support/tds/TestDataSources.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const SourceLines kFreeTds = {{u"driver"_s, u"/usr/lib/libtdsodbc.so"_s}, {u"servername"_s, u"sanroque"_s}};

/// "ok", or what is wrong.
std::vector<QString> Judged(const SourceLines& source, const SourceLines& server = {}) {
    std::vector<QString> told;
    for (const Finding& finding : JudgeSourceLines(u"encryption"_s, source, server))
        told.push_back(finding.verdict == Verdict::Ok ? u"ok"_s : finding.seen);
    return told;
}

class CaFile {
  public:
    CaFile() { EXPECT_TRUE(mFile.open()); }
    SourceLines Server() const { return {{u"encryption"_s, u"require"_s}, {u"ca file"_s, mFile.fileName()}}; }

  private:
    QTemporaryFile mFile;
};

} // namespace

TEST(SourceLines, OfFreeTdsThatAskForEncryptionAndACertificateAreWell) {
    const CaFile file;
    EXPECT_THAT(Judged(kFreeTds, file.Server()), ElementsAre(u"ok"_s));
    SourceLines strict = file.Server();
    strict[u"encryption"_s] = u"strict"_s;
    EXPECT_THAT(Judged(kFreeTds, strict), ElementsAre(u"ok"_s));
}

TEST(SourceLines, OfFreeTdsWithoutEncryptionAreTold) {
    const CaFile file;
    SourceLines server = file.Server();
    server[u"encryption"_s] = u"request"_s;
    EXPECT_THAT(Judged(kFreeTds, server), ElementsAre(u"encryption = request"_s));
    server.remove(u"encryption"_s);
    EXPECT_THAT(Judged(kFreeTds, server), ElementsAre(u"nothing asks for it"_s));
}

// So the driver reads them; on the wire it asks for what odbc.ini says.
TEST(SourceLines, OfOdbcIniGoBeforeFreeTdsOwn) {
    const CaFile file;
    SourceLines source = kFreeTds;
    source[u"encryption"_s] = u"off"_s;
    EXPECT_THAT(Judged(source, file.Server()), ElementsAre(u"encryption = off"_s));
    source[u"encryption"_s] = u"require"_s;
    SourceLines server = file.Server();
    server[u"encryption"_s] = u"off"_s;
    EXPECT_THAT(Judged(source, server), ElementsAre(u"ok"_s));
}

TEST(SourceLines, OfFreeTdsWithoutACertificateAreTold) {
    const CaFile file;
    SourceLines server = file.Server();
    server[u"check certificate hostname"_s] = u"no"_s;
    EXPECT_THAT(Judged(kFreeTds, server), ElementsAre(u"the certificate may be another machine's"_s));
    server = file.Server();
    server[u"ca file"_s] = u"/nowhere/ca.pem"_s;
    EXPECT_THAT(Judged(kFreeTds, server), ElementsAre(u"the ca file /nowhere/ca.pem is not there"_s));
    server.remove(u"ca file"_s);
    EXPECT_THAT(Judged(kFreeTds, server),
                ElementsAre(u"no certificate is checked: nothing names a ca file"_s));
}

TEST(SourceLines, OfAnotherDriverAreJudgedByItsOwnKeys) {
    SourceLines source = {{u"driver"_s, u"ODBC Driver 18 for SQL Server"_s},
                          {u"encrypt"_s, u"yes"_s},
                          {u"trustservercertificate"_s, u"no"_s}};
    EXPECT_THAT(Judged(source), ElementsAre(u"ok"_s));
    source[u"trustservercertificate"_s] = u"yes"_s;
    EXPECT_THAT(Judged(source), ElementsAre(u"no certificate is checked"_s));
    source.remove(u"trustservercertificate"_s);
    source.remove(u"encrypt"_s);
    EXPECT_THAT(Judged(source), ElementsAre(u"nothing asks for it"_s));
}

TEST(SourceLines, OfADriverThatEncryptsUnaskedNeedNotAsk) {
    SourceLines source = {{u"driver"_s, u"libmsodbcsql-18.3.so.2.1 18.03.0002"_s}};
    EXPECT_THAT(Judged(source), ElementsAre(u"ok"_s));
    source[u"encrypt"_s] = u"no"_s;
    EXPECT_THAT(Judged(source), ElementsAre(u"nothing asks for it"_s));
    source = {{u"driver"_s, u"libmsodbcsql-17.10.so.4.1 17.10.0004"_s}};
    EXPECT_THAT(Judged(source), ElementsAre(u"nothing asks for it"_s));
}

TEST(SourceLines, ThatLogOnByThemselvesAreTold) {
    const CaFile file;
    SourceLines source = kFreeTds;
    source[u"trusted_connection"_s] = u"Yes"_s;
    EXPECT_THAT(Judged(source, file.Server()),
                ElementsAre(u"the data source logs on by itself, so every password would do"_s));
}

TEST(SourceLines, OfAServerGoBeforeThoseOfAll) {
    const QString content = u"# encryption = off\n[global]\n tds version = 7.4\n\tencryption = request\n"
                            "; x = y\n[SanRoque]\nhost = a\nEncryption  =  require\nca  file = /a b/ca.pem\n"
                            "[other]\nencryption = off\n"_s;
    const SourceLines expected = {{u"tds version"_s, u"7.4"_s},
                                  {u"host"_s, u"a"_s},
                                  {u"encryption"_s, u"require"_s},
                                  {u"ca file"_s, u"/a b/ca.pem"_s}};
    SourceLines lines;
    EXPECT_TRUE(ReadServerLines(content, u"sanroque"_s, lines));
    EXPECT_EQ(lines, expected);
    EXPECT_FALSE(ReadServerLines(content, u"unknown"_s, lines));
    EXPECT_EQ(lines.value(u"encryption"_s), u"request"_s);
}

namespace {

/// What is told of a data source with those lines, while the driver's files say what a test has written.
class MachinesLines : public testing::Test {
  protected:
    MachinesLines() {
        qputenv("FREETDSCONF", mFolder.filePath(u"first.conf"_s).toUtf8());
        qputenv("FREETDS", mFolder.path().toUtf8());
        QDir(mFolder.path()).mkdir(u"etc"_s);
    }
    ~MachinesLines() override {
        qputenv("FREETDSCONF", mBefore.toUtf8());
        qunsetenv("FREETDS");
    }

    void Write(const QString& name, const QString& content) const {
        QFile file(mFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.toUtf8());
    }
    void WriteFirst(const QString& content) const { Write(u"first.conf"_s, content); }
    void WriteSecond(const QString& content) const { Write(u"etc/freetds.conf"_s, content); }

    static std::vector<QString> Told(const QString& lines, const QString& driver) {
        // The driver manager remembers for a while what it has read of a name.
        static int count = 0;
        const QString source = u"Lines %1"_s.arg(++count);
        TestDataSources::Instance().Add(source, lines);
        std::vector<QString> told;
        for (const Finding& finding : LookAtSourceLines(u"encryption"_s, source, driver))
            told.push_back(finding.verdict == Verdict::Ok ? u"ok"_s : finding.seen);
        TestDataSources::Instance().Remove(source);
        return told;
    }

  private:
    QTemporaryDir mFolder;
    const QString mBefore = (TestDataSources::Instance(), qEnvironmentVariable("FREETDSCONF"));
};

const QString kTdsDriver = u"libtdsodbc.so 01.03.0017"_s;
const QString kSafe = u"encryption = require\nca file = system\n"_s;

} // namespace

TEST_F(MachinesLines, AreRead) {
    EXPECT_THAT(Told(u"Driver=ODBC Driver 18\nEncrypt=yes\n"_s, {}), ElementsAre(u"ok"_s));
}

TEST_F(MachinesLines, AreThoseOfTheDriverThatIsAtWork) {
    WriteFirst(u"[srv]\n"_s + kSafe);
    EXPECT_THAT(Told(u"Driver=Hospital\nServername=srv\n"_s, kTdsDriver), ElementsAre(u"ok"_s));
}

TEST_F(MachinesLines, OfTheDriversOwnFilesAreReadUntilOneHasTheServer) {
    WriteFirst(u"[global]\nca file = system\n[other]\nencryption = off\n"_s);
    WriteSecond(u"[srv]\nencryption = require\n"_s);
    EXPECT_THAT(Told(u"Servername=srv\n"_s, kTdsDriver), ElementsAre(u"ok"_s));
    WriteFirst(u"[srv]\nencryption = off\nca file = system\n"_s);
    EXPECT_THAT(Told(u"Servername=srv\n"_s, kTdsDriver), ElementsAre(u"encryption = off"_s));
}

TEST_F(MachinesLines, OfTheDriversOwnFilesSayNothingOfAServerThatOdbcIniNamesItself) {
    WriteFirst(u"[global]\n"_s + kSafe);
    EXPECT_THAT(
        Told(u"Server=10.0.0.1\n"_s, kTdsDriver),
        ElementsAre(u"nothing asks for it"_s, u"no certificate is checked: nothing names a ca file"_s));
}
