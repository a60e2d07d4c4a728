#include "shell/frmSetup.h"

#include "shell/ConfigFile.h"
#include "toolkit/Controls.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Twips.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include <exception>

using namespace Qt::StringLiterals;

frmSetup::frmSetup() {
    Layout();
    Wire();
}

void frmSetup::Layout() {
    setObjectName(u"frmSetup"_s);
    setWindowTitle(u"Setup"_s);
    txtDeptCode = NewTextBox(u"txtDeptCode"_s, this);
    txtDeptDesc = NewTextBox(u"txtDeptDesc"_s, this);
    txtDeptDesc->setMinimumWidth(TwipsToPixels(3600));
    // Kept: the button and the box below it stand there without an effect in this release.
    cmdSelDepartment = NewButton(u"cmdSelDepartment"_s, u"&Select Department"_s, this);
    chkOneInstance = new QCheckBox(u"Allow only one program instance to run."_s, this);
    chkOneInstance->setObjectName(u"chkOneInstance"_s);
    cmdOK = NewButton(u"cmdOK"_s, u"&OK"_s, this);
    cmdCancel = NewButton(u"cmdCancel"_s, u"&Cancel"_s, this);

    auto* grid = new QGridLayout(this);
    AddLabelled(*grid, 0, 0, u"Department Code:"_s, txtDeptCode);
    AddLabelled(*grid, 1, 0, u"Department Name:"_s, txtDeptDesc);
    grid->addWidget(cmdSelDepartment, 0, 2);
    grid->addWidget(chkOneInstance, 2, 1, 1, 2);
    grid->addLayout(RightAligned({cmdOK, cmdCancel}), 3, 0, 1, 3);
    SetTabOrder({txtDeptCode, txtDeptDesc, cmdSelDepartment, chkOneInstance, cmdOK, cmdCancel});
    txtDeptCode->setFocus();
}

void frmSetup::Wire() {
    connect(cmdOK, &QPushButton::clicked, this, &frmSetup::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &Form::Unload);
}

void frmSetup::Form_Load() {
    QString value;
    ReadConfigValue(u"DeptCode"_s, value);
    txtDeptCode->setText(value);
    ReadConfigValue(u"DeptDesc"_s, value);
    txtDeptDesc->setText(value);
}

void frmSetup::cmdOK_Click() {
    try {
        ResetConfigFile();
        AppendConfigValue(u"DeptCode"_s, txtDeptCode->text());
        AppendConfigValue(u"DeptDesc"_s, txtDeptDesc->text());
        Unload();
    } catch (const std::exception& error) {
        // Kept: nothing stands between the two texts, and the second one ends with a blank.
        MsgBox({.text = QString::fromUtf8(error.what()) + u"Cannot Save. You may not have rights. "_s});
    }
}
