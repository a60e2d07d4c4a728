#pragma once

#include "report/output/PageFinder.h"
#include "report/pages/ReportDocument.h"
#include "support/Files.h"
#include "support/PrintQt.h"
#include "support/ScriptedGateway.h"
#include "text/RunTimeError.h"

#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

/// A template on paper of 100 by 100 mm without margins, with one table and the given parts; the query of the
/// rows is put in where the parts have none.
QByteArray SmallTemplate(const QString& parts);

/// The document of SmallTemplate(parts) over those rows, without any database.
std::shared_ptr<const ReportDocument> SmallDocument(const QString& parts,
                                                    const std::shared_ptr<const RowData>& rows,
                                                    const std::vector<Value>& parameters = {});

/// The texts of a page, read with faces of its own.
QString PageText(const ReportDocument& document, int page);

/// Stands in for the database of reports while it lives: answers each command whose text has a fragment in it
/// with the rows set for that fragment, and writes down what was asked and how it was logged on. What it has
/// written down may be read when no rows are being fetched.
class ReportDatabase {
  public:
    ReportDatabase();
    ReportDatabase(const ReportDatabase&) = delete;
    ReportDatabase& operator=(const ReportDatabase&) = delete;
    ~ReportDatabase();

    void Set(const QString& fragment, std::shared_ptr<const RowData> rows);
    /// Answers no command before it is released, unless the connection is cancelled; a deaf database does not
    /// even heed that.
    void Hold(bool deaf = false);
    void Release();
    /// Waits until a command has come.
    void AwaitCommand();

    QStringList commands;
    /// Server, database, user and password of each connection.
    std::vector<QStringList> logOns;
    /// Connections that are open now.
    std::atomic<int> open = 0;

  private:
    friend class ReportConnection;
    struct Answer {
        QString fragment;
        std::shared_ptr<const RowData> rows;
    };
    std::vector<Answer> mAnswers;
    std::mutex mMutex;
    std::condition_variable mChanged;
    bool mHeld = false;
    bool mDeaf = false;
    bool mAsked = false;
};

/// What a FindJob finds when it runs to its end.
std::optional<FoundText> FindText(const ReportDocument& document, const QString& text,
                                  const std::optional<CellPosition>& after);

/// The texts of all pages, each behind a line with its number.
QString TextOfPages(const ReportDocument& document);

/// Compares a report's text with its golden file, or writes the file anew when TARVEN_WRITE_GOLDEN is set.
void ExpectGolden(const QString& text, const QString& name);

/// The text that pdftotext reads from a PDF file.
QString TextOfPdf(const QString& file);

/// The description of the run-time error that the call raises; "nothing was raised" when it raises none.
template <class Call> QString TextOfFailure(Call call) {
    try {
        call();
    } catch (const RunTimeError& error) {
        return error.Description();
    }
    return QStringLiteral("nothing was raised");
}
