#include "oracle/PendingCases.h"

#include <QFile>
#include <QFileInfo>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString kRandomHead = u"[random arithmetic]"_s;

QString FileName() {
    return OracleFolder() + u"pending.txt"_s;
}

} // namespace

PendingCases::PendingCases() {
    QFile file(FileName());
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot be read: " + FileName().toStdString());
    QString head;
    for (const QString& whole : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QString line = whole.trimmed();
        if (line.startsWith(u'#') && head.isEmpty())
            mNotes << line;
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        mHasRandomArithmetic = mHasRandomArithmetic || line == kRandomHead;
        if (line.startsWith(u'[') && line.endsWith(u']'))
            head = line;
        else
            mCases.insert(head + line);
    }
}

QStringList PendingCases::Strangers(const std::vector<OracleCase>& cases) const {
    std::set<QString> left = mCases;
    for (const OracleCase& known : cases)
        left.erase(KeyOf(known));
    return {left.begin(), left.end()};
}

void PendingCases::Write(const std::vector<OracleCase>& failing) const {
    QStringList lines = mNotes;
    QString head;
    for (const OracleCase& failed : failing) {
        if (head != HeadOf(failed)) {
            head = HeadOf(failed);
            lines << QString() << head;
        }
        lines << failed.written;
    }
    if (mHasRandomArithmetic)
        lines << QString() << kRandomHead;
    QFile file(FileName());
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot be written: " + FileName().toStdString());
    file.write(lines.join(u'\n').toUtf8() + '\n');
}

QString PendingCases::HeadOf(const OracleCase& asked) {
    return u"[%1: %2]"_s.arg(QFileInfo(asked.file).fileName(), asked.section);
}

QString OracleFolder() {
    return QStringLiteral(TARVEN_SOURCE_DIR "/tests/oracle/");
}
