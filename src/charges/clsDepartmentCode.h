#pragma once

#include <QString>

/// The catalogue of the hospital's eight ancillary departments, held in the class itself.
class clsDepartmentCode {
  public:
    /// Validates a department code, or lets the clerk pick one from the list when it is none. False when none
    /// was picked; the department held before stays then.
    bool ValidateDepartment(const QString& DepartmentID);
    QString RevenueID() const { return mRevenueID; }
    QString Revenue() const { return mRevenue; }
    /// Kept: nothing sets it; it reads as the empty text.
    QString WithItems() const { return {}; }

  private:
    QString mRevenueID;
    QString mRevenue;
};
