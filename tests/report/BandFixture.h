#pragma once

#include "report/pages/BandMeasure.h"
#include "report/pages/BandNumbers.h"
#include "report/template/TemplateAttributes.h"
#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>
#include <optional>

/// A detail and the one row that it shows.
class BandTest : public testing::Test {
  protected:
    void Read(const QString& cells, const QString& height = QStringLiteral("5")) {
        const QString detail = QStringLiteral("<detail height=\"%1\">%2</detail>").arg(height, cells);
        rows = Rows({QStringLiteral("A"), QStringLiteral("B")}, {{a, b}});
        sums = ReportSums(*rows, {0}, {{0, 1}});
        report.emplace(ReadTemplate(QStringLiteral("t"), SmallTemplate(detail)), ReportValues{},
                       QueryRows{rows});
    }

    const BoundBand& Band() const { return *report->Bands()[BandNumbers(0).Detail()]; }
    const CellStyle& Style() const { return Band().cells.at(0).read->style; }
    TextPlace Place() const { return {.rows = *rows, .sums = sums, .firstRow = 0, .endRow = 1}; }
    LaidBand Laid() { return LayOutBand(Band(), Place(), fonts); }
    double Measured() { return BandMeasure(Band(), Place(), fonts).HeightAt(Place()); }
    double LineHeight() { return fonts.Of(Style()).LineHeight(); }

    Value a = QStringLiteral("short");
    Value b = QStringLiteral("short");
    std::shared_ptr<const RowData> rows;
    ReportSums sums;
    std::optional<BoundTemplate> report;
    ReportFonts fonts;
};
