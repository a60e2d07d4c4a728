#include "manual/Manual.h"

#include <QApplication>
#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFont>
#include <QHashSeed>
#include <QImage>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <cstdio>

using namespace Qt::StringLiterals;

// Writes the clerk's manual as one PDF, from the pages that the program shows: manual-pdf <file>.

namespace {

constexpr int kPointSize = 10;
constexpr int kResolution = 300;
/// Between the margins of a sheet, in pixels of 96 to an inch.
constexpr int kTextWidth = 600;

/// All pages, whose pictures lie beside them.
class WholeManual : public QTextDocument {
  protected:
    QVariant loadResource(int type, const QUrl& name) override {
        return type == QTextDocument::ImageResource
                   ? QVariant(QImage(QLatin1StringView(kManualFolder) + name.toString()))
                   : QTextDocument::loadResource(type, name);
    }
};

QString AllPages() {
    QStringList pages;
    for (const ManualPage& page : ManualPages())
        pages << ShownMarkdown(page.markdown);
    return pages.join(u"\n\n"_s);
}

/// A page of the manual begins on a sheet of its own.
void BreakBeforePages(QTextDocument& manual) {
    for (QTextBlock block = manual.begin().next(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (format.headingLevel() != 1)
            continue;
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
    }
}

void FitPictures(QTextDocument& manual) {
    for (QTextBlock block = manual.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            QTextImageFormat picture = fragment.charFormat().toImageFormat();
            if (!picture.isValid())
                continue;
            const auto image =
                manual.resource(QTextDocument::ImageResource, QUrl(picture.name())).value<QImage>();
            if (image.width() <= kTextWidth)
                continue;
            picture.setWidth(kTextWidth);
            picture.setHeight(double(kTextWidth) * image.height() / image.width());
            QTextCursor cursor(&manual);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(picture);
            // The block's parts are others now.
            break;
        }
    }
}

/// In a package the file tells the moment that the package tells, not the one of its making.
void TellMomentOfTheRelease(QByteArray& pdf) {
    bool isTold = false;
    const qint64 seconds = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&isTold);
    const QByteArray mark = "/CreationDate (D:";
    const qsizetype at = pdf.indexOf(mark);
    if (!isTold || at < 0)
        return;
    const QString moment = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(u"yyyyMMddHHmmss'Z'"_s);
    pdf.replace(at + mark.size(), moment.size(), moment.toLatin1());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: manual-pdf <file>\n");
        return 2;
    }
    // The same pages make the same bytes each time.
    QHashSeed::setDeterministicGlobalSeed();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    WholeManual manual;
    manual.setDefaultFont(QFont(QStringList{u"Liberation Sans"_s, u"DejaVu Sans"_s}, kPointSize));
    manual.setMarkdown(AllPages());
    BreakBeforePages(manual);
    FitPictures(manual);
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setTitle(ManualPages().front().title);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setResolution(kResolution);
    manual.print(&writer);
    TellMomentOfTheRelease(pdf.buffer());
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (file.open(QIODevice::WriteOnly) && file.write(pdf.buffer()) == pdf.size() && file.flush())
        return 0;
    std::fprintf(stderr, "manual-pdf: %s: %s\n", argv[1], qPrintable(file.errorString()));
    return 1;
}
