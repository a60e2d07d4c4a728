#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <vector>

/// Puts a report of text parameters over the one table Clinical_Area.dbo.tbLines into the program's
/// directory, under any path below it.
void PutTemplate(const QTemporaryDir& programDirectory, const QString& path, const QStringList& parameters);

/// A slip in the program's directory while it lives, and what it is filled with. Reports read one line of
/// that table, in any database.
class SlipPrint {
  public:
    /// The slip of that file among the reports, with so many parameters.
    SlipPrint(const QTemporaryDir& programDirectory, const QString& file, int parameters);
    SlipPrint(const SlipPrint&) = delete;
    SlipPrint& operator=(const SlipPrint&) = delete;
    ~SlipPrint();

    /// Runs the print and answers the values of the slip that its viewer shows under the title.
    std::vector<QString> Values(const QString& title, const std::function<void()>& print,
                                const std::function<void()>& whileShown = {}) const;

  private:
    QString mFile;
};
