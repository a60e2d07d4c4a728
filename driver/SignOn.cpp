#include "driver/SignOn.h"

#include "driver/Driver.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// The size of screen for which the pictures are taken.
constexpr QSize kScreenSize(1280, 740);

} // namespace

void SizeForPictures(Driver& clerk) {
    clerk.ExpectScreen(u"SignOnDialog"_s);
    clerk.OnScreen([] {
        QWidget& mainWindow = VisibleControl(u"frmMain"_s);
        mainWindow.showNormal();
        mainWindow.resize(kScreenSize);
    });
}

void KeyLogOn(Driver& clerk) {
    clerk.ExpectScreen(u"SignOnDialog"_s);
    clerk.Type(u"NURSE"_s);
    clerk.Press(Qt::Key_Tab);
    clerk.Type(u"nurse"_s);
    clerk.Press(Qt::Key_Return);
}

void SignOn(Driver& clerk) {
    KeyLogOn(clerk);
    clerk.ExpectNoScreen(u"SignOnDialog"_s);
}
