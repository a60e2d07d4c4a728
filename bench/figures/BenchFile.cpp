#include "BenchFile.h"

#include "bench/GiveUp.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QJsonObject ToJson(const BenchLine& line) {
    return {{u"what"_s, line.what},
            {u"unit"_s, line.unit},
            {u"ours"_s, line.ours},
            {u"bare"_s, line.bare},
            {u"judged"_s, QJsonArray{line.judged.value, line.judged.low, line.judged.high}},
            {u"promised"_s, line.promised}};
}

BenchLine FromJson(const QJsonObject& object) {
    const QJsonArray judged = object[u"judged"].toArray();
    return {object[u"what"].toString(),
            object[u"unit"].toString(),
            object[u"ours"].toDouble(),
            object[u"bare"].toDouble(),
            {judged.at(0).toDouble(), judged.at(1).toDouble(), judged.at(2).toDouble()},
            object[u"promised"].toDouble()};
}

} // namespace

void SaveLines(const QString& path, const std::vector<BenchLine>& lines) {
    QJsonArray array;
    for (const BenchLine& line : lines)
        array.append(ToJson(line));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QJsonDocument(QJsonObject{{u"lines"_s, array}}).toJson()) < 0 || !file.flush())
        GiveUp(u"cannot write "_s + path);
}

std::vector<BenchLine> LoadLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        GiveUp(u"cannot read "_s + path);
    const QJsonValue array = QJsonDocument::fromJson(file.readAll()).object()[u"lines"];
    if (!array.isArray())
        GiveUp(path + u" is no table of the benchmarks"_s);
    std::vector<BenchLine> lines;
    const QJsonArray all = array.toArray();
    for (const auto& line : all)
        lines.push_back(FromJson(line.toObject()));
    return lines;
}
