#pragma once

#include "support/FixedClock.h"
#include "support/PrintQt.h"
#include "text/DateTime.h"
#include "text/RunTimeError.h"
#include "trial/EmbeddedGateway.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

/// A copy of the trial hospital of its own for each test, made as of 21 November 2026, 10:15. NURSE is signed
/// on.
class HospitalTest : public testing::Test {
  protected:
    HospitalTest();

    /// Every row of the answer, each cell as the workstation shows it; Null is "NULL".
    std::vector<QStringList> Rows(const QString& command);
    /// The first cell of the answer's only row.
    QString Cell(const QString& command);
    /// The answer's column names.
    QStringList Columns(const QString& command);
    void Run(const QString& command) { mGateway->ExecuteNoResult(command); }
    /// Runs one command with another user signed on, nobody for an empty text.
    void RunAs(const QString& user, const QString& command);
    /// Another connection to the same hospital, with that user signed on.
    std::unique_ptr<EmbeddedGateway> SignOn(const QString& user) const;
    QString Path() const;

    static DateTime Moment();

    std::unique_ptr<EmbeddedGateway> mGateway;

  private:
    const Seam<DateTime()>::Replacement mClock = FixedClock(Moment());
    QTemporaryDir mFolder;
};

/// A command text: a call of the procedure with the arguments in single quotes.
QString Call(const QString& procedure, const QStringList& arguments);

/// One column of the rows, from 0.
QStringList Column(const std::vector<QStringList>& rows, int column);
