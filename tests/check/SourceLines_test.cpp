#include "check/SourceLines.h"
#include "support/PrintQt.h"
#include "support/tds/TestDataSources.h"

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
    EXPECT_EQ(ReadServerLines(content, u"sanroque"_s), expected);
    EXPECT_EQ(ReadServerLines(content, u"unknown"_s).value(u"encryption"_s), u"request"_s);
}

TEST(SourceLines, OfTheMachineAreRead) {
    TestDataSources::Instance().Add(u"Lines"_s, u"Driver=ODBC Driver 18\nEncrypt=yes\n"_s);
    const Findings found = LookAtSourceLines(u"encryption"_s, u"Lines"_s);
    TestDataSources::Instance().Remove(u"Lines"_s);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].verdict, Verdict::Ok) << found[0].seen.toStdString();
}
