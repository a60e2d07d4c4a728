#include "support/PrintQt.h"
#include "toolkit/FileDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Opens the dialogue and lets the action answer it.
QString AskAndDo(const std::function<void(QFileDialog&)>& action) {
    QTimer::singleShot(0, qApp, [&action] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    return AskSaveFile(nullptr, u"Save as PDF"_s, u"Charge_Slip.pdf"_s, u"PDF (*.pdf)"_s);
}

TEST(FileDialogs, GivingUpAnswersNothing) {
    EXPECT_EQ(AskAndDo([](QFileDialog& dialog) {
                  EXPECT_EQ(dialog.windowTitle(), u"Save as PDF"_s);
                  EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
                  EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(), u"Charge_Slip.pdf"_s);
                  dialog.reject();
              }),
              QString());
}

TEST(FileDialogs, ANameWithoutAnEndingGetsTheSuggestedOne) {
    const QTemporaryDir folder;
    EXPECT_EQ(AskAndDo([&folder](QFileDialog& dialog) {
                  dialog.setDirectory(folder.path());
                  dialog.findChild<QLineEdit*>()->setText(folder.filePath(u"slip"_s));
                  static_cast<QDialog&>(dialog).accept();
              }),
              folder.filePath(u"slip.pdf"_s));
}

TEST(FileDialogs, AnAnswerTakesThePlaceOfTheDialogue) {
    SetSaveFileAnswer([](const QString& name) { return u"/somewhere/"_s + name; });
    EXPECT_EQ(AskSaveFile(nullptr, {}, u"a.csv"_s, {}), u"/somewhere/a.csv"_s);
    SetSaveFileAnswer(nullptr);
}

} // namespace
