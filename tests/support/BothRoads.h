#pragma once

#include "support/PrintQt.h"
#include "text/RunTimeError.h"
#include "trial/EmbeddedGateway.h"
#include "trial/HospitalEngine.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

/// The two roads of a command: read for the first time, and run again from what was kept of another text of
/// its shape. Two copies of a hospital are asked the same; the one by a connection that keeps what it has
/// read, the other by a new connection for each command.
class BothRoads {
  public:
    explicit BothRoads(const QString& hospital)
        : mWarmFile(mFolder.filePath(QStringLiteral("warm.db")))
        , mColdFile(mFolder.filePath(QStringLiteral("cold.db"))) {
        QFile::copy(hospital, mWarmFile);
        QFile::copy(hospital, mColdFile);
        mWarm = Connect(mWarmFile);
    }

    void SetDefaultDatabase(const QString& name) {
        mDatabase = name;
        mWarm->SetDefaultDatabase(name);
    }
    void SetUser(const QString& user) {
        mUser = user;
        mWarm->SetSessionUser(user);
    }

    /// Whether both give the same columns, values, types, count of rows, or failure.
    testing::AssertionResult Agree(const QString& command) {
        const Answer warm = AnswerTo(*mWarm, command);
        const Answer cold = AnswerTo(*Connect(mColdFile), command);
        if (warm.shown == cold.shown && warm.cells == cold.cells)
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << qPrintable(command.left(500)) << "\nkept: " << qPrintable(warm.shown.join(u'|').left(500))
               << "\nread: " << qPrintable(cold.shown.join(u'|').left(500));
    }

    /// How many statements the connection that keeps them has prepared.
    int PreparedStatements() const { return CountStatements(*mWarm); }
    static int CountStatements(EmbeddedGateway& gateway) {
        int count = 0;
        sqlite3* handle = gateway.Engine().Database().Handle();
        for (sqlite3_stmt* at = sqlite3_next_stmt(handle, nullptr); at; at = sqlite3_next_stmt(handle, at))
            ++count;
        return count;
    }

  private:
    struct Answer {
        QStringList shown;
        std::vector<Value> cells;
    };

    std::unique_ptr<EmbeddedGateway> Connect(const QString& file) const {
        auto gateway = std::make_unique<EmbeddedGateway>(file);
        gateway->Engine().Database().Run(QStringLiteral("PRAGMA synchronous = OFF"));
        gateway->SetSessionUser(mUser);
        if (!mDatabase.isEmpty())
            gateway->SetDefaultDatabase(mDatabase);
        return gateway;
    }

    static Answer AnswerTo(EmbeddedGateway& gateway, const QString& command) {
        Answer answer;
        try {
            const CommandResult result = gateway.Engine().Run(command);
            answer.shown << QString::number(result.rowsAffected);
            if (!result.rows)
                return answer;
            for (const QString& column : result.rows->columns)
                answer.shown << column;
            const size_t width = result.rows->columns.size();
            for (size_t i = 0; i < result.rows->RowCount() * width; ++i) {
                const Value& cell = result.rows->Cell(i / width, i % width);
                answer.cells.push_back(cell);
                answer.shown << QString::number(cell.Get().index()) + QLatin1Char(':') + cell.TextOrEmpty();
            }
        } catch (const RunTimeError& error) {
            answer.shown << QString::number(error.Number()) << error.State() << error.Description();
        }
        return answer;
    }

    QTemporaryDir mFolder;
    QString mWarmFile;
    QString mColdFile;
    QString mDatabase;
    QString mUser;
    std::unique_ptr<EmbeddedGateway> mWarm;
};
