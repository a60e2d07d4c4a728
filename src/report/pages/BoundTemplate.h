#pragma once

#include "report/pages/ReportValues.h"
#include "report/template/ReportTemplate.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

/// A piece of a cell's text once the rows are there. What is the same all over the report has become words:
/// values of parameters, the moment, the user, and the fields of named queries, which answer with their first
/// row.
struct BoundPiece {
    enum class Kind { Words, Field, Page, Pages, Sum, Count };
    Kind kind = Kind::Words;
    QString words;
    /// The column of the report's rows that a field shows or a sum adds up.
    size_t column = 0;
};

struct BoundCell {
    /// As the template has it.
    const ReportCell* read = nullptr;
    /// No two of them that follow each other are words.
    std::vector<BoundPiece> text;
};

struct BoundChart {
    /// As the template has it.
    const ReportChart* read = nullptr;
    size_t by = 0;
    size_t label = 0;
    std::optional<size_t> only;
    /// Of each series.
    std::vector<size_t> values;
};

struct BoundBand {
    /// As the template has it.
    const ReportBand* read = nullptr;
    /// In the template's order.
    std::vector<BoundCell> cells;
    std::vector<BoundChart> charts;
};

/// A template with what it names found among the rows of its queries. It is whole once it is made, and
/// nothing of it changes any more: any number of threads may read it.
class BoundTemplate {
  public:
    /// `values` has a value for each parameter and `queries` rows for each query of the template. Raises the
    /// template's error with file and line for the column of a field, sum or group that is not among the
    /// rows.
    BoundTemplate(std::shared_ptr<const ReportTemplate> read, const ReportValues& values,
                  const QueryRows& queries);

    /// What the template's file says.
    const ReportTemplate& Read() const { return *mRead; }
    /// What the report is called; empty where the template does not tell.
    const QString& Title() const { return mTitle; }
    const std::optional<BoundBand>& PageHeader() const { return mPageHeader; }
    const std::optional<BoundBand>& PageFooter() const { return mPageFooter; }
    /// The bands that run down the pages, by BandNumbers; nothing for a band that the template does not have.
    const std::vector<std::optional<BoundBand>>& Bands() const { return mBands; }
    /// The column by which each group is made, from the outermost.
    const std::vector<size_t>& GroupColumns() const { return mGroupColumns; }

  private:
    std::shared_ptr<const ReportTemplate> mRead;
    QString mTitle;
    std::optional<BoundBand> mPageHeader;
    std::optional<BoundBand> mPageFooter;
    std::vector<std::optional<BoundBand>> mBands;
    std::vector<size_t> mGroupColumns;
};
