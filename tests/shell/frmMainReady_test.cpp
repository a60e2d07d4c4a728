#include "components/shared.h"
#include "maintenance/commands.h"
#include "shell/frmMain.h"
#include "support/ScreenTest.h"
#include "toolkit/Form.h"
#include "toolkit/Screens.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QToolButton>

#include <set>

using namespace Qt::StringLiterals;

// The screens that stand ready: complete, with no way in.

namespace {

/// The main window, whose every entry is chosen, and the screens that come up.
class frmMainReadyTest : public ScreenTest {
  protected:
    frmMainReadyTest() {
        gIniPath = programDirectory.path() + u"\\tarvenaux.ini"_s;
        QFile file(programDirectory.filePath(u"tarvenaux.ini"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        Activate(window);
        // A modal screen holds up whoever opened it.
        QObject::connect(&closing, &QTimer::timeout, &closing, [this] {
            if (auto* screen = qobject_cast<Form*>(QApplication::activeModalWidget())) {
                opened.insert(screen->objectName());
                screen->Unload();
            }
        });
        closing.start();
    }
    ~frmMainReadyTest() override { Screens::Clear(); }

    /// Chooses every item of the menus and of the toolbar's dropdowns, the disabled ones too.
    void ChooseEveryItem() {
        for (QAction* item : window.findChildren<QAction*>()) {
            if (item->objectName() == u"mnuExit"_s)
                continue;
            if (item->objectName() == u"mnuReportStatus"_s)
                ExpectAssessments();
            item->trigger();
            Note();
        }
    }
    void PressEveryButton() {
        for (QToolButton* button : window.findChildren<QToolButton*>()) {
            if (!button->objectName().isEmpty() && button->popupMode() != QToolButton::InstantPopup)
                button->click();
            Note();
        }
    }
    void Note() {
        for (const QWidget* widget : QApplication::allWidgets()) {
            if (widget->isVisible() && qobject_cast<const Form*>(widget))
                opened.insert(widget->objectName());
        }
        EXPECT_TRUE(Screens::UnloadAll());
    }

    frmMain window;
    std::set<QString> opened;

  private:
    void ExpectAssessments() {
        gateway.Expect(AssessmentStatusCommand(QString()),
                       Rows({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s}));
        messages.Expect({.text = u"Are you sure to close this program?"_s,
                         .icon = MsgIcon::Question,
                         .title = u"OPD Registration System"_s,
                         .buttons = MsgButtons::OkCancel});
    }

    QTimer closing;
};

TEST_F(frmMainReadyTest, NoItemAndNoButtonOpensAScreenThatStandsReady) {
    ChooseEveryItem();
    EXPECT_EQ(opened, (std::set<QString>{u"frmAbout"_s, u"frmAssessStatus"_s, u"frmAssessment"_s,
                                         u"frmCensus"_s, u"frmLedger"_s, u"frmListCharges"_s,
                                         u"frmPostCharges"_s, u"frmReportRange"_s, u"frmSetup"_s}));
    opened.clear();
    PressEveryButton();
    EXPECT_EQ(opened, (std::set<QString>{u"frmAssessment"_s}));
    EXPECT_FALSE(window.findChild<QAction*>(u"mnuDuplicate"_s)->isEnabled()) << "the way to the re-print";
}

} // namespace
