#include "OutputGround.h"
#include "reporting/ChoosePrinter.h"

#include <QPrinter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ChoosePrinter, HandsOverAPrinterSetUpForThePaper) {
    QPrinter printer(QPrinter::HighResolution);
    QSizeF paper;
    SetPrinterChooser([&paper](QPrinter& offered) {
        paper = offered.pageLayout().fullRect(QPageLayout::Millimeter).size();
        return false;
    });
    EXPECT_FALSE(ChoosePrinter(*NumberedReport(1), printer, nullptr));
    SetPrinterChooser({});
    EXPECT_NEAR(paper.width(), 100, 0.5);
    EXPECT_NEAR(paper.height(), 100, 0.5);
}
