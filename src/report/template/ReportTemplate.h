#pragma once

#include "gateway/Value.h"

#include <QColor>
#include <QImage>
#include <QLineF>
#include <QMarginsF>
#include <QPageLayout>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What a template file says, as read; nothing of it changes any more. Lengths are in points, 72 to the inch,
/// and lines count from 1.

/// A page body lower than this, in points, holds no line of text.
constexpr double kLeastBody = 20;

/// The kinds of value that a parameter takes, with the numbers that the callers know them by.
enum class FieldValueType { Number = 7, Date = 10, String = 12, DateTime = 16 };

struct ReportParameter {
    QString name;
    FieldValueType type = FieldValueType::String;
    /// The question put to the clerk when no caller gives a value.
    QString prompt;
    /// The value that the template itself brings.
    std::optional<Value> value;
};

struct ReportTableEntry {
    /// How the queries call it.
    QString name;
    /// Database.owner.table.
    QString location;
};

/// A piece of a query between or for its placeholders.
struct QueryPiece {
    enum class Kind { Text, Table, Parameter };
    Kind kind = Kind::Text;
    /// The text itself.
    QString text;
    /// The number of the table or parameter.
    size_t number = 0;
};

struct ReportQuery {
    /// Empty for the query of the report's rows.
    QString name;
    std::vector<QueryPiece> pieces;
    int line = 0;
};

/// A piece of a cell's text.
struct TextPiece {
    enum class Kind { Literal, Field, Parameter, Page, Pages, Now, User, Sum, Count };
    Kind kind = Kind::Literal;
    /// The text itself, or the name of the column.
    QString text;
    /// The named query that a field belongs to; nothing for the report's rows.
    std::optional<size_t> query;
    /// The number of the parameter.
    size_t number = 0;
};

/// Whether a piece shows something of the report's rows.
bool IsOfRows(const TextPiece& piece);

enum class CellAlign { Left, Center, Right };

/// The edges of a cell that are drawn.
struct CellBorder {
    bool left = false;
    bool top = false;
    bool right = false;
    bool bottom = false;
};

struct CellStyle {
    QStringList families;
    double size = 9;
    bool bold = false;
    bool italic = false;
    CellAlign align = CellAlign::Left;
    QColor color = Qt::black;
    CellBorder border;
    /// Invalid for none.
    QColor fill;
};

struct ReportCell {
    int line = 0;
    QRectF box;
    std::vector<TextPiece> text;
    /// For the numbers and dates among the pieces.
    QString format;
    CellStyle style;
    /// Left out of a report that has one page.
    bool onlySeveralPages = false;
    /// Drawn as bars. It never wraps.
    bool isBarcode = false;
};

struct ReportLine {
    QLineF line;
    double thickness = 0.5;
    QColor color = Qt::black;
    bool dashed = false;
};

struct ReportBox {
    QRectF box;
    double thickness = 0.5;
    QColor color = Qt::black;
    QColor fill;
};

struct ReportImage {
    QRectF box;
    QImage image;
};

enum class ChartKind { Bars, StackedBars, Line };

/// One value of each place on a chart's axis.
struct ChartSeries {
    int line = 0;
    /// The column that is added up.
    QString value;
    /// What the legend calls it.
    QString label;
};

/// A picture of the rows that its band stands for: rows that follow each other with the same value in one
/// column have one place on the axis.
struct ReportChart {
    int line = 0;
    QRectF box;
    ChartKind kind = ChartKind::Bars;
    QString title;
    /// The column whose change begins a new place.
    QString by;
    /// The column that is written below a place.
    QString label;
    /// The rows that count, those that show this text in this column; all of them where there is no column.
    QString only;
    QString is;
    /// Of the numbers at the axis.
    QString format;
    CellStyle style;
    std::vector<ChartSeries> series;
};

/// More could not be told apart on paper without colours.
constexpr size_t kMostSeries = 4;

/// A strip of the page, printed whole. A text that wraps makes it taller.
struct ReportBand {
    int line = 0;
    double height = 0;
    std::vector<ReportCell> cells;
    std::vector<ReportLine> lines;
    std::vector<ReportBox> boxes;
    std::vector<ReportImage> images;
    std::vector<ReportChart> charts;
    bool keepWithNext = false;
    bool keepWithPrevious = false;
    /// A group's header that stands again on top of each page that the group goes on.
    bool repeats = false;
};

struct ReportGroup {
    int line = 0;
    /// A change in this column of the rows begins a new group.
    QString by;
    bool keepTogether = false;
    std::optional<ReportBand> header;
    std::optional<ReportBand> footer;
};

struct ReportTemplate {
    QString file;
    /// What a saved or printed report is called: a text without a place, empty for none. Its dates are
    /// written so that file names may bear them.
    ReportCell title;
    /// The paper for printers, without margins.
    QPageLayout paper;
    QMarginsF margins;
    std::vector<ReportParameter> parameters;
    std::vector<ReportTableEntry> tables;
    /// The query of the rows comes first.
    std::vector<ReportQuery> queries;
    std::optional<ReportBand> pageHeader;
    std::optional<ReportBand> pageFooter;
    std::optional<ReportBand> reportHeader;
    std::optional<ReportBand> reportFooter;
    /// From the outermost to the innermost.
    std::vector<ReportGroup> groups;
    std::optional<ReportBand> detail;

    /// The whole page.
    QSizeF PageSize() const;
    /// The page within its margins.
    QRectF Body() const { return QRectF(QPointF(), PageSize()).marginsRemoved(margins); }
};
