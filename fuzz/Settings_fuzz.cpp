#include "components/shared.h"
#include "fuzz/Fuzz.h"
#include "shell/ConfigFile.h"
#include "support/Files.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

// tarvenaux.ini, whatever stands in it.

namespace {

void CheckKey(const QString& key) {
    Allowing([&] {
        QString value;
        ReadConfigValue(key, value);
        Require(!value.contains(u'\n'), "a value is of one line");
    });
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const QTemporaryDir folder;
    gIniPath = folder.filePath(kConfigFileName.toString());
    const QByteArray content = BytesOf(data, size);
    QFile file(gIniPath);
    Require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
            "the file can be written");
    file.close();
    EnsureConfigFile();
    for (const QString& key : {u"DeptCode"_s, QString::fromLatin1(content.left(8))})
        CheckKey(key);
    AppendConfigValue(u"Added"_s, QString::fromUtf8(content));
    CheckKey(u"Added"_s);
    return 0;
}
