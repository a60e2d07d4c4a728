#include "support/PrintQt.h"
#include "support/process/FileLocks.h"
#include "support/smallhospital/SmallHospital.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/UserSettings.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
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

/// Waits until the dialogue has looked at every file of its folder, which has a slip in it. The slip is what
/// its list shows; it looks at all of them.
void AwaitLookAtFiles(const QFileDialog& dialog) {
    const auto* files = dialog.findChild<QFileSystemModel*>();
    ASSERT_NE(files, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const QModelIndex folder = files->index(dialog.directory().path());
        return files->rowCount(folder) == 1 && !files->type(files->index(0, 0, folder)).isEmpty();
    }));
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

TEST(FileDialogs, BeginInTheFolderThatWasSavedIntoLastAndAtHomeWhenItIsGone) {
    QString kept;
    {
        const QTemporaryDir folder;
        AskAndDo([&folder](QFileDialog& dialog) {
            dialog.setDirectory(folder.path());
            dialog.findChild<QLineEdit*>()->setText(folder.filePath(u"slip.pdf"_s));
            static_cast<QDialog&>(dialog).accept();
        });
        kept = UserSettings().value(u"SaveFolder"_s).toString();
        EXPECT_EQ(kept, folder.path());
        AskAndDo([&folder](QFileDialog& dialog) { EXPECT_EQ(dialog.directory().path(), folder.path()); });
    }
    AskAndDo([](QFileDialog& dialog) { EXPECT_EQ(dialog.directory().path(), QDir::homePath()); });
}

// The system drops a process's locks on a file when the process closes any handle on it.
TEST(FileDialogs, TheFolderInWhichTheyBeginIsNoChoiceAndNotKept) {
    UserSettings().remove(u"SaveFolder"_s);
    const auto save = [](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(u"slip of nobody.pdf"_s);
        static_cast<QDialog&>(dialog).accept();
    };
    EXPECT_EQ(AskAndDo(save), QDir::home().filePath(u"slip of nobody.pdf"_s));
    EXPECT_FALSE(UserSettings().contains(u"SaveFolder"_s));
}

TEST(FileDialogs, TheWindowOpensNoFileOfTheFolderThatItShows) {
    SmallHospital hospital;
    hospital.Gateway().Execute(u"select * from Clinical_Area..tbSlip"_s);
    const QString folder = QFileInfo(hospital.Path()).path();
    QFile slip(folder + u"/old_slip.pdf"_s);
    ASSERT_TRUE(slip.open(QIODevice::WriteOnly));
    ASSERT_TRUE(IsHeldOpen(hospital.Path()));
    AskAndDo([&](QFileDialog& dialog) {
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        dialog.setDirectory(folder);
        AwaitLookAtFiles(dialog);
        EXPECT_TRUE(IsHeldOpen(hospital.Path())) << "the clerk goes to the hospital's folder";
        static_cast<QDialog&>(dialog).accept();
    });
    AskAndDo([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder) << "where the clerk saved last";
        AwaitLookAtFiles(dialog);
    });
    EXPECT_TRUE(IsHeldOpen(hospital.Path())) << "the window begins in the hospital's folder";
}

TEST(FileDialogs, AnAnswerTakesThePlaceOfTheDialogue) {
    const auto saving = SaveDialogSeam().Replace([](QWidget*, const QString&, const QString& name,
                                                    const QString&) { return u"/somewhere/"_s + name; });
    EXPECT_EQ(AskSaveFile(nullptr, {}, u"a.csv"_s, {}), u"/somewhere/a.csv"_s);
}

} // namespace
