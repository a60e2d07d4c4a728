#include "torture/FootprintGraph.h"

#include "torture/Flatness.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// In the picture's own units.
constexpr int kWidth = 900;
constexpr int kStrip = 64;
constexpr int kCurve = 44;
constexpr int kLeft = 210;
constexpr int kRight = 150;
constexpr int kFoot = 28;
constexpr int kCurveWidth = kWidth - kLeft - kRight;

/// What the figure is where it begins to be judged, and at the end.
QString FromTo(const Footprint::Figure& figure, const std::vector<double>& series) {
    const int decimals = figure.perUnit == Footprint::kMegabyte ? 1 : 0;
    const auto number = [&](double value) { return QString::number(value / figure.perUnit, 'f', decimals); };
    return u"%1 to %2 %3"_s
        .arg(number(series[Flatness::Beginning(series.size())]), number(series.back()), figure.unit)
        .trimmed();
}

QString Words(double x, double y, QStringView anchor, const QString& words) {
    return u"<text x=\"%1\" y=\"%2\" text-anchor=\"%3\">%4</text>\n"_s.arg(x).arg(y).arg(anchor, words);
}

/// A strip begins at zero: a curve that fills it shows noise as if it were growth.
QString Curve(const std::vector<double>& series, double top) {
    const double most = std::max(1.0, *std::ranges::max_element(series));
    const double step = double(kCurveWidth) / double(std::max<size_t>(1, series.size() - 1));
    QString points;
    for (size_t i = 0; i < series.size(); ++i)
        points += u"%1,%2 "_s.arg(kLeft + step * double(i), 0, 'f', 1)
                      .arg(top + kCurve - kCurve * series[i] / most, 0, 'f', 1);
    return u"<polyline points=\"%1\" fill=\"none\" stroke=\"#1f5f8b\" stroke-width=\"1.5\"/>\n"_s.arg(
        points.trimmed());
}

QString Ground(size_t samples, double top) {
    const double warm =
        kCurveWidth * double(Flatness::Beginning(samples)) / double(std::max<size_t>(1, samples - 1));
    const QString box = u"<rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" fill=\"%5\"/>\n"_s;
    return box.arg(kLeft).arg(top).arg(kCurveWidth).arg(kCurve).arg(u"#f4f6f8") +
           box.arg(kLeft).arg(top).arg(warm, 0, 'f', 1).arg(kCurve).arg(u"#dfe3e7");
}

QString Strip(const std::vector<Footprint::Sample>& samples, size_t which, double top) {
    const Footprint::Figure& figure = Footprint::kFigures[which];
    const std::vector<double> series = Flatness::SeriesOf(samples, which);
    const double middle = top + kCurve / 2.0 + 4;
    return Ground(series.size(), top) + Curve(series, top) +
           Words(kLeft - 10, middle, u"end", figure.what.toString()) +
           Words(kWidth - kRight + 10, middle, u"start", FromTo(figure, series));
}

} // namespace

QByteArray FootprintGraph(const std::vector<Footprint::Sample>& samples, const QString& along) {
    const int height = int(Footprint::kFigures.size()) * kStrip + kFoot;
    QString picture =
        u"<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\" font-family=\"sans-serif\" "
        "font-size=\"13\">\n<rect width=\"%1\" height=\"%2\" fill=\"white\"/>\n"_s.arg(kWidth)
            .arg(height);
    for (size_t i = 0; i < Footprint::kFigures.size(); ++i)
        picture += Strip(samples, i, double(i) * kStrip + 10);
    picture += Words(kLeft + kCurveWidth / 2.0, height - 10, u"middle", along);
    return (picture + u"</svg>\n"_s).toUtf8();
}
