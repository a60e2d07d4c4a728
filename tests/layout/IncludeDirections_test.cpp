#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gmock/gmock.h>
#include <map>
#include <set>
#include <string>

using namespace Qt::StringLiterals;

// Rooms include downwards only.

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
         {"text", "gateway", "toolkit", "components", "patients", "catalogue", "reports", "charges",
          "maintenance", "treatment", "nursing"}},
        {"suite",
         {"text", "gateway", "tsql", "trial", "trial/file", "odbc", "toolkit", "components", "hospital"}},
    };
    return allowed;
}

/// The folder of a file or of an include, which is a room or a folder in one.
std::string FolderOf(const QString& path) {
    return path.left(path.lastIndexOf(u'/')).toStdString();
}

} // namespace

TEST(IncludeDirections, OfEveryRoomGoDownwards) {
    const QString root = QString::fromLatin1(TARVEN_SOURCE_DIR) + u"/src/"_s;
    static const QRegularExpression pattern(u"^#include \"([^\"]+)\""_s, QRegularExpression::MultilineOption);
    QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    int seen = 0;
    while (files.hasNext()) {
        const QString path = files.next();
        if (path == root + u"main.cpp"_s)
            continue;
        const std::string room = FolderOf(path.mid(root.size()));
        ASSERT_TRUE(Allowed().contains(room)) << "a room without rules: " << room;
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        auto includes = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (includes.hasNext()) {
            const QString include = includes.next().captured(1);
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
