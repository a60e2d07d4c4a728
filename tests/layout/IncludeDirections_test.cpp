#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <set>
#include <string>

using namespace Qt::StringLiterals;

// Rooms include downwards only, and in the engine of reports no two files need each other.

namespace {

/// What each room, and each folder in one, may include besides itself.
const std::map<std::string, std::set<std::string>>& Allowed() {
    static const std::map<std::string, std::set<std::string>> allowed = {
        {"text", {}},
        {"gateway", {"text"}},
        {"tsql", {"text", "gateway"}},
        {"trial/sqlite", {"text", "gateway", "tsql"}},
        {"trial/file", {"text", "gateway", "tsql", "trial/sqlite"}},
        {"trial/translate", {"text", "gateway", "tsql", "trial/sqlite"}},
        {"trial", {"text", "gateway", "tsql", "trial/sqlite", "trial/file", "trial/translate"}},
        {"odbc", {"text", "gateway"}},
        {"toolkit", {"text", "gateway"}},
        {"manual", {"toolkit"}},
        {"components", {"text", "gateway", "toolkit"}},
        {"report/template", {"text", "gateway"}},
        {"report/pages", {"text", "gateway", "report/template"}},
        {"report/output", {"text", "gateway", "toolkit", "report/pages"}},
        {"report", {"text", "gateway", "toolkit", "components", "report/template", "report/pages"}},
        {"report/viewer", {"text", "toolkit", "report", "report/pages", "report/output"}},
        {"patients", {"text", "gateway", "toolkit", "components"}},
        {"catalogue", {"text", "gateway", "toolkit", "components", "patients"}},
        {"reports",
         {"text", "gateway", "toolkit", "components", "report", "report/output", "report/viewer",
          "patients"}},
        {"charges", {"text", "gateway", "toolkit", "components", "patients", "catalogue", "reports"}},
        {"maintenance", {"text", "gateway", "toolkit", "components", "patients", "reports"}},
        {"treatment", {"text", "gateway", "components"}},
        {"nursing", {"text", "gateway", "toolkit", "components", "patients", "reports", "charges"}},
        {"shell",
         {"text", "gateway", "toolkit", "manual", "components", "patients", "catalogue", "reports", "charges",
          "maintenance", "treatment", "nursing"}},
        {"suite",
         {"text", "gateway", "tsql", "trial", "trial/file", "odbc", "toolkit", "components", "hospital"}},
    };
    return allowed;
}

/// The folder of a file or of an include, which is a room or a folder in one. What is written for one
/// operating system belongs to the folder that its header stands in.
std::string FolderOf(const QString& path) {
    QString folder = path.left(path.lastIndexOf(u'/'));
    for (const auto& system : {"/posix"_L1, "/windows"_L1}) {
        if (folder.endsWith(system))
            folder.chop(system.size());
    }
    return folder.toStdString();
}

QString SourceFolder() {
    return QString::fromLatin1(TARVEN_SOURCE_DIR) + u"/src/"_s;
}

QStringList IncludesOf(const QString& path) {
    static const QRegularExpression pattern(u"^#include \"([^\"]+)\""_s, QRegularExpression::MultilineOption);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QStringList includes;
    auto found = pattern.globalMatch(QString::fromUtf8(file.readAll()));
    while (found.hasNext())
        includes << found.next().captured(1);
    return includes;
}

/// Without its ending: a header and its source are one.
QString UnitOf(const QString& path) {
    return path.left(path.lastIndexOf(u'.'));
}

/// What each unit below the folder includes, itself aside.
std::map<QString, std::set<QString>> UnitsBelow(const QString& folder) {
    std::map<QString, std::set<QString>> units;
    QDirIterator files(SourceFolder() + folder, {u"*.h"_s, u"*.cpp"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString unit = UnitOf(path.mid(SourceFolder().size()));
        for (const QString& include : IncludesOf(path)) {
            if (UnitOf(include) != unit)
                units[unit].insert(UnitOf(include));
        }
    }
    return units;
}

/// Takes units away that include none of the others, until there are none such: what is left over goes in
/// circles, or includes what does.
std::map<QString, std::set<QString>> CirclesAmong(std::map<QString, std::set<QString>> units) {
    const auto stands = [&units](const QString& unit) { return units.contains(unit); };
    const auto needsNone = [&](const auto& unit) { return std::ranges::none_of(unit.second, stands); };
    for (auto unit = std::ranges::find_if(units, needsNone); unit != units.end();
         unit = std::ranges::find_if(units, needsNone))
        units.erase(unit);
    return units;
}

} // namespace

TEST(IncludeDirections, OfEveryRoomGoDownwards) {
    const QString root = SourceFolder();
    QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    int seen = 0;
    while (files.hasNext()) {
        const QString path = files.next();
        if (path == root + u"main.cpp"_s)
            continue;
        const std::string room = FolderOf(path.mid(root.size()));
        ASSERT_TRUE(Allowed().contains(room)) << "a room without rules: " << room;
        for (const QString& include : IncludesOf(path)) {
            // Generated headers and moc files stand without a folder.
            if (!include.contains(u'/'))
                continue;
            ++seen;
            const std::string target = FolderOf(include);
            EXPECT_TRUE(target == room || Allowed().at(room).contains(target))
                << path.mid(root.size()).toStdString() << " includes " << include.toStdString();
        }
    }
    EXPECT_GT(seen, 100);
}

TEST(IncludeDirections, OfTheReportEngineFormNoCircle) {
    const auto units = UnitsBelow(u"report"_s);
    EXPECT_GT(units.size(), 20U);
    for (const auto& [unit, includes] : CirclesAmong(units)) {
        for (const QString& include : includes)
            ADD_FAILURE() << unit.toStdString() << " includes " << include.toStdString();
    }
}
