// generate-hospital <folder>
//   Writes the trial hospital's data as scripts into the folder, which is hospital/demo as a rule.

#include "DemoScripts.h"

#include <QDir>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool Write(const QString& path, const QString& text) {
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fputs("usage: generate-hospital <folder>\n", stderr);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const Generator::DemoScript& script : Generator::DemoScripts()) {
        const QString path = folder.filePath(script.name + u".sql"_s);
        if (!Write(path, script.text)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
