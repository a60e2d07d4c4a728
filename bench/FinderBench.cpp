#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "components/shared.h"
#include "GiveUp.h"
#include "hospital-generator/HospitalGenerator.h"
#include "hospital/HospitalScripts.h"
#include "patients/FinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "RecordedStatements.h"
#include "text/TextOrder.h"
#include "toolkit/ListView.h"
#include "toolkit/Screens.h"
#include "trial/HospitalEngine.h"
#include "trial/HospitalFile.h"

#include <QCoreApplication>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <malloc.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHits = 100000;
constexpr int kFinderRuns = 9;
constexpr int kNameColumn = 2;

using BareRow = std::array<QString, 5>;

/// A hospital of 100,000 visits and nothing posted yet.
QString MakeLargeHospital(const QTemporaryDir& folder) {
    Generator::HospitalSize size;
    size.patients = kHits;
    size.visits = kHits;
    size.months = 1;
    size.slipsPerDay = 1;
    std::vector<Script> scripts = HospitalStructure();
    Generator::GenerateHospital(size, [&scripts](const QString& script, const QString& statement) {
        const QString name = u"demo/"_s + script + u".sql"_s;
        if (scripts.back().name != name)
            scripts.push_back({name, {}});
        scripts.back().text += statement + u"\nGO\n"_s;
    });
    QString path = folder.filePath(u"large.db"_s);
    HospitalFile::Create(path, scripts);
    return path;
}

std::vector<BareRow> FetchBare(SqliteDatabase& database, const QByteArray& sql) {
    std::vector<BareRow> rows;
    sqlite3_stmt* statement = nullptr;
    int outcome =
        sqlite3_prepare_v2(database.Handle(), sql.constData(), int(sql.size()), &statement, nullptr);
    if (outcome == SQLITE_OK)
        outcome = sqlite3_step(statement);
    for (; outcome == SQLITE_ROW; outcome = sqlite3_step(statement)) {
        BareRow row;
        for (int i = 0; i < int(row.size()); ++i)
            row[size_t(i)] =
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                                  sqlite3_column_bytes(statement, i));
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
    if (outcome != SQLITE_DONE)
        GiveUp(QString::fromUtf8(sqlite3_errmsg(database.Handle())));
    return rows;
}

/// The longest statement, which is the finder's search.
QByteArray Longest(const std::vector<QByteArray>& statements) {
    return *std::max_element(statements.begin(), statements.end(),
                             [](const QByteArray& a, const QByteArray& b) { return a.size() < b.size(); });
}

void PaintAll(QWidget& window) {
    QCoreApplication::processEvents();
    window.grab();
}

/// The finder over a large hospital, and the search that it hands to SQLite.
class FinderRuns {
  public:
    FinderRuns(BenchTable& table, SqliteDatabase& database)
        : mTable(table)
        , mDatabase(database)
        , mFinder(Screens::Get<frmSearchPatient>()) {
        mFinder.Show();
        mList = mFinder.findChild<ListView*>();
        mSearchButton = mFinder.findChild<QPushButton*>(u"cmdSearch"_s);
        const RecordedStatements recorded(mDatabase);
        mSearchButton->click();
        mSearch = Longest(recorded.Statements());
    }

    void MeasureListing() {
        std::vector<double> ours;
        std::vector<double> bare;
        for (int run = 0; run < kFinderRuns; ++run) {
            ours.push_back(Milliseconds([this] { Search(); }));
            mBareRows.clear();
            bare.push_back(Milliseconds([this] { mBareRows = FetchBare(mDatabase, mSearch); }));
        }
        mTable.Add(u"finder, %1 hits listed and painted"_s.arg(mList->RowCount()), Median(ours), Median(bare),
                   u"ms"_s, 1.5);
    }

    /// Sorts the rows that the listing left.
    void MeasureSorting() {
        std::vector<QString> names;
        names.reserve(mBareRows.size());
        for (const BareRow& row : mBareRows)
            names.push_back(row[kNameColumn]);
        bool descending = false;
        const double bare = MedianMilliseconds(kFinderRuns, [&] {
            std::vector<QString> column = names;
            descending = !descending;
            std::stable_sort(column.begin(), column.end(), [descending](const QString& a, const QString& b) {
                return descending ? CompareText(b, a) < 0 : CompareText(a, b) < 0;
            });
        });
        const double ours = MedianMilliseconds(kFinderRuns, [this] {
            Q_EMIT mList->ColumnClick(kNameColumn + 1);
            PaintAll(mFinder);
        });
        mTable.Add(u"finder, sort by the name's header and paint"_s, ours, bare, u"ms"_s, 2.0);
    }

    void MeasureMemory() {
        mBareRows = {};
        const double empty = EmptyMegabytes();
        Search();
        const double listed = CurrentMegabytes() - empty;
        const double before = EmptyMegabytes();
        mBareRows = FetchBare(mDatabase, mSearch);
        const double rowsOwn = CurrentMegabytes() - before;
        mTable.AddLimit(u"finder, memory above the rows' own %1 MB"_s.arg(rowsOwn, 0, 'f', 0),
                        qMax(0.0, listed - rowsOwn), 100, u"MB"_s);
    }

  private:
    void Search() {
        mSearchButton->click();
        PaintAll(mFinder);
    }

    /// What the process holds while the list has no rows.
    double EmptyMegabytes() {
        mList->ClearRows();
        malloc_trim(0);
        return CurrentMegabytes();
    }

    BenchTable& mTable;
    SqliteDatabase& mDatabase;
    frmSearchPatient& mFinder;
    ListView* mList = nullptr;
    QPushButton* mSearchButton = nullptr;
    QByteArray mSearch;
    std::vector<BareRow> mBareRows;
};

} // namespace

void BenchFinder(BenchTable& table) {
    const QTemporaryDir folder;
    const auto session = SignOnTo(MakeLargeHospital(folder));
    gPatientType = u"O"_s;
    FinderRuns finder(table, session->Gateway().Engine().Database());
    finder.MeasureListing();
    finder.MeasureSorting();
    finder.MeasureMemory();
    Screens::Clear();
    gConnection = nullptr;
    gCurrentUser = {};
}
