#include "report/pages/ReportFont.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// Large enough that no rounding of the font engine is left in the measures.
constexpr int kMeasuredPixels = 1000;
/// A width keyed to fit exactly shall fit in spite of the arithmetic.
constexpr double kWidthTolerance = 0.01;

QFont FaceOf(const CellStyle& style) {
    QFont font(style.families);
    font.setBold(style.bold);
    font.setItalic(style.italic);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont InPixels(QFont font, int pixels) {
    font.setPixelSize(pixels);
    return font;
}

bool BelongsToPrevious(QChar c) {
    return c.isLowSurrogate() || c.isMark();
}

bool IsControl(QChar c) {
    return c.category() == QChar::Other_Control;
}

} // namespace

QString WithoutControls(const QString& text) {
    if (std::none_of(text.begin(), text.end(), IsControl))
        return text;
    QString plain = text;
    plain.replace(u'\t', u' ');
    plain.removeIf([](QChar c) { return IsControl(c) && c != u'\n'; });
    return plain;
}

ReportFont::ReportFont(const CellStyle& style)
    : mSize(style.size)
    , mPainted(InPixels(FaceOf(style), int(std::ceil(style.size))))
    , mMetrics(InPixels(mPainted, kMeasuredPixels)) {
    const double scale = mSize / kMeasuredPixels;
    for (size_t i = u' '; i < kTableSize; ++i)
        mAdvances.at(i) = mMetrics.horizontalAdvance(QChar(ushort(i))) * scale;
    mAdvances[u'\t'] = mAdvances[u' '];
    mBounds.fill(kNever);
    for (size_t i = u' '; i < kTableSize; ++i)
        mBounds.at(i) = quint32(std::ceil(mAdvances.at(i) * kUnits));
    mAscent = mMetrics.ascent() * scale;
    mLineHeight = (mMetrics.ascent() + mMetrics.descent()) * scale;
    for (const QChar c : u"0123456789-,.()$ "_s)
        mWidestDigit = std::max(mWidestDigit, mAdvances.at(c.unicode()));
}

double ReportFont::Width(QStringView text) const {
    double width = 0;
    for (const QChar c : text) {
        if (c.unicode() >= kTableSize)
            return mMetrics.horizontalAdvance(text.toString()) * mSize / kMeasuredPixels;
        width += mAdvances[c.unicode()];
    }
    return width;
}

bool ReportFont::SurelyFits(QStringView text, double width) const {
    // Whole numbers add up without waiting for each other, which counts over the rows of a year.
    quint64 sum = 0;
    for (const QChar c : text)
        sum += mBounds[std::min<size_t>(c.unicode(), kTableSize)];
    return double(sum) <= width * kUnits;
}

bool ReportFont::Wraps(const QString& text, double width) const {
    return text.contains(u'\n') || Width(text) > width + kWidthTolerance;
}

std::vector<QString> ReportFont::Wrap(const QString& text, double width) const {
    const QString plain = WithoutControls(text);
    if (!Wraps(plain, width))
        return {plain};
    std::vector<QString> lines;
    for (const QStringView paragraph : QStringView(plain).split(u'\n'))
        WrapParagraph(paragraph, width, lines);
    return lines;
}

void ReportFont::WrapParagraph(QStringView paragraph, double width, std::vector<QString>& lines) const {
    do {
        const qsizetype length = FittingLength(paragraph, width);
        QString line = paragraph.left(length).toString();
        while (length < paragraph.size() && line.endsWith(u' '))
            line.chop(1);
        lines.push_back(line);
        paragraph = paragraph.mid(length);
    } while (!paragraph.isEmpty());
}

/// How much of the text goes into one line, the blanks at its break included.
qsizetype ReportFont::FittingLength(QStringView text, double width) const {
    double used = 0;
    qsizetype afterBlank = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        qsizetype end = i + 1;
        while (end < text.size() && BelongsToPrevious(text[end]))
            ++end;
        used += Width(text.mid(i, end - i));
        if (text[i] == u' ')
            afterBlank = end;
        else if (used > width + kWidthTolerance)
            return afterBlank > 0 ? afterBlank : (i > 0 ? i : end);
        i = end - 1;
    }
    return text.size();
}

const ReportFont& ReportFonts::Of(const CellStyle& style) {
    auto& font = mFonts[Key(style.families, style.size, style.bold, style.italic)];
    if (!font)
        font = std::make_unique<ReportFont>(style);
    return *font;
}
