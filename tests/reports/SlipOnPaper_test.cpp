#include "report/output/PrintJob.h"
#include "reports/SlipGround.h"
#include "support/cups/CupsServer.h"
#include "text/RunTimeError.h"

#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

#include <map>
#include <optional>

using namespace Qt::StringLiterals;

// What comes out of a printer, through the machine's own print system.

namespace {

/// A word on a printed page, in points from the sheet's top left corner.
using Words = std::map<QString, QRectF>;

struct Paper {
    QSizeF sheet;
    Words words;
};

QString Told(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

Paper Read(const QString& file) {
    const QString told = Told(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s});
    static const QRegularExpression kPage(u"<page width=\"([\\d.]+)\" height=\"([\\d.]+)\""_s);
    static const QRegularExpression kWord(
        u"<word xMin=\"([\\d.-]+)\" yMin=\"([\\d.-]+)\" xMax=\"([\\d.-]+)\" yMax=\"([\\d.-]+)\">([^<]*)<"_s);
    Paper paper;
    const auto page = kPage.match(told);
    paper.sheet = {page.captured(1).toDouble(), page.captured(2).toDouble()};
    auto words = kWord.globalMatch(told);
    while (words.hasNext()) {
        const auto word = words.next();
        const auto number = [&word](int i) { return word.captured(i).toDouble(); };
        paper.words[word.captured(5)] = {QPointF(number(1), number(2)), QPointF(number(3), number(4))};
    }
    return paper;
}

class SlipOnPaper : public SlipGround {
  protected:
    void SetUp() override {
        if (const QString missing = CupsServer::Missing(); !missing.isEmpty())
            GTEST_SKIP() << "the machine has no " << missing.toStdString();
        server.emplace();
        ASSERT_TRUE(server->IsRunning());
        SetLines({{u"HC"_s, u"HD001"_s, u"HEMODIALYSIS"_s, u"1"_s, u"3500.0000"_s}});
        TextOf(u"Charge_Slip.RPT"_s,
               {u"H1042C"_s, u"11/21/2026"_s, u"DELA CRUZ, JUAN"_s, u"100482"_s, u"20387"_s, u"204-B"_s,
                u"10:30:15 AM"_s, u"A-5521"_s, u"STATION"_s, u"REYES, ANA"_s});
    }

    Paper PrintedOn(const QString& name, const QStringList& papers) {
        server->AddQueue(name, papers);
        QPrinter printer(QPrinter::HighResolution);
        printer.setPrinterName(name);
        PrintReport(printer);
        const QString file = server->Printed(name);
        // To look at the paper: TARVEN_REPORT_PDF names a folder.
        if (qEnvironmentVariableIsSet("TARVEN_REPORT_PDF"))
            QFile::copy(file, qEnvironmentVariable("TARVEN_REPORT_PDF") + u'/' + name + u".pdf"_s);
        return Read(file);
    }

    std::optional<CupsServer> server;
};

/// The slip's first word and its last ones, as its template has them on a page of its own.
void ExpectTheWholeSlip(const Paper& paper) {
    const QRectF ink(CupsServer::kEdge, CupsServer::kEdge, paper.sheet.width() - 2 * CupsServer::kEdge,
                     paper.sheet.height() - 2 * CupsServer::kEdge);
    for (const QString& word :
         {u"SAMPAGUITA"_s, u"H1042C"_s, u"DELA"_s, u"3,500.00"_s, u"REYES,"_s, u"Received"_s}) {
        const auto found = paper.words.find(word);
        ASSERT_NE(found, paper.words.end()) << word.toStdString();
        EXPECT_TRUE(ink.contains(found->second.adjusted(1, 1, -1, -1))) << word.toStdString();
    }
}

} // namespace

TEST_F(SlipOnPaper, StandsUprightAtTheTopLeftOfAnA4Sheet) {
    const Paper paper = PrintedOn(u"Office"_s, {u"A4"_s});
    EXPECT_EQ(paper.sheet, QSizeF(595, 842));
    ExpectTheWholeSlip(paper);
    const QRectF first = paper.words.at(u"SAMPAGUITA"_s);
    const QRectF last = paper.words.at(u"Received"_s);
    EXPECT_GT(first.width(), 3 * first.height()) << "upright";
    EXPECT_NEAR(first.left(), 28, 3);
    EXPECT_LT(first.top(), 40);
    EXPECT_LT(last.bottom(), 400) << "within the sheet's upper half";
    EXPECT_NEAR(paper.words.at(u"H1042C"_s).right(), 28 + 555, 3) << "in its own size";
}

TEST_F(SlipOnPaper, FillsASheetOfHalfALetterThatLiesInThePrinter) {
    const Paper paper = PrintedOn(u"Slips"_s, {u"Statement"_s, u"Letter"_s});
    EXPECT_EQ(paper.sheet, QSizeF(396, 612));
    ExpectTheWholeSlip(paper);
    const QRectF first = paper.words.at(u"SAMPAGUITA"_s);
    const QRectF number = paper.words.at(u"H1042C"_s);
    EXPECT_NEAR(std::abs(number.center().y() - first.center().y()), 520, 60) << "along the long edge";
}

TEST_F(SlipOnPaper, TakesItsOwnPaperWhereThePrinterHasSeveral) {
    EXPECT_EQ(PrintedOn(u"Slips"_s, {u"Letter"_s, u"A4"_s, u"Statement"_s}).sheet, QSizeF(396, 612));
}

TEST_F(SlipOnPaper, IsMadeSmallerOnASheetThatIsTooNarrow) {
    const Paper paper = PrintedOn(u"Small"_s, {u"A5"_s});
    ExpectTheWholeSlip(paper);
}

TEST_F(SlipOnPaper, RaisesAPrintersErrorWhereThePrinterIsGone) {
    server->AddQueue(u"Office"_s, {u"A4"_s});
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(u"Office"_s);
    server->RemoveQueue(u"Office"_s);
    EXPECT_EQ(TextOfFailure([&printer] { PrintReport(printer); }),
              u"The printer \"Office\" is not there any more."_s);
}

TEST_F(SlipOnPaper, RaisesAPrintersErrorWhereThereIsNone) {
    QPrinter printer(QPrinter::HighResolution);
    EXPECT_EQ(TextOfFailure([&printer] { PrintReport(printer); }), u"There is no printer on this machine."_s);
}
