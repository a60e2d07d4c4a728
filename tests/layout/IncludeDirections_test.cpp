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

/// What each room may include besides itself. shell/shared.h, the shared variables, lies below the screens.
const std::map<std::string, std::set<std::string>>& Allowed() {
    static const std::map<std::string, std::set<std::string>> allowed = {
        {"text", {}},
        {"gateway", {"text"}},
        {"toolkit", {"text", "gateway"}},
        {"components", {"text", "gateway", "toolkit"}},
        {"patients", {"text", "gateway", "toolkit", "components", "shared"}},
        {"reporting", {"text", "gateway", "toolkit", "components", "patients", "shared"}},
        {"charges", {"text", "gateway", "toolkit", "components", "reporting", "patients", "shared"}},
        {"maintenance", {"text", "gateway", "toolkit", "components", "reporting", "patients", "shared"}},
        {"treatment", {"text", "gateway", "components", "shared"}},
        {"nursing",
         {"text", "gateway", "toolkit", "components", "reporting", "patients", "charges", "shared"}},
        {"shell",
         {"text", "gateway", "toolkit", "components", "reporting", "patients", "charges", "maintenance",
          "treatment", "nursing", "shared"}},
        {"suite", {"text", "gateway", "toolkit", "components", "reporting", "hospital"}},
    };
    return allowed;
}

std::string RoomOf(const QString& include) {
    if (include == u"shell/shared.h"_s)
        return "shared";
    return include.section(u'/', 0, 0).toStdString();
}

} // namespace

TEST(IncludeDirections, OfEveryRoomGoDownwards) {
    const QString root = QString::fromLatin1(TARVEN_SOURCE_DIR) + u"/src/"_s;
    static const QRegularExpression pattern(u"^#include \"([^\"]+)\""_s, QRegularExpression::MultilineOption);
    QDirIterator files(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    int seen = 0;
    while (files.hasNext()) {
        const QString path = files.next();
        const std::string room = path.mid(root.size()).section(u'/', 0, 0).toStdString();
        if (room == "main.cpp")
            continue;
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
            const std::string target = RoomOf(include);
            EXPECT_TRUE(target == room || Allowed().at(room).contains(target))
                << path.mid(root.size()).toStdString() << " includes " << include.toStdString();
        }
    }
    EXPECT_GT(seen, 100);
}
