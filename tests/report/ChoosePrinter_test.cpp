#include "OutputGround.h"
#include "report/output/ChoosePrinter.h"
#include "support/cups/CupsServer.h"
#include "support/process/FileLocks.h"
#include "support/smallhospital/SmallHospital.h"

#include <QApplication>
#include <QCompleter>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ChoosePrinter, HandsOverAPrinterSetUpForThePaper) {
    QPrinter printer(QPrinter::HighResolution);
    QSizeF paper;
    const auto printing = PrintDialogSeam().Replace([&paper](QPrinter& offered, int, QWidget*) {
        paper = offered.pageLayout().fullRect(QPageLayout::Millimeter).size();
        return false;
    });
    EXPECT_FALSE(ChoosePrinter(*NumberedReport(1), printer, nullptr));
    EXPECT_NEAR(paper.width(), 100, 0.5);
    EXPECT_NEAR(paper.height(), 100, 0.5);
}

// The system drops a process's locks on a file when the process closes any handle on it.
TEST(ChoosePrinter, TheWindowOpensNoFileOfTheHospitalsFolder) {
    if (const QString missing = CupsServer::Missing(); !missing.isEmpty())
        GTEST_SKIP() << "the machine has no " << missing.toStdString();
    CupsServer server;
    server.AddQueue(u"Office"_s, {u"A4"_s});
    SmallHospital hospital;
    hospital.Gateway().Execute(u"select * from Clinical_Area..tbSlip"_s);
    ASSERT_TRUE(IsHeldOpen(hospital.Path()));
    QTimer::singleShot(0, qApp, [] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        for (const auto* box : dialog->findChildren<QLineEdit*>())
            EXPECT_FALSE(box->isVisible() && box->completer()) << "it looks into the folder that is typed";
        dialog->reject();
    });
    QPrinter printer(QPrinter::HighResolution);
    EXPECT_FALSE(ChoosePrinter(*NumberedReport(1), printer, nullptr));
    EXPECT_TRUE(IsHeldOpen(hospital.Path()));
}
