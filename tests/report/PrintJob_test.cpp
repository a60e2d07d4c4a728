#include "OutputGround.h"
#include "report/output/PrintJob.h"

#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The pages that a printer of a test put into its file.
QString PrintedText(QPrinter& printer, const QString& file) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    EXPECT_EQ(PrintAtOnce(*NumberedReport(5), printer), QString());
    return TextOfPdf(file).simplified();
}

} // namespace

TEST(PrintJob, PrintsAllPages) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    EXPECT_EQ(PrintedText(printer, folder.filePath(u"a.pdf"_s)),
              u"Señora 1 Señora 2 Señora 3 Señora 4 Señora 5"_s);
}

TEST(PrintJob, PrintsTheChosenPages) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 2);
    EXPECT_EQ(PrintedText(printer, folder.filePath(u"a.pdf"_s)), u"Señora 3 Señora 4"_s);
}

TEST(PrintJob, PrintsToTheEndWhenMorePagesAreChosenThanThereAre) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(3, 99);
    EXPECT_EQ(PrintedText(printer, folder.filePath(u"a.pdf"_s)), u"Señora 5"_s);
}

TEST(PrintJob, TellsOfAPrinterThatDoesNotTakeTheReport) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(u"/no/such/folder/a.pdf"_s);
    EXPECT_FALSE(PrintAtOnce(*NumberedReport(1), printer).isEmpty());
}

namespace {

/// Counts the jobs that a printer gets.
class CountingEngine : public QPaintEngine, public QPrintEngine {
  public:
    CountingEngine(bool makesCopies, int copies)
        : QPaintEngine(AllFeatures)
        , mMakesCopies(makesCopies)
        , mCopies(copies) {}

    int jobs = 0;
    int pages = 0;

    bool begin(QPaintDevice*) override {
        ++jobs;
        ++pages;
        mState = QPrinter::Active;
        return true;
    }
    bool end() override {
        mState = QPrinter::Idle;
        return true;
    }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF&, const QTextItem&) override {}

    QVariant property(PrintEnginePropertyKey key) const override {
        if (key == PPK_SupportsMultipleCopies)
            return mMakesCopies;
        return key == PPK_CopyCount ? mCopies : QVariant();
    }
    void setProperty(PrintEnginePropertyKey, const QVariant&) override {}
    bool newPage() override {
        ++pages;
        return true;
    }
    bool abort() override { return false; }
    int metric(QPaintDevice::PaintDeviceMetric) const override { return 100; }
    QPrinter::PrinterState printerState() const override { return mState; }

  private:
    bool mMakesCopies;
    int mCopies;
    QPrinter::PrinterState mState = QPrinter::Idle;
};

class CountingPrinter : public QPrinter {
  public:
    explicit CountingPrinter(CountingEngine& engine) { setEngines(&engine, &engine); }
};

} // namespace

TEST(PrintJob, PrintsEachCopyOnAPrinterThatMakesOnlyOne) {
    for (const bool makesCopies : {false, true}) {
        CountingEngine engine(makesCopies, 3);
        CountingPrinter printer(engine);
        EXPECT_EQ(PrintAtOnce(*NumberedReport(5), printer), QString());
        EXPECT_EQ(engine.jobs, makesCopies ? 1 : 3);
        EXPECT_EQ(engine.pages, 3 * engine.jobs);
    }
}
