#pragma once

#include "report/pages/ReportDocument.h"
#include "report/ParameterField.h"
#include "report/ReportFetch.h"
#include "report/ReportTable.h"
#include "report/template/ReportTemplate.h"

#include <memory>
#include <vector>

/// A report that is open in the engine: its template, and what the callers set on its tables and parameters.
class Report {
  public:
    /// `path` is what the caller opened it by.
    explicit Report(std::shared_ptr<const ReportTemplate> report, QString path = {});
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    /// The path that it was opened by, as the caller wrote it.
    const QString& Path() const { return mPath; }
    /// The template's file.
    const QString& File() const { return mTemplate->file; }
    /// In the template's order.
    std::vector<ReportTable>& Tables() { return mTables; }
    /// In the template's order.
    std::vector<ParameterField>& ParameterFields() { return mFields; }

    /// What the rows are asked for with. The tables' logons go with it and are forgotten here. Raises an
    /// error for a parameter without a value and a table without a logon.
    ReportOrder Order();
    /// The pages made of the rows of its order.
    void SetDocument(std::shared_ptr<const ReportDocument> document) { mDocument = std::move(document); }
    /// The pages. Rows that nobody has fetched yet are fetched now, over a connection of their own that is
    /// closed again at once. Raises what Order raises, and what the database raises.
    std::shared_ptr<const ReportDocument> Document();
    bool HasDocument() const { return mDocument != nullptr; }

  private:
    QString ComposeQuery(const ReportQuery& query) const;
    ReportLogOn TakeLogOn();

    QString mPath;
    std::shared_ptr<const ReportTemplate> mTemplate;
    std::vector<ReportTable> mTables;
    std::vector<ParameterField> mFields;
    std::shared_ptr<const ReportDocument> mDocument;
};
