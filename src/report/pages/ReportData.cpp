#include "report/pages/ReportData.h"

#include "report/template/TemplateError.h"
#include "text/RunTimeError.h"

using namespace Qt::StringLiterals;

namespace {

class FieldResolver {
  public:
    FieldResolver(const QString& file, const ReportData& data)
        : mFile(file)
        , mData(data) {}

    size_t Column(size_t query, const QString& name, int line) const {
        if (const auto column = mData.queries[query]->Find(name))
            return *column;
        throw TemplateError(mFile, line, u"The rows have no field \"%1\"."_s.arg(name));
    }

    void Resolve(std::optional<ReportBand>& band) const {
        if (!band)
            return;
        for (ReportCell& cell : band->cells) {
            for (TextPiece& piece : cell.text)
                Resolve(piece, cell.line);
        }
    }

  private:
    void Resolve(TextPiece& piece, int line) const {
        if (piece.kind == TextPiece::Kind::Field)
            piece.number = Column(piece.query.value_or(0), piece.text, line);
        else if (piece.kind == TextPiece::Kind::Sum)
            piece.number = Column(0, piece.text, line);
    }

    const QString& mFile;
    const ReportData& mData;
};

} // namespace

void ResolveFields(ReportTemplate& report, const ReportData& data) {
    const FieldResolver resolver(report.file, data);
    for (auto* band :
         {&report.pageHeader, &report.pageFooter, &report.reportHeader, &report.reportFooter, &report.detail})
        resolver.Resolve(*band);
    for (ReportGroup& group : report.groups) {
        group.column = resolver.Column(0, group.by, group.line);
        resolver.Resolve(group.header);
        resolver.Resolve(group.footer);
    }
}
