#include "workstation/ClerkKeys.h"

#include <QMessageBox>

#include <cstdio>

using namespace Qt::StringLiterals;

void Tell(const QString& what) {
    std::printf("%s\n", qPrintable(what));
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

void ReadFailure(Driver& clerk) {
    clerk.ExpectScreen(u"Failure"_s);
    clerk.OnScreen([] {
        const auto* box = qobject_cast<QMessageBox*>(&VisibleControl(u"Failure"_s));
        Tell(box->text().simplified());
        std::fflush(stdout);
    });
    clerk.Press(Qt::Key_Return);
}

void Key(Driver& clerk, const QStringList& texts) {
    for (const QString& text : texts) {
        clerk.Type(text);
        clerk.Press(Qt::Key_Return);
    }
}
