#pragma once

#include "reports/Reports.h"
#include "support/ProgramDirectoryAt.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"

/// A line of a slip.
struct PrintedLine {
    QString department;
    QString code;
    QString particular;
    QString quantity;
    QString amount;
    /// On the re-printed slip alone.
    QString remarks = {};
};

/// Fifty lines whose codes begin so.
std::vector<PrintedLine> FiftyLines(const QString& code);

/// The names of a report's parameters, in the order in which they are filled.
QString ParameterNames(Report& report);

/// The slips as the program prints them with its own templates, over fixed rows.
class SlipGround : public ScreenTest {
  protected:
    SlipGround();
    ~SlipGround() override { gReport = nullptr; }

    /// The lines that the print table has from now on.
    void SetLines(const std::vector<PrintedLine>& lines);

    /// Opens the slip of that file and answers the texts of its pages.
    static QString TextOf(const QString& file, const std::vector<Value>& parameters);

    ReportDatabase database;

  private:
    const Seam<QString()>::Replacement mDirectory = ProgramDirectoryAt(QStringLiteral(TARVEN_SOURCE_DIR));
};

/// The slips over the structure of the trial hospital, with what the procedures have written in it for a
/// user.
class SlipHospital : public testing::Test {
  protected:
    explicit SlipHospital(const QString& user = QStringLiteral("NURSE"));
    ~SlipHospital() override;

    void Run(const QString& command);

    /// The words of the first page of the slip of that file.
    static QString Page(const QString& file, const std::vector<Value>& parameters);

  private:
    QTemporaryDir mFolder;
    const QString mFile = mFolder.filePath(QStringLiteral("hospital.db"));
    QString mUser;
};
