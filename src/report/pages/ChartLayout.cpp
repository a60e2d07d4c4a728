#include "report/pages/ChartLayout.h"

#include "report/pages/FormatValue.h"
#include "text/Val.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// In points: between the parts of a chart, and between two words below the axis.
constexpr double kApart = 3;
/// A bar thinner than that is none.
constexpr double kThinnest = 0.7;
/// The part of a place that its bars take.
constexpr double kBarPart = 0.72;
constexpr double kKeyWidth = 14;
/// Beyond any account, and far from what arithmetic loses.
constexpr double kLargest = 1e15;
/// About so many marks stand at the axis.
constexpr double kMarks = 5;

double NumberOf(const Value& value) {
    const auto* text = std::get_if<QString>(&value.Get());
    const bool none = value.IsNull() || std::holds_alternative<DateTime>(value.Get());
    const double number = none ? 0 : (text ? Val(*text) : value.ToDouble());
    return std::isfinite(number) ? std::clamp(number, -kLargest, kLargest) : 0;
}

/// From what to what the axis goes; zero is always among it.
struct Scale {
    double least = 0;
    double most = 0;
    double step = 1;

    double Part(double value) const { return (value - least) / (most - least); }
};

/// The next step of 1, 2 or 5 times a power of ten.
double RoundStep(double rough) {
    const double power = std::pow(10, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= rough)
            return factor * power;
    }
    return 10 * power;
}

void Include(Scale& scale, double value) {
    scale.least = std::min(scale.least, value);
    scale.most = std::max(scale.most, value);
}

/// Of each place what stands above zero and below it, one upon the other.
void IncludeStacks(Scale& scale, const ChartData& data) {
    for (size_t place = 0; place < data.labels.size(); ++place) {
        double above = 0;
        double below = 0;
        for (const std::vector<double>& values : data.values)
            (values[place] < 0 ? below : above) += values[place];
        Include(scale, above);
        Include(scale, below);
    }
}

Scale ScaleOf(const ChartData& data, ChartKind kind) {
    Scale scale;
    if (kind == ChartKind::StackedBars)
        IncludeStacks(scale, data);
    for (const std::vector<double>& values : data.values) {
        for (const double value : values)
            Include(scale, value);
    }
    const double range = scale.most - scale.least;
    scale.step = RoundStep((range > 0 ? range : 1) / kMarks);
    scale.least = std::floor(scale.least / scale.step) * scale.step;
    scale.most = std::max(std::ceil(scale.most / scale.step) * scale.step, scale.least + scale.step);
    return scale;
}

/// Puts the parts of one chart in place.
class ChartBuilder {
  public:
    ChartBuilder(const BoundChart& chart, const TextPlace& place, ReportFonts& fonts)
        : mRead(*chart.read)
        , mData(DataOf(chart, place))
        , mScale(ScaleOf(mData, mRead.kind))
        , mFont(fonts.Of(mRead.style)) {}

    LaidChart Build() {
        mLaid.kind = mRead.kind;
        mLaid.font = &mFont;
        mLaid.plot = mRead.box;
        AddHead();
        mLaid.plot.setBottom(mLaid.plot.bottom() - mFont.LineHeight() - kApart);
        AddMarks();
        mSlot = mLaid.plot.width() / double(std::max<size_t>(mData.labels.size(), 1));
        if (mData.labels.empty()) {
            AddNote(u"No values"_s);
        } else if (mRead.kind == ChartKind::Line ? mSlot < kThinnest : BarWidth() < kThinnest) {
            AddNote(u"%1 values are too many for this chart."_s.arg(mData.labels.size()));
        } else {
            AddLabels();
            AddValues();
        }
        return std::move(mLaid);
    }

  private:
    /// The title at the left and the legend at the right, on one line. One series needs no legend where the
    /// title tells of it.
    void AddHead() {
        const double baseline = mLaid.plot.top() + mFont.Ascent();
        const bool named = mData.values.size() > 1 || mRead.title.isEmpty();
        if (!mRead.title.isEmpty())
            mLaid.words.push_back({{mRead.box.left(), baseline}, mRead.title});
        double right = mRead.box.right();
        for (size_t series = mRead.series.size(); named && series-- > 0;) {
            const QString& label = mRead.series[series].label;
            right -= mFont.Width(label);
            mLaid.words.push_back({{right, baseline}, label});
            right -= kKeyWidth + kApart;
            const double height = mFont.Ascent() * 0.7;
            mLaid.keys.push_back({QRectF(right, baseline - height, kKeyWidth, height), series});
            right -= 2 * kApart;
        }
        mLaid.plot.setTop(mLaid.plot.top() + mFont.LineHeight() + 2 * kApart);
    }

    void AddMarks() {
        const int count = int(std::lround((mScale.most - mScale.least) / mScale.step));
        std::vector<QString> texts;
        double widest = 0;
        for (int i = 0; i <= count; ++i) {
            // A zero that arithmetic has missed by a little would have a sign.
            const double value = mScale.least + i * mScale.step;
            texts.push_back(FormatValue(std::fabs(value) < mScale.step / 2 ? 0.0 : value, mRead.format));
            widest = std::max(widest, mFont.Width(texts.back()));
        }
        mLaid.plot.setLeft(std::min(mLaid.plot.left() + widest + kApart, mLaid.plot.right() - 1));
        mLaid.zero = HeightOf(0);
        for (int i = 0; i <= count; ++i) {
            const double y = HeightOf(mScale.least + i * mScale.step);
            mLaid.marks.push_back(y);
            mLaid.words.push_back(
                {{mLaid.plot.left() - kApart - mFont.Width(texts[size_t(i)]), y + mFont.Ascent() / 2 - 1},
                 texts[size_t(i)]});
        }
    }

    void AddNote(const QString& note) {
        mLaid.words.push_back(
            {{mLaid.plot.center().x() - mFont.Width(note) / 2, mLaid.plot.center().y()}, note});
    }

    /// Where they would run into each other, every second or third one and so on is written.
    void AddLabels() {
        double widest = 0;
        for (const QString& label : mData.labels)
            widest = std::max(widest, mFont.Width(label));
        const auto every = size_t(std::max(1.0, std::ceil((widest + kApart) / mSlot)));
        // Those at the edges are moved in, and then may meet their neighbours after all.
        double until = mRead.box.left() - kApart;
        for (size_t place = 0; place < mData.labels.size(); place += every) {
            const QString& label = mData.labels[place];
            const double width = mFont.Width(label);
            const double left =
                std::max(std::min(MiddleOf(place) - width / 2, mRead.box.right() - width), mRead.box.left());
            if (left < until + kApart || left + width > mRead.box.right() + kApart)
                continue;
            mLaid.words.push_back({{left, mLaid.plot.bottom() + kApart + mFont.Ascent()}, label});
            until = left + width;
        }
    }

    void AddValues() {
        if (mRead.kind == ChartKind::Bars)
            AddBars();
        else if (mRead.kind == ChartKind::StackedBars)
            AddStacks();
        else
            AddLines();
    }

    double BarWidth() const {
        const size_t beside = mRead.kind == ChartKind::Bars ? mData.values.size() : 1;
        return mSlot * kBarPart / double(beside);
    }

    void AddBars() {
        const double width = BarWidth();
        for (size_t series = 0; series < mData.values.size(); ++series) {
            for (size_t place = 0; place < mData.labels.size(); ++place) {
                const double left = MiddleOf(place) - mSlot * kBarPart / 2 + double(series) * width;
                AddBar(left, width, 0, mData.values[series][place], series);
            }
        }
    }

    void AddStacks() {
        const double width = BarWidth();
        for (size_t place = 0; place < mData.labels.size(); ++place) {
            double above = 0;
            double below = 0;
            for (size_t series = 0; series < mData.values.size(); ++series) {
                const double value = mData.values[series][place];
                double& from = value < 0 ? below : above;
                AddBar(MiddleOf(place) - width / 2, width, from, from + value, series);
                from += value;
            }
        }
    }

    void AddBar(double left, double width, double from, double to, size_t series) {
        if (from != to)
            mLaid.bars.push_back(
                {QRectF(QPointF(left, HeightOf(from)), QPointF(left + width, HeightOf(to))).normalized(),
                 series});
    }

    void AddLines() {
        for (const std::vector<double>& values : mData.values) {
            std::vector<QPointF>& line = mLaid.lines.emplace_back();
            for (size_t place = 0; place < values.size(); ++place)
                line.emplace_back(MiddleOf(place), HeightOf(values[place]));
        }
    }

    double MiddleOf(size_t place) const { return mLaid.plot.left() + (double(place) + 0.5) * mSlot; }
    double HeightOf(double value) const {
        return mLaid.plot.bottom() - mScale.Part(value) * mLaid.plot.height();
    }

    const ReportChart& mRead;
    const ChartData mData;
    const Scale mScale;
    const ReportFont& mFont;
    LaidChart mLaid;
    /// The width of a place.
    double mSlot = 0;
};

} // namespace

ChartData DataOf(const BoundChart& chart, const TextPlace& place) {
    ChartData data;
    data.values.resize(chart.values.size());
    std::optional<QString> last;
    for (size_t row = place.firstRow; row < std::min(place.endRow, place.rows.RowCount()); ++row) {
        if (chart.only && place.rows.Cell(row, *chart.only).TextOrEmpty() != chart.read->is)
            continue;
        const QString by = place.rows.Cell(row, chart.by).TextOrEmpty();
        if (last != by) {
            last = by;
            data.labels.push_back(WithoutControls(place.rows.Cell(row, chart.label).TextOrEmpty()));
            for (std::vector<double>& values : data.values)
                values.push_back(0);
        }
        for (size_t series = 0; series < data.values.size(); ++series) {
            double& sum = data.values[series].back();
            sum = std::clamp(sum + NumberOf(place.rows.Cell(row, chart.values[series])), -kLargest, kLargest);
        }
    }
    return data;
}

LaidChart LayOutChart(const BoundChart& chart, const TextPlace& place, ReportFonts& fonts) {
    return ChartBuilder(chart, place, fonts).Build();
}

QString WordsOf(const BoundChart& chart, const TextPlace& place) {
    const ChartData data = DataOf(chart, place);
    QStringList told;
    for (size_t series = 0; series < data.values.size() && !data.labels.empty(); ++series) {
        const auto [least, most] = std::ranges::minmax(data.values[series]);
        told << u"%1 from %2 to %3"_s.arg(chart.read->series[series].label,
                                          FormatValue(least, chart.read->format),
                                          FormatValue(most, chart.read->format));
    }
    const QString title = chart.read->title.isEmpty() ? u"by "_s + chart.read->by : chart.read->title;
    return u"[Chart: %1; %2]"_s.arg(title, told.isEmpty() ? u"no values"_s : told.join(u", "_s));
}
