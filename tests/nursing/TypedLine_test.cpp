#include "nursing/TypedLine.h"
#include "support/ScreenTest.h"

#include <QScreen>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString kLine = u"There are pending requests."_s;

/// The line on a ground that looks different everywhere, and a label beside it that paints itself.
class TypedLineTest : public ScreenTest {
  protected:
    TypedLineTest() {
        QLinearGradient gradient(0, 0, 0, 200);
        gradient.setColorAt(0, Qt::yellow);
        gradient.setColorAt(1, Qt::blue);
        QPalette palette;
        palette.setBrush(QPalette::Window, gradient);
        window.setPalette(palette);
        window.resize(500, 200);
        SetFont(u"Courier New"_s);
        line->FitWhole();
        label.setFixedSize(line->size());
        Move({20, 30});
        Activate(window);
    }

    void SetFont(const QString& family) {
        QFont font(family);
        font.setStyleHint(QFont::TypeWriter);
        line->setFont(font);
        label.setFont(font);
    }
    void Move(QPoint place) {
        line->move(place);
        label.move(place);
    }
    QImage Look(QWidget& shown) {
        line->setVisible(&shown == line);
        label.setVisible(&shown == &label);
        return window.grab({line->pos(), line->size()}).toImage();
    }
    /// Whether the line looks as a label with these letters does.
    bool LooksTyped(qsizetype letters) {
        label.setText(kLine.left(letters));
        const QImage plain = Look(label);
        label.hide();
        line->show();
        line->Type(letters);
        return Look(*line) == plain;
    }

    /// What the display has at the line's place, painted by whomever.
    QImage OnDisplay() {
        const QRect place(line->pos(), line->size());
        return window.screen()
            ->grabWindow(window.winId(), place.x(), place.y(), place.width(), place.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }

    QWidget window;
    TypedLine* line = new TypedLine(kLine, &window);
    QLabel& label = *new QLabel(&window);
};

} // namespace

TEST_F(TypedLineTest, LooksAsALabelWithItsLettersDoes) {
    for (qsizetype letters = 0; letters <= kLine.size(); ++letters) {
        EXPECT_TRUE(LooksTyped(letters)) << letters;
        EXPECT_EQ(line->text(), kLine.left(letters));
    }
}

TEST_F(TypedLineTest, LooksAsALabelDoesAfterItsLookHasChanged) {
    const std::vector<std::function<void()>> changes{
        [this] {
            line->setForegroundRole(QPalette::Highlight), label.setForegroundRole(QPalette::Highlight);
        },
        [this] {
            Move({40, 120});
        },
        [this] { line->setFixedHeight(60), label.setFixedHeight(60); },
        [this] { line->setEnabled(false), label.setEnabled(false); },
    };
    for (size_t i = 0; i < changes.size(); ++i) {
        EXPECT_TRUE(LooksTyped(5)) << i;
        changes[i]();
        EXPECT_TRUE(LooksTyped(1)) << i;
        EXPECT_TRUE(LooksTyped(7)) << i;
    }
}

TEST_F(TypedLineTest, TakesNoPicturesBeforeItIsSeen) {
    line->hide();
    line->Type(3);
    EXPECT_FALSE(line->testAttribute(Qt::WA_OpaquePaintEvent));
    line->show();
    line->Type(4);
    EXPECT_TRUE(line->testAttribute(Qt::WA_OpaquePaintEvent));
}

TEST_F(TypedLineTest, ALetterIsOnTheDisplayAtOnceWhereverTheLineIs) {
    for (const QPoint place : {QPoint(20, 30), QPoint(60, 90)}) {
        Move(place);
        // Of each letter a picture is taken first, and shown by itself the next time.
        for (int round = 0; round < 2; ++round) {
            for (qsizetype letters = 0; letters <= kLine.size(); ++letters) {
                label.setText(kLine.left(letters));
                const QImage plain = Look(label).convertToFormat(QImage::Format_RGB32);
                Look(*line);
                RunEvents();
                line->Type(letters);
                EXPECT_EQ(OnDisplay(), plain) << letters;
            }
        }
    }
}
