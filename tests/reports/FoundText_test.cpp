#include "support/Contrast.h"
#include "toolkit/Colors.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// The mark of a text that was found dyes the paper and the ink of whatever report it lies on.

namespace {

/// The colours that stand under an attribute in any template.
QSet<QString> ColorsUnder(const QString& attribute) {
    QSet<QString> colors;
    const QRegularExpression told(u"\\b"_s + attribute + u"=\"(#[0-9a-fA-F]{6})\""_s);
    QDirIterator files(u"" TARVEN_SOURCE_DIR "/Reports"_s, QDir::Files);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (const QRegularExpressionMatch& match : told.globalMatch(text))
            colors << match.captured(1);
    }
    return colors;
}

QColor Dyed(const QColor& color) {
    const QColor dye = TheColors().found;
    return QColor::fromRgbF(color.redF() * dye.redF(), color.greenF() * dye.greenF(),
                            color.blueF() * dye.blueF());
}

TEST(FoundText, CanBeReadInEveryColourOfTheReportsOnEveryGround) {
    const QSet<QString> inks = ColorsUnder(u"color"_s) + QSet<QString>{u"#000000"_s};
    const QSet<QString> grounds = ColorsUnder(u"fill"_s) + QSet<QString>{u"#ffffff"_s};
    EXPECT_GT(inks.size(), 1);
    EXPECT_GT(grounds.size(), 1);
    for (const QString& ink : inks) {
        for (const QString& ground : grounds)
            EXPECT_GE(Contrast(Dyed(QColor(ink)), Dyed(QColor(ground))), 4.5)
                << ink.toStdString() << " on " << ground.toStdString();
    }
}

} // namespace
