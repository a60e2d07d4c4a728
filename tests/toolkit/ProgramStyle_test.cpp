#include "support/CaseName.h"
#include "support/Contrast.h"
#include "support/ScreenTest.h"
#include "toolkit/Colors.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/ListView.h"
#include "toolkit/Look.h"
#include "toolkit/ProgramStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QCommonStyle>
#include <QGridLayout>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QTest>
#include <QVBoxLayout>

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct StyledCase {
    const char* name;
    QWidget* (*make)(QWidget* parent);
};

/// A control of each kind beside a box that has the focus first.
class FocusSeenTest : public ScreenTest, public testing::WithParamInterface<StyledCase> {
  protected:
    FocusSeenTest()
        : other(NewTextBox(u"txtOther"_s, &window))
        , control(GetParam().make(&window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(other);
        layout->addWidget(control);
        other->setFocus();
        Activate(window);
    }

    QImage Picture() { return control->grab().toImage(); }

    /// A line along half of the text or of the edge at the least.
    void ExpectSeen(const QImage& without, const char* how) {
        ASSERT_TRUE(control->hasFocus()) << how;
        EXPECT_GE(PixelsApart(without, Picture(), 3), control->fontMetrics().horizontalAdvance(u"Choice"_s))
            << how;
    }

    QWidget window;
    QLineEdit* other;
    QWidget* control;
};

QWidget* NewFilledGrid(QWidget* parent) {
    auto* grid = new FlexGrid(parent);
    grid->Cells().SetTextMatrix(0, 1, u"Department"_s);
    grid->Cells().SetTextMatrix(1, 1, u"HC"_s);
    return grid;
}

QWidget* NewFilledList(QWidget* parent) {
    FlexGrid* list = NewList(u"grdTable"_s, u"List"_s, {4000, 2000}, parent);
    list->resize(list->sizeHint());
    list->Cells().Bind(Rows({u"Name"_s, u"Code"_s}, {{u"CRUZ"_s, u"1"_s}, {u"DIAZ"_s, u"2"_s}}));
    return list;
}

QWidget* NewRows(QWidget* parent) {
    auto* list = new ListView(parent);
    list->SetColumns(std::array{GridColumn{u"Name", 2000, u"Name"}});
    list->SetRows(Rows({u"Name"_s}, {{u"CRUZ"_s}, {u"DIAZ"_s}}));
    list->selectRow(0);
    return list;
}

const auto kControls = testing::Values(
    StyledCase{"Radio", [](QWidget* p) -> QWidget* { return new QRadioButton(u"Choice"_s, p); }},
    StyledCase{"CheckBox", [](QWidget* p) -> QWidget* { return new QCheckBox(u"Choice"_s, p); }},
    StyledCase{"Button", [](QWidget* p) -> QWidget* { return NewButton(u"cmdA"_s, u"Choice"_s, p); }},
    StyledCase{"Combo", [](QWidget* p) -> QWidget* { return NewCombo(u"cmbA"_s, {u"Choice"_s}, p); }},
    StyledCase{"TextBox", [](QWidget* p) -> QWidget* { return NewTextBox(u"txtA"_s, p); }},
    StyledCase{"DateBox", [](QWidget* p) -> QWidget* { return NewDatePicker(u"dtpA"_s, p); }},
    StyledCase{"WrongDateBox",
               [](QWidget* p) -> QWidget* {
                   DatePicker* picker = NewDatePicker(u"dtpA"_s, p);
                   picker->setText(u"13/13/1984"_s);
                   return picker;
               }},
    StyledCase{"Grid", NewFilledGrid}, StyledCase{"List", NewFilledList}, StyledCase{"Rows", NewRows},
    StyledCase{"EmptyGrid", [](QWidget* p) -> QWidget* { return new FlexGrid(p); }});

TEST_P(FocusSeenTest, HoweverItComes) {
    const QImage without = Picture();
    for (const Qt::FocusReason reason :
         {Qt::OtherFocusReason, Qt::MouseFocusReason, Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        other->setFocus();
        control->setFocus(reason);
        ExpectSeen(without, std::to_string(reason).c_str());
    }
    other->setFocus();
    Press(*other, Qt::Key_Tab);
    ExpectSeen(without, "Tab");
}

TEST_P(FocusSeenTest, GoesWhenAnotherControlTakesTheFocus) {
    const QImage without = Picture();
    control->setFocus();
    other->setFocus();
    EXPECT_EQ(PixelsApart(without, Picture(), 1), 0);
}

INSTANTIATE_TEST_SUITE_P(Controls, FocusSeenTest, kControls, CaseName());

TEST(Boxes, IntoWhichNobodyKeysLieFlatAndApart) {
    QWidget window;
    QLineEdit* keyed = NewTextBox(u"txtKeyed"_s, &window);
    QLineEdit* shown = NewShownBox(u"txtShown"_s, &window);
    QLineEdit* disabled = NewTextBox(u"txtDisabled"_s, &window);
    disabled->setEnabled(false);
    const auto at = [](QLineEdit* box, QPoint place) { return box->grab().toImage().pixelColor(place); };
    for (QLineEdit* box : {shown, disabled}) {
        const QPoint middle = box->rect().center();
        EXPECT_EQ(at(box, middle), TheColors().shown);
        EXPECT_EQ(at(box, {middle.x(), 0}), TheColors().shown) << "it has no edge";
    }
    EXPECT_EQ(at(keyed, keyed->rect().center()), TheColors().field);
    EXPECT_EQ(at(keyed, {keyed->width() / 2, 0}), TheColors().line);
}

TEST(Controls, BoxesListsAndButtonsAreEquallyHigh) {
    QWidget window;
    const int height = NewTextBox(u"txtA"_s, &window)->sizeHint().height();
    EXPECT_GE(height, 24) << "what a pointer hits without care";
    EXPECT_EQ(NewCombo(u"cmbA"_s, {u"Choice"_s}, &window)->sizeHint().height(), height);
    EXPECT_EQ(NewButton(u"cmdA"_s, u"Choice"_s, &window)->sizeHint().height(), height);
    EXPECT_EQ(NewDatePicker(u"dtpA"_s, &window)->sizeHint().height(), height);
    EXPECT_EQ(NewPicker(u"cmdB"_s, u"Choice"_s, {}, &window)->sizeHint().height(), height);
}

TEST(Controls, StandOnTheScaleOfSpacing) {
    QWidget window;
    const auto* grid = new QGridLayout(&window);
    EXPECT_EQ(grid->horizontalSpacing(), Space::kNormal);
    EXPECT_EQ(grid->verticalSpacing(), Space::kNormal);
    EXPECT_EQ(grid->contentsMargins(),
              QMargins(Space::kNormal, Space::kNormal, Space::kNormal, Space::kNormal));
}

TEST(PaleMark, IsSeenAndTheTextOnItCanBeRead) {
    const QPalette palette = QApplication::palette();
    EXPECT_GE(Contrast(TheColors().paleMark, palette.color(QPalette::Text)), 4.5);
    QWidget window;
    QWidget* list = NewFilledList(&window);
    const QImage picture = list->grab().toImage();
    int pixels = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            pixels += picture.pixelColor(x, y) == TheColors().paleMark ? 1 : 0;
    }
    EXPECT_GT(pixels, 500);
}

/// What is drawn, and with which palette.
class PaletteSpy : public QCommonStyle {
  public:
    void drawPrimitive(PrimitiveElement, const QStyleOption* option, QPainter*,
                       const QWidget*) const override {
        drawn.push_back(option->palette);
    }
    void drawControl(ControlElement, const QStyleOption* option, QPainter*, const QWidget*) const override {
        drawn.push_back(option->palette);
    }
    void drawComplexControl(ComplexControl, const QStyleOptionComplex* option, QPainter*,
                            const QWidget*) const override {
        drawn.push_back(option->palette);
    }

    mutable std::vector<QPalette> drawn;
};

struct DrawnCase {
    const char* name;
    void (*draw)(const QStyle& style, const QPalette& palette, QPainter& painter);
};

template <class Option> Option OptionWith(const QPalette& palette) {
    Option option;
    option.palette = palette;
    return option;
}

/// A palette of another widget's: the same colours, and a number of its own.
QPalette Another(QPalette palette) {
    palette.setResolveMask(palette.resolveMask() + 1);
    return palette;
}

class SharedPaletteTest : public testing::TestWithParam<DrawnCase> {
  protected:
    SharedPaletteTest() { style.setBaseStyle(spy); }

    QPalette Drawn(const QPalette& palette) {
        QPixmap paper(1, 1);
        QPainter painter(&paper);
        GetParam().draw(style, palette, painter);
        return spy->drawn.back();
    }

    ProgramStyle style;
    PaletteSpy* spy = new PaletteSpy;
    const QPalette first{QColor(0x11, 0x22, 0x33)};
};

TEST_P(SharedPaletteTest, WidgetsOfTheSameColoursAreDrawnWithTheSamePalette) {
    const QPalette second = Another(first);
    ASSERT_NE(first.cacheKey(), second.cacheKey());
    EXPECT_EQ(Drawn(first).cacheKey(), Drawn(second).cacheKey());
}

TEST_P(SharedPaletteTest, WidgetsOfOtherColoursKeepTheirs) {
    QPalette other = first;
    other.setColor(QPalette::Button, Qt::red);
    Drawn(first);
    EXPECT_EQ(Drawn(other).color(QPalette::Button), QColor(Qt::red));
}

TEST_P(SharedPaletteTest, DisabledWidgetsAreDrawnAsDisabled) {
    QPalette disabled = Another(first);
    disabled.setCurrentColorGroup(QPalette::Disabled);
    Drawn(first);
    EXPECT_EQ(Drawn(disabled).currentColorGroup(), QPalette::Disabled);
}

INSTANTIATE_TEST_SUITE_P(
    Drawings, SharedPaletteTest,
    testing::Values(DrawnCase{"Primitive",
                              [](const QStyle& style, const QPalette& palette, QPainter& painter) {
                                  auto option = OptionWith<QStyleOption>(palette);
                                  style.drawPrimitive(QStyle::PE_PanelMenu, &option, &painter);
                              }},
                    DrawnCase{"Control",
                              [](const QStyle& style, const QPalette& palette, QPainter& painter) {
                                  auto option = OptionWith<QStyleOptionHeader>(palette);
                                  style.drawControl(QStyle::CE_HeaderSection, &option, &painter);
                              }},
                    DrawnCase{"ComplexControl",
                              [](const QStyle& style, const QPalette& palette, QPainter& painter) {
                                  auto option = OptionWith<QStyleOptionSpinBox>(palette);
                                  style.drawComplexControl(QStyle::CC_SpinBox, &option, &painter);
                              }}),
    CaseName());

/// A floating editor with a text, and a box beside it.
TEST(FloatingEditor, IsDimmedWhereAnotherControlHasTheFocus) {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QLineEdit* editor = NewTextBox(u"txtEntry"_s, &window);
    QLineEdit* other = NewTextBox(u"txtOther"_s, &window);
    for (QLineEdit* box : {editor, other})
        layout->addWidget(box);
    editor->setFrame(false);
    editor->setProperty("floating", true);
    editor->setFocus();
    Activate(window);
    const QImage open = editor->grab().toImage();
    other->setFocus();
    const QImage dimmed = editor->grab().toImage();
    EXPECT_GE(PixelsApart(open, dimmed, 3), editor->width()) << "its frame";
    const QPoint ground(editor->width() / 2, editor->height() / 2);
    EXPECT_NE(open.pixelColor(ground), dimmed.pixelColor(ground)) << "its ground";
    EXPECT_GE(Contrast(dimmed.pixelColor(ground), TheColors().quiet), 4.5) << "its text";
}

} // namespace
