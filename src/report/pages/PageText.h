#pragma once

class QString;
class ReportDocument;
class ReportFonts;

/// The texts of a page as lines of plain text: texts on one height make one line, each text about as far from
/// the left as on paper, with at least one blank between two. Lines end with a line feed and have no blanks
/// at their end.
QString TextOfPage(const ReportDocument& document, int page, ReportFonts& fonts);
