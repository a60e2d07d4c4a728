#pragma once

#include "report/template/ReportTemplate.h"
#include "report/template/TemplateXml.h"

#include <QHash>

/// Reads the bands of a template with their cells.
class BandReader {
  public:
    /// Where a band stands, which tells what its cells may show.
    enum class Place { Page, Detail, Rows };

    /// `report` is the template as read so far; it must outlive the reader.
    BandReader(TemplateXml& xml, const ReportTemplate& report);

    /// The font and size of everything that names none of its own.
    void SetBaseStyle(TemplateAttributes& attributes);
    /// Reads a <style>, which the present element is.
    void ReadStyle();
    /// Reads the band that the present element is. `attributes` are what is left of the element's.
    ReportBand Read(TemplateAttributes& attributes, Place place);

  private:
    void ReadStyleAttributes(TemplateAttributes& attributes, CellStyle& style) const;
    CellStyle StyleOf(TemplateAttributes& attributes) const;
    ReportCell ReadCell(Place place);
    ReportCell ReadBarcode(Place place);
    void ReadText(ReportCell& cell, Place place);
    ReportLine ReadLine();
    ReportBox ReadBox();
    ReportImage ReadImage();
    ReportChart ReadChart(Place place);
    ChartSeries ReadSeries();
    QRectF ReadRect(TemplateAttributes& attributes, double height) const;
    void CheckRight(const TemplateAttributes& attributes, double right) const;
    void CheckPieces(const ReportCell& cell, Place place) const;
    void CheckWithin(const ReportBand& band) const;

    TemplateXml& mXml;
    const ReportTemplate& mReport;
    CellStyle mBase;
    QHash<QString, CellStyle> mStyles;
};
