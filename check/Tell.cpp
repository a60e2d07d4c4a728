#include "check/Tell.h"

#include "check/Checks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kVerdictWidth = 5;
constexpr int kNameWidth = 15;

QString WordOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Ok:
        return u"ok"_s;
    case Verdict::Fault:
        return u"FAULT"_s;
    default:
        return u"n/a"_s;
    }
}

QString ColorOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Ok:
        return u"\x1b[32m"_s;
    case Verdict::Fault:
        return u"\x1b[31m"_s;
    default:
        return {};
    }
}

/// Names and texts come from the hospital: no line break of theirs may pass for a line of the check, and no sign of
/// theirs may tell the terminal what to do.
QString Plain(QString text) {
    std::ranges::replace_if(text, [](QChar c) { return c.category() == QChar::Other_Control; }, u' ');
    return text;
}

} // namespace

QString LineOf(const Finding& finding, bool colored) {
    const QString color = colored ? ColorOf(finding.verdict) : QString();
    const QString word = WordOf(finding.verdict).leftJustified(kVerdictWidth);
    const QString shown = color.isEmpty() ? word : color + word + u"\x1b[0m"_s;
    QString line = u"%1  %2  %3\n"_s.arg(shown, finding.name.leftJustified(kNameWidth), Plain(finding.seen));
    if (!finding.toDo.isEmpty())
        line += QString(kVerdictWidth + kNameWidth + 4, u' ') + u"-> "_s + Plain(finding.toDo) + u'\n';
    return line;
}

QByteArray JsonOf(const Findings& findings) {
    QJsonArray list;
    for (const Finding& finding : findings) {
        QJsonObject entry{{u"name"_s, finding.name},
                          {u"verdict"_s, WordOf(finding.verdict)},
                          {u"seen"_s, finding.seen}};
        if (!finding.toDo.isEmpty())
            entry.insert(u"toDo"_s, finding.toDo);
        list.append(entry);
    }
    const QJsonObject whole{{u"ok"_s, !HasFaults(findings)}, {u"findings"_s, list}};
    return QJsonDocument(whole).toJson();
}
