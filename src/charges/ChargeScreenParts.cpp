#include "charges/ChargeScreenParts.h"

#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Twips.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kGridWidth = 9500;
constexpr int kGridHeight = 2900;

} // namespace

QLineEdit* NewTotalBox(const QString& name, QWidget* parent) {
    QLineEdit* box = NewShownBox(name, parent);
    box->setAlignment(Qt::AlignRight);
    box->setMaximumWidth(TwipsToPixels(1800));
    QFont font = box->font();
    font.setBold(true);
    box->setFont(font);
    return box;
}

void FillChargeFrame(QGroupBox* frame, FlexGrid* grid, const QString& label, QLineEdit* total) {
    grid->SetStartSize({kGridWidth, kGridHeight});
    auto* sum = new QGridLayout;
    AddLabelled(*sum, 0, 1, label, total);
    sum->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(grid, 1);
    layout->addLayout(sum);
}

QPushButton* NewDoctorPicker(const QString& name, QWidget* parent) {
    return NewPicker(name, u"Pick the requesting doctor"_s, u"Pick the requesting doctor from the list"_s,
                     parent);
}
