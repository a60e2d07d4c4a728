#include "support/Contrast.h"
#include "toolkit/Colors.h"
#include "toolkit/Controls.h"
#include "toolkit/Look.h"

#include <QApplication>
#include <QCoreApplication>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The look of a dark desktop, until the test's end.
class DarkLook : public testing::Test {
  protected:
    DarkLook() { ApplyLook(*qApp); }
    ~DarkLook() override {
        dark.reset();
        ApplyLook(*qApp);
    }

    std::optional<Seam<bool()>::Replacement> dark{std::in_place, DarkDesktopSeam(), [] { return true; }};
};

/// How much of a picture has that colour.
int PixelsOf(const QImage& picture, const QColor& color) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

TEST(Look, IsThatOfALightDesktop) {
    EXPECT_EQ(&TheColors(), &LightColors());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), LightColors().window);
}

TEST_F(DarkLook, FollowsADesktopThatAsksForIt) {
    EXPECT_EQ(&TheColors(), &DarkColors());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), DarkColors().window);
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), DarkColors().field);
    QLabel heading(u"Heading"_s);
    heading.setProperty("heading", true);
    EXPECT_GT(PixelsOf(heading.grab().toImage(), DarkColors().heading), 10);
}

TEST_F(DarkLook, DrawsBoxesAndButtonsInItsColours) {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QLineEdit* box = NewTextBox(u"txtA"_s, &window);
    QLineEdit* shown = NewShownBox(u"txtB"_s, &window);
    QPushButton* button = NewButton(u"cmdA"_s, {}, &window);
    for (QWidget* control : std::initializer_list<QWidget*>{box, shown, button})
        layout->addWidget(control);
    const auto ground = [](QWidget* control) {
        return control->grab().toImage().pixelColor(control->rect().center());
    };
    EXPECT_EQ(ground(box), DarkColors().field);
    EXPECT_EQ(ground(shown), DarkColors().shown);
    EXPECT_EQ(ground(button), DarkColors().button);
    EXPECT_GT(PixelsOf(box->grab().toImage(), DarkColors().line), box->width()) << "its edge";
}

TEST_F(DarkLook, LaysThePagesOfAScreenOnItsGround) {
    QTabWidget pages;
    pages.addTab(new QWidget, u"Search"_s);
    pages.resize(300, 200);
    EXPECT_EQ(pages.grab().toImage().pixelColor(150, 150), DarkColors().window);
}

TEST_F(DarkLook, DrawsTheIconsInItsColours) {
    const QImage icon = ProgramIcon(u"patient"_s).pixmap(24).toImage();
    EXPECT_GT(PixelsOf(icon, DarkColors().ink), 10);
    EXPECT_EQ(PixelsOf(icon, LightColors().ink), 0);
}

TEST(Look, TheProgramsIconsAreThere) {
    for (const QString& name : {u"assess"_s, u"calendar"_s, u"patient"_s, u"pending"_s, u"reports"_s,
                                u"transaction"_s, u"critical"_s})
        EXPECT_FALSE(ProgramIcon(name).isNull()) << name.toStdString();
    EXPECT_TRUE(ProgramIcon(u"none"_s).isNull());
}

TEST(Look, DesktopsGetTheProgramsIconInTheirSizes) {
    const QList<QSize> sizes = QApplication::windowIcon().availableSizes();
    for (const int side : {16, 24, 32, 48, 64, 128, 256})
        EXPECT_TRUE(sizes.contains(QSize(side, side))) << side;
}

TEST(Look, ItsFaceComesWithTheProgram) {
    EXPECT_EQ(LoadFaces(QCoreApplication::applicationDirPath() + u"/fonts"_s),
              QStringList(u"Liberation Sans"_s));
    const QTemporaryDir empty;
    EXPECT_EQ(LoadFaces(empty.path()), QStringList());
}

TEST(Look, AnIconIsTheSameOneEachTime) {
    EXPECT_EQ(ProgramIcon(u"patient"_s).cacheKey(), ProgramIcon(u"patient"_s).cacheKey());
    EXPECT_NE(ProgramIcon(u"patient"_s).cacheKey(), ProgramIcon(u"assess"_s).cacheKey());
}

TEST(Look, TheIconOfASelectedRowStandsOutFromItsColour) {
    const QImage icon = ProgramIcon(u"patient"_s).pixmap(24, QIcon::Selected).toImage();
    const QColor shoulder = icon.pixelColor(icon.width() / 2, icon.height() * 4 / 5);
    EXPECT_GE(Contrast(shoulder, QApplication::palette().color(QPalette::Highlight)), 4.5);
}

} // namespace
