#pragma once

#include "report/pages/BandMeasure.h"
#include "report/template/TemplateAttributes.h"
#include "report/template/TemplateReader.h"
#include "support/report/ReportFixture.h"

#include <gtest/gtest.h>

/// A detail and the rows that it shows.
class BandTest : public testing::Test {
  protected:
    void Read(const QString& cells, const QString& height = QStringLiteral("5")) {
        report = ReadTemplate(
            QStringLiteral("t"),
            SmallTemplate(QStringLiteral("<detail height=\"%1\">%2</detail>").arg(height, cells)));
        data.queries = {Rows({QStringLiteral("A"), QStringLiteral("B")}, {{a, b}})};
        ResolveFields(report, data);
    }

    const ReportBand& Band() const { return *report.detail; }
    LaidBand Laid() { return LayOutBand(Band(), {.data = data}, fonts); }
    double Measured() { return BandMeasure(Band(), {.data = data}, fonts).HeightAt({.data = data}); }
    double LineHeight() { return fonts.Of(Band().cells.at(0).style).LineHeight(); }

    Value a = QStringLiteral("short");
    Value b = QStringLiteral("short");
    ReportTemplate report;
    ReportData data;
    ReportFonts fonts;
};
