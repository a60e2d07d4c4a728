#include "report/ReportEngine.h"
#include "report/viewer/PageView.h"
#include "reporter/TemplateWatch.h"
#include "support/PrintQt.h"
#include "support/report/ReportFixture.h"
#include "text/RunTimeError.h"

#include <QFile>
#include <QLabel>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class TemplateWatchTest : public testing::Test {
  protected:
    TemplateWatchTest() { Save("one"); }

    /// As an editor that writes a new file and puts it in the old one's place.
    void Save(const QByteArray& content) const {
        QSaveFile save(file);
        ASSERT_TRUE(save.open(QIODevice::WriteOnly));
        save.write(content);
        ASSERT_TRUE(save.commit());
    }

    /// Notes what stood in the file, and fails where it is "wrong".
    std::shared_ptr<const ReportDocument> Make() {
        QFile read(file);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly));
        const QByteArray content = read.readAll();
        made << QString::fromUtf8(content);
        if (content == "wrong")
            throw RunTimeError(20500, u"a.rpt, line 3: no such field"_s);
        return nullptr;
    }

    QTemporaryDir folder;
    const QString file = folder.filePath(u"a.rpt"_s);
    QStringList made;
};

TEST_F(TemplateWatchTest, MakesThePagesAnewEachTimeTheFileIsSaved) {
    TemplateWatch window(file, [this] { return Make(); });
    EXPECT_EQ(made, QStringList(u"one"_s));
    for (const char* content : {"two", "three"}) {
        Save(content);
        EXPECT_TRUE(QTest::qWaitFor([&] { return made.last() == QLatin1StringView(content); })) << content;
    }
    // In place, as other editors save.
    QFile direct(file);
    ASSERT_TRUE(direct.open(QIODevice::WriteOnly | QIODevice::Truncate));
    direct.write("four");
    direct.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return made.last() == u"four"_s; }));
}

TEST_F(TemplateWatchTest, TellsWhatIsWrongUntilItIsRight) {
    TemplateWatch window(file, [this] { return Make(); });
    auto* problem = window.findChild<QLabel*>(u"lblProblem"_s);
    ASSERT_TRUE(problem);
    window.show();
    EXPECT_FALSE(problem->isVisible());
    Save("wrong");
    EXPECT_TRUE(QTest::qWaitFor([&] { return problem->isVisible(); }));
    EXPECT_EQ(problem->text(), u"a.rpt, line 3: no such field"_s);
    Save("right");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !problem->isVisible(); }));
}

TEST_F(TemplateWatchTest, ThePagesStayInTheirPlaceAndWhenTheTemplateIsWrong) {
    const auto pages =
        SmallDocument(u"<detail height=\"60\"><text x=\"0\" y=\"0\" width=\"50\">{A}</text></detail>"_s,
                      Rows({u"A"_s}, std::vector<std::vector<Value>>(9, {{u"a"_s}})));
    TemplateWatch window(file, [&] {
        Make();
        return pages;
    });
    window.show();
    auto* view = window.findChild<PageView*>();
    ASSERT_TRUE(view);
    view->GoTo(4);
    ASSERT_EQ(view->CurrentPage(), 4);
    Save("two");
    ASSERT_TRUE(QTest::qWaitFor([&] { return made.last() == u"two"_s; }));
    EXPECT_EQ(view->CurrentPage(), 4);
    auto* problem = window.findChild<QLabel*>(u"lblProblem"_s);
    Save("wrong");
    ASSERT_TRUE(QTest::qWaitFor([&] { return problem->isVisible(); }));
    EXPECT_EQ(view->CurrentPage(), 4);
}

} // namespace
