#pragma once

#include "report/Report.h"
#include "support/hospital/HospitalTest.h"
#include "support/report/ReportFixture.h"

/// The department's reports over a trial hospital of the test's own. The user NURSE prints them.
class ReportsTest : public HospitalTest {
  protected:
    ReportsTest();
    ~ReportsTest() override;

    /// The template of that file, logged on and filled with the values in order.
    std::shared_ptr<Report> Open(const QString& file, const std::vector<Value>& values);
    std::shared_ptr<const ReportDocument> Document(const QString& file, const std::vector<Value>& values) {
        return Open(file, values)->Document();
    }

    static DateTime Day(int year, int month, int day);
};
