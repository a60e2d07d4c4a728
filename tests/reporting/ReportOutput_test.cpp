#include "ReportFixture.h"
#include "reporting/ReportOutput.h"
#include "support/CaseName.h"

#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

std::shared_ptr<const ReportDocument> Numbered(int count) {
    std::vector<std::vector<Value>> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back({u"Señora %1"_s.arg(i)});
    return SmallDocument(u"<detail height=\"50\"><text x=\"0\" y=\"0\" width=\"90\">{A}</text></detail>"_s,
                         Rows({u"A"_s}, rows));
}

QByteArray CsvOf(const std::shared_ptr<const RowData>& rows) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"rows.csv"_s);
    EXPECT_EQ(SaveCsv(*rows, file), QString());
    return ReadFile(file);
}

/// Lets no file grow beyond a few bytes while it lives, as on a full disk.
class FullDisk {
  public:
    FullDisk() {
        signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &mBefore);
        const rlimit small{4, mBefore.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &mBefore);
        signal(SIGXFSZ, SIG_DFL);
    }

  private:
    rlimit mBefore{};
};

/// The pages that a printer of a test put into its file.
QString PrintedText(QPrinter& printer, const QString& file) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    EXPECT_EQ(Print(*Numbered(5), printer), QString());
    return TextOfPdf(file).simplified();
}

} // namespace

TEST(SavePdf, WritesEveryPageWithItsTexts) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"report.pdf"_s);
    EXPECT_EQ(SavePdf(*Numbered(5), u"Charge Slip"_s, file), QString());
    QStringList pages;
    for (const QString& page : TextOfPdf(file).split(u'\f'))
        pages << page.simplified();
    EXPECT_THAT(pages, ElementsAre(u"Señora 1 Señora 2"_s, u"Señora 3 Señora 4"_s, u"Señora 5"_s, QString()));
}

TEST(SavePdf, KeepsPaperAndTitle) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"report.pdf"_s);
    SavePdf(*Numbered(1), u"Charge Slip"_s, file);
    QProcess process;
    process.start(u"pdfinfo"_s, {file});
    process.waitForFinished();
    const QString told = QString::fromUtf8(process.readAllStandardOutput());
    EXPECT_TRUE(told.contains(u"Charge Slip"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(QRegularExpression(u"Page size: +283(\\.\\d+)? x 283"_s)))
        << told.toStdString();
}

TEST(SavePdf, TellsOfAFolderThatIsNotThere) {
    EXPECT_FALSE(SavePdf(*Numbered(1), {}, u"/no/such/folder/report.pdf"_s).isEmpty());
}

TEST(SavePdf, TellsOfAFullDiskAndLeavesTheFileThatWasThere) {
    const QTemporaryDir folder;
    const QString file = WriteFile(folder, u"report.pdf"_s, "before");
    {
        const FullDisk full;
        EXPECT_FALSE(SavePdf(*Numbered(1), {}, file).isEmpty());
    }
    EXPECT_EQ(ReadFile(file), "before");
}

TEST(SaveCsv, TellsOfAFolderThatIsNotThere) {
    EXPECT_FALSE(SaveCsv(*Rows({u"A"_s}), u"/no/such/folder/rows.csv"_s).isEmpty());
}

TEST(SaveCsv, TellsOfAFullDiskAndLeavesTheFileThatWasThere) {
    const QTemporaryDir folder;
    const QString file = WriteFile(folder, u"rows.csv"_s, "before");
    {
        const FullDisk full;
        EXPECT_FALSE(SaveCsv(*Rows({u"A"_s}), file).isEmpty());
    }
    EXPECT_EQ(ReadFile(file), "before");
}

TEST(SaveCsv, WritesHeadAndRowsAsUtf8WithItsMark) {
    EXPECT_EQ(CsvOf(Rows({u"Name"_s, u"Amount"_s, u"Date"_s}, {{u"PEÑA"_s, Decimal{u"12.5000"_s}, Value()}})),
              "\xEF\xBB\xBFName,Amount,Date\r\nPE\xC3\x91"
              "A,12.5,\r\n");
}

namespace {

struct Quoted {
    std::string name;
    QString text;
    QString csv;
};

class CsvCell : public testing::TestWithParam<Quoted> {};

} // namespace

TEST_P(CsvCell, IsQuotedWhereItMustBe) {
    EXPECT_EQ(CsvOf(Rows({u"A"_s, u"B"_s}, {{GetParam().text, 1}})),
              "\xEF\xBB\xBF" + u"A,B\r\n%1,1\r\n"_s.arg(GetParam().csv).toUtf8());
}

INSTANTIATE_TEST_SUITE_P(Texts, CsvCell,
                         testing::Values(Quoted{"Plain", u"HC 100"_s, u"HC 100"_s},
                                         Quoted{"Comma", u"DELA CRUZ, JUAN"_s, u"\"DELA CRUZ, JUAN\""_s},
                                         Quoted{"Semicolon", u"a;b"_s, u"\"a;b\""_s},
                                         Quoted{"Quote", u"3/4\" tube"_s, u"\"3/4\"\" tube\""_s},
                                         Quoted{"LineBreak", u"a\nb"_s, u"\"a\nb\""_s},
                                         Quoted{"BlankAtTheEdge", u" a"_s, u"\" a\""_s},
                                         Quoted{"Apostrophe", u"O'BRIEN"_s, u"O'BRIEN"_s}),
                         CaseName());

TEST(Print, PrintsAllPages) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    EXPECT_EQ(PrintedText(printer, folder.filePath(u"a.pdf"_s)),
              u"Señora 1 Señora 2 Señora 3 Señora 4 Señora 5"_s);
}

TEST(Print, PrintsTheChosenPages) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 2);
    EXPECT_EQ(PrintedText(printer, folder.filePath(u"a.pdf"_s)), u"Señora 3 Señora 4"_s);
}

TEST(Print, PrintsToTheEndWhenMorePagesAreChosenThanThereAre) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(3, 99);
    EXPECT_EQ(PrintedText(printer, folder.filePath(u"a.pdf"_s)), u"Señora 5"_s);
}

TEST(Print, TellsOfAPrinterThatDoesNotTakeTheReport) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(u"/no/such/folder/a.pdf"_s);
    EXPECT_FALSE(Print(*Numbered(1), printer).isEmpty());
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

TEST(Print, PrintsEachCopyOnAPrinterThatMakesOnlyOne) {
    for (const bool makesCopies : {false, true}) {
        CountingEngine engine(makesCopies, 3);
        CountingPrinter printer(engine);
        EXPECT_EQ(Print(*Numbered(5), printer), QString());
        EXPECT_EQ(engine.jobs, makesCopies ? 1 : 3);
        EXPECT_EQ(engine.pages, 3 * engine.jobs);
    }
}

TEST(ChoosePrinter, HandsOverAPrinterSetUpForThePaper) {
    QPrinter printer(QPrinter::HighResolution);
    QSizeF paper;
    SetPrinterChooser([&paper](QPrinter& offered) {
        paper = offered.pageLayout().fullRect(QPageLayout::Millimeter).size();
        return false;
    });
    EXPECT_FALSE(ChoosePrinter(*Numbered(1), printer, nullptr));
    SetPrinterChooser({});
    EXPECT_NEAR(paper.width(), 100, 0.5);
    EXPECT_NEAR(paper.height(), 100, 0.5);
}
