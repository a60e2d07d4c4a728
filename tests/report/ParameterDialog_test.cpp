#include "report/viewer/ParameterDialog.h"
#include "support/ScreenTest.h"
#include "toolkit/DatePicker.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class ParameterDialogTest : public ScreenTest {
  protected:
    /// Runs what the clerk does when the dialogue asks, and answers what the dialogue does.
    bool Ask(const std::function<void(QWidget&)>& clerk) {
        QTimer::singleShot(0, qApp, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(dialog && dialog->objectName() == u"ReportParameters"_s);
            Activate(*dialog);
            clerk(*dialog);
        });
        return AskUnsetParameters(fields, nullptr);
    }

    static void PressOk(QWidget& dialog) {
        Click(*Find<QDialogButtonBox>(dialog, "Buttons").button(QDialogButtonBox::Ok));
    }

    static QString Complaint(QWidget& dialog) { return Find<QLabel>(dialog, "lblComplaint").text(); }

    std::vector<ParameterField> fields = {
        ParameterField({u"Start"_s, FieldValueType::Date, u"First day"_s, {}}),
        ParameterField({u"Name"_s, FieldValueType::String, u"Name"_s, {}}),
        ParameterField({u"Least"_s, FieldValueType::Number, u"Least amount"_s, {}})};
};

} // namespace

TEST_F(ParameterDialogTest, AsksOnlyForWhatHasNoValue) {
    fields[0].SetCurrentValue(DateTime());
    fields[2].SetCurrentValue(5);
    EXPECT_TRUE(Ask([](QWidget& dialog) {
        EXPECT_EQ(dialog.findChildren<QLineEdit*>().size(), 1);
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtName").accessibleName(), u"Name"_s);
        Type(Find<QLineEdit>(dialog, "txtName"), u"PEÑA"_s);
        PressOk(dialog);
    }));
    EXPECT_EQ(fields[1].CurrentValue(), Value(u"PEÑA"_s));
}

TEST_F(ParameterDialogTest, AsksNothingWhereAllHaveValues) {
    for (ParameterField& field : fields)
        field.SetCurrentValue(1);
    EXPECT_TRUE(AskUnsetParameters(fields, nullptr));
}

TEST_F(ParameterDialogTest, TakesValuesAsTheirTypes) {
    EXPECT_TRUE(Ask([](QWidget& dialog) {
        Type(Find<QLineEdit>(dialog, "txtStart"), u"11/21/2026"_s);
        Type(Find<QLineEdit>(dialog, "txtLeast"), u"1,250.50"_s);
        Press(Find<QLineEdit>(dialog, "txtLeast"), Qt::Key_Return);
    }));
    EXPECT_EQ(fields[0].CurrentValue(), Value(DateTime::FromFields({2026, 11, 21, 0, 0, 0, 0}).value()));
    EXPECT_EQ(fields[1].CurrentValue(), Value(QString()));
    EXPECT_EQ(fields[2].CurrentValue(), Value(1250.5));
}

TEST_F(ParameterDialogTest, StaysOnADateThatIsNone) {
    EXPECT_FALSE(Ask([](QWidget& dialog) {
        Type(Find<QLineEdit>(dialog, "txtStart"), u"13/45/2026"_s);
        PressOk(dialog);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(Complaint(dialog), u"Please enter a date such as 12/31/2026."_s);
        EXPECT_TRUE(Find<QLineEdit>(dialog, "txtStart").hasFocus());
        Press(dialog, Qt::Key_Escape);
    }));
    EXPECT_FALSE(fields[0].CurrentValue().has_value());
}

TEST_F(ParameterDialogTest, TakesADateAsItIsWrittenAndNoneThatMightBeAnotherOne) {
    fields[2].SetCurrentValue(5);
    EXPECT_TRUE(Ask([](QWidget& dialog) {
        auto& day = Find<DatePicker>(dialog, "txtStart");
        for (const QString& text : {QString(), u"8/1/26"_s, u"13/8/2026"_s}) {
            Type(day, text);
            PressOk(dialog);
            EXPECT_TRUE(dialog.isVisible()) << text.toStdString();
            EXPECT_TRUE(day.hasFocus());
            EXPECT_EQ(day.text(), text);
        }
        Type(day, u"8/1/2026"_s);
        PressOk(dialog);
    }));
    EXPECT_EQ(fields[0].CurrentValue(), Value(DateTime::FromFields({2026, 8, 1, 0, 0, 0, 0}).value()));
}

TEST_F(ParameterDialogTest, StaysOnANumberThatIsNoneAndTakesNothingOver) {
    EXPECT_FALSE(Ask([](QWidget& dialog) {
        Type(Find<QLineEdit>(dialog, "txtStart"), u"11/21/2026"_s);
        Type(Find<QLineEdit>(dialog, "txtLeast"), u"many"_s);
        PressOk(dialog);
        EXPECT_EQ(Complaint(dialog), u"Please enter a number."_s);
        Press(dialog, Qt::Key_Escape);
    }));
    EXPECT_FALSE(fields[0].CurrentValue().has_value());
}
