#pragma once

#include "report/template/ReportTemplate.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <QStringView>

#include <array>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

/// The face of a style with its measures in points, the same for screen, printer and PDF. Widths are sums of
/// the characters' own advances: pages are broken before anything is painted, and every device paints them
/// alike.
class ReportFont {
  public:
    explicit ReportFont(const CellStyle& style);

    double Ascent() const { return mAscent; }
    /// From one line's baseline to the next.
    double LineHeight() const { return mLineHeight; }
    double Width(QStringView text) const;
    /// The width of the widest among digits and the signs that stand with them.
    double WidestDigit() const { return mWidestDigit; }

    /// A quick look at whether the text stays on one line in that width. False where only Wraps can tell.
    bool SurelyFits(QStringView text, double width) const;
    /// Whether the text takes more than one line in that width.
    bool Wraps(const QString& text, double width) const;
    /// The text in lines no wider than that: broken at blanks, and within a word that is itself too wide.
    std::vector<QString> Wrap(const QString& text, double width) const;

    /// The face for painting with a painter in points, in the next whole size: the toolkit paints no others.
    const QFont& Painted() const { return mPainted; }
    /// How far what is painted in that face has to be scaled to have the style's size; at most 1.
    double PaintScale() const { return mSize / mPainted.pixelSize(); }

  private:
    void WrapParagraph(QStringView paragraph, double width, std::vector<QString>& lines) const;
    qsizetype FittingLength(QStringView text, double width) const;

    /// Latin letters, with those of the hospital's languages among them; others are measured one text at a
    /// time.
    static constexpr size_t kTableSize = 0x180;
    static constexpr double kUnits = 1024;
    static constexpr quint32 kNever = 1U << 24;

    double mSize;
    QFont mPainted;
    QFontMetricsF mMetrics;
    std::array<double, kTableSize> mAdvances{};
    /// The same in kUnits to the point, rounded up, and kNever for what must be looked at more closely; the
    /// last stands for every character beyond the table.
    std::array<quint32, kTableSize + 1> mBounds{};
    double mAscent = 0;
    double mLineHeight = 0;
    double mWidestDigit = 0;
};

/// The text as it is laid out: tabs are blanks, a line's end is one line feed, and the other control
/// characters, which would paint as boxes, are left out.
QString WithoutControls(const QString& text);

/// The faces that one reader of reports has needed, each measured once. They belong to the thread that
/// measures them; faces that it has handed out live as long as it does.
class ReportFonts {
  public:
    const ReportFont& Of(const CellStyle& style);

  private:
    using Key = std::tuple<QStringList, double, bool, bool>;
    std::map<Key, std::unique_ptr<ReportFont>> mFonts;
};
