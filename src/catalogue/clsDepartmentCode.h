#pragma once

#include <QString>

#include <array>

/// The catalogue of the hospital's eight ancillary departments, held in the class itself.
class clsDepartmentCode {
  public:
    clsDepartmentCode() { Class_Initialize(); }

    /// Validates a department code, or lets the clerk pick one from the list when it is none. False when none
    /// was picked; the department held before stays then.
    bool ValidateDepartment(const QString& DepartmentID);
    QString RevenueID() const { return mRevenueID; }
    QString Revenue() const { return mRevenue; }
    /// Kept: nothing sets it; it reads as the empty text.
    QString WithItems() const { return {}; }

  private:
    void Class_Initialize();
    /// The subscript of the code, letter case included; 0 when it is none.
    int DepartmentIndex(const QString& code) const;
    /// Lets the clerk pick a department. False when none was picked.
    bool PickDepartment() const;

    /// Side by side. Subscript 0 stays empty, so that a subscript of 0 can say "none".
    std::array<QString, 9> mCodes;
    std::array<QString, 9> mNames;
    QString mRevenueID;
    QString mRevenue;
};
