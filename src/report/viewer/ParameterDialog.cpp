#include "report/viewer/ParameterDialog.h"

#include "text/IsDate.h"
#include "text/IsNumeric.h"
#include "text/RunTimeError.h"
#include "toolkit/Controls.h"
#include "toolkit/DatePicker.h"
#include "toolkit/ShowModal.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString HintOf(FieldValueType type) {
    switch (type) {
    case FieldValueType::DateTime:
        return u"mm/dd/yyyy hh:mm AM/PM"_s;
    case FieldValueType::Number:
        return u"0.00"_s;
    default:
        return {};
    }
}

QLineEdit* NewBox(const ParameterField& field, QWidget* parent) {
    const QString name = u"txt"_s + field.Name();
    if (field.ValueType() == FieldValueType::Date)
        return NewDatePicker(name, parent);
    QLineEdit* box = NewTextBox(name, parent);
    box->setPlaceholderText(HintOf(field.ValueType()));
    return box;
}

bool HoldsADate(QLineEdit& box) {
    if (auto* picker = qobject_cast<DatePicker*>(&box))
        return picker->TakeKeyed() && picker->Value();
    return IsDate(box.text());
}

Value DateIn(const QLineEdit& box) {
    const auto* picker = qobject_cast<const DatePicker*>(&box);
    return picker ? Value(*picker->Value()) : Value(Value(box.text()).ToDate());
}

} // namespace

ParameterDialog::ParameterDialog(std::vector<ParameterField*> fields, QWidget* parent)
    : QDialog(parent)
    , mComplaint(new QLabel(this)) {
    setObjectName(u"ReportParameters"_s);
    setWindowTitle(u"Report Values"_s);
    auto* column = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    for (ParameterField* field : fields) {
        QLineEdit* box = NewBox(*field, this);
        AddLabelled(*grid, grid->rowCount(), 0, field->Prompt(), box);
        mBoxes.emplace_back(field, box);
    }
    column->addLayout(grid);
    mComplaint->setObjectName(u"lblComplaint"_s);
    column->addWidget(mComplaint);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(u"Buttons"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &ParameterDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ParameterDialog::reject);
    column->addWidget(buttons);
}

void ParameterDialog::accept() {
    for (const auto& [field, box] : mBoxes) {
        if (field->TakesDates() && !HoldsADate(*box))
            return Refuse(box, u"Please enter a date such as 12/31/2026."_s);
        if (field->ValueType() == FieldValueType::Number && !IsNumeric(box->text()))
            return Refuse(box, u"Please enter a number."_s);
    }
    for (const auto& [field, box] : mBoxes) {
        const Value typed(box->text());
        if (field->TakesDates())
            field->SetCurrentValue(DateIn(*box));
        else if (field->ValueType() == FieldValueType::Number)
            field->SetCurrentValue(typed.ToDouble());
        else
            field->SetCurrentValue(typed);
    }
    QDialog::accept();
}

void ParameterDialog::Refuse(QLineEdit* box, const QString& what) {
    mComplaint->setText(what);
    box->setFocus();
    box->selectAll();
}

bool AskUnsetParameters(std::vector<ParameterField>& fields, QWidget* parent) {
    std::vector<ParameterField*> unset;
    for (ParameterField& field : fields) {
        if (!field.CurrentValue())
            unset.push_back(&field);
    }
    if (unset.empty())
        return true;
    ParameterDialog dialog(unset, parent);
    return ShowModal(dialog);
}
