#pragma once

#include "components/ReportConnector.h"

#include <QString>

/// A table that a report reads.
class ReportTable {
  public:
    ReportTable(const QString& name, const QString& location);
    ReportTable(ReportTable&&) noexcept = default;
    ReportTable& operator=(ReportTable&&) noexcept = default;
    ~ReportTable();

    /// How the template's queries call it.
    const QString& Name() const { return mName; }
    /// Database.owner.table.
    const QString& Location() const { return mLocation; }
    /// Raises an error for a text that is no location.
    void SetLocation(const QString& location);

    /// The texts are kept until the report's rows are ordered.
    void SetLogOnInfo(const QString& server, const QString& database, const QString& user,
                      const QString& password);
    bool HasLogOn() const { return mHasLogOn; }
    const ReportLogOn& LogOn() const { return mLogOn; }
    /// The texts, which the table forgets.
    ReportLogOn TakeLogOn();
    void ForgetLogOn();

  private:
    QString mName;
    QString mLocation;
    ReportLogOn mLogOn;
    bool mHasLogOn = false;
};
