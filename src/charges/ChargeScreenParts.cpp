#include "charges/ChargeScreenParts.h"

#include "toolkit/Look.h"
#include "toolkit/Twips.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

QGroupBox* NewFrame(const QString& name, const QString& caption, QWidget* parent) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(name);
    return frame;
}

QLineEdit* NewTotalBox(const QString& name, QWidget* parent) {
    QLineEdit* box = NewShownBox(name, parent);
    box->setAlignment(Qt::AlignRight);
    box->setMaximumWidth(TwipsToPixels(1800));
    QFont font = box->font();
    font.setBold(true);
    box->setFont(font);
    return box;
}

QPushButton* NewDoctorPicker(const QString& name, QWidget* parent) {
    auto* button = new QPushButton(u"..."_s, parent);
    button->setObjectName(name);
    button->setAccessibleName(u"Pick the requesting doctor"_s);
    button->setToolTip(u"Pick the requesting doctor from the list"_s);
    button->setMaximumWidth(TwipsToPixels(500));
    return button;
}
