#include "toolkit/Controls.h"

#include "toolkit/DatePicker.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/TextBox.h"
#include "toolkit/Twips.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPickerWidth = 500;

} // namespace

QLineEdit* NewTextBox(const QString& name, QWidget* parent) {
    auto* box = new TextBox(parent);
    box->setObjectName(name);
    return box;
}

DatePicker* NewDatePicker(const QString& name, QWidget* parent) {
    auto* picker = new DatePicker(parent);
    picker->setObjectName(name);
    return picker;
}

QLineEdit* NewShownBox(const QString& name, QWidget* parent) {
    QLineEdit* box = NewTextBox(name, parent);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    return box;
}

QComboBox* NewCombo(const QString& name, const QStringList& entries, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->addItems(entries);
    return combo;
}

QPushButton* NewButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(name);
    return button;
}

QPushButton* NewPicker(const QString& name, const QString& purpose, const QString& tip, QWidget* parent) {
    QPushButton* picker = NewButton(name, u"..."_s, parent);
    picker->setAccessibleName(purpose);
    picker->setToolTip(tip);
    picker->setMaximumWidth(TwipsToPixels(kPickerWidth));
    return picker;
}

QLabel* NewHeading(const QString& text, QWidget* parent) {
    auto* heading = new QLabel(text, parent);
    heading->setProperty("heading", true);
    return heading;
}

QGroupBox* NewFrame(const QString& name, const QString& caption, QWidget* parent) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(name);
    return frame;
}

FlexGrid* NewList(const QString& name, const QString& spoken, const QSize& startTwips, QWidget* parent) {
    auto* list = new FlexGrid(parent);
    list->setObjectName(name);
    list->setAccessibleName(spoken);
    list->SetRowSelect(true);
    list->SetStartSize(startTwips);
    return list;
}

QLabel* AddLabelled(QGridLayout& grid, int row, int column, const QString& label, QWidget* input) {
    auto* text = new QLabel(label, input->parentWidget());
    text->setBuddy(input);
    text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QString spoken = label;
    input->setAccessibleName(spoken.remove(u'&'));
    grid.addWidget(text, row, column);
    grid.addWidget(input, row, column + 1);
    return text;
}

QHBoxLayout* RightAligned(const QList<QWidget*>& controls) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QWidget* control : controls)
        row->addWidget(control);
    return row;
}

void SetTabOrder(const QList<QWidget*>& order) {
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}
