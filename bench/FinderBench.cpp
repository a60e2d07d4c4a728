#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "gateway/embedded/HospitalEngine.h"
#include "gateway/embedded/HospitalFile.h"
#include "hospital/generator/HospitalGenerator.h"
#include "hospital/HospitalScripts.h"
#include "patients/FinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/PatientContext.h"
#include "RecordedStatements.h"
#include "shell/shared.h"
#include "text/TextOrder.h"
#include "toolkit/ListView.h"
#include "toolkit/Screens.h"

#include <QCoreApplication>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <malloc.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHits = 100000;
constexpr int kRuns = 9;
constexpr int kNameColumn = 2;

using BareRow = std::array<QString, 5>;

/// A hospital of 100,000 visits and nothing posted yet.
QString MakeLargeHospital(const QTemporaryDir& folder) {
    HospitalSize size;
    size.patients = kHits;
    size.visits = kHits;
    size.months = 1;
    size.slipsPerDay = 1;
    std::vector<Script> scripts = HospitalStructure();
    GenerateHospital(size, [&scripts](const QString& script, const QString& statement) {
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
    sqlite3_prepare_v2(database.Handle(), sql.constData(), int(sql.size()), &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        BareRow row;
        for (int i = 0; i < int(row.size()); ++i)
            row[size_t(i)] =
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                                  sqlite3_column_bytes(statement, i));
        rows.push_back(std::move(row));
    }
    sqlite3_finalize(statement);
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

} // namespace

void BenchFinder(BenchTable& table) {
    const QTemporaryDir folder;
    const auto session = SignOnTo(MakeLargeHospital(folder));
    SqliteDatabase& database = session->Gateway().Engine().Database();
    gPatientType = u"O"_s;
    auto& finder = Screens::Get<frmSearchPatient>();
    finder.Show();
    auto* list = finder.findChild<ListView*>();
    auto* cmdSearch = finder.findChild<QPushButton*>(u"cmdSearch"_s);

    QByteArray search;
    {
        const RecordedStatements recorded(database);
        cmdSearch->click();
        search = Longest(recorded.Statements());
    }
    const auto list1 = [&] {
        cmdSearch->click();
        PaintAll(finder);
    };
    std::vector<BareRow> bareRows;
    std::vector<double> ours;
    std::vector<double> bare;
    for (int run = 0; run < kRuns; ++run) {
        ours.push_back(MedianMilliseconds(1, list1));
        bareRows.clear();
        bare.push_back(MedianMilliseconds(1, [&] { bareRows = FetchBare(database, search); }));
    }
    table.Add(u"finder, %1 hits listed and painted"_s.arg(list->RowCount()), Median(ours), Median(bare),
              u"ms"_s, 1.5);

    std::vector<QString> names;
    names.reserve(bareRows.size());
    for (const BareRow& row : bareRows)
        names.push_back(row[kNameColumn]);
    bool descending = false;
    const double sortBare = MedianMilliseconds(kRuns, [&] {
        std::vector<QString> column = names;
        descending = !descending;
        std::stable_sort(column.begin(), column.end(), [descending](const QString& a, const QString& b) {
            return descending ? CompareText(b, a) < 0 : CompareText(a, b) < 0;
        });
    });
    const double sortOurs = MedianMilliseconds(kRuns, [&] {
        Q_EMIT list->ColumnClick(kNameColumn + 1);
        PaintAll(finder);
    });
    table.Add(u"finder, sort by the name's header and paint"_s, sortOurs, sortBare, u"ms"_s, 2.0);

    bareRows = {};
    names = {};
    list->ClearRows();
    malloc_trim(0);
    const double empty = CurrentMegabytes();
    cmdSearch->click();
    PaintAll(finder);
    const double listed = CurrentMegabytes() - empty;
    list->ClearRows();
    malloc_trim(0);
    const double before = CurrentMegabytes();
    bareRows = FetchBare(database, search);
    const double rowsOwn = CurrentMegabytes() - before;
    table.AddLimit(u"finder, memory above the rows' own %1 MB"_s.arg(rowsOwn, 0, 'f', 0),
                   qMax(0.0, listed - rowsOwn), 100, u"MB"_s);
    Screens::Clear();
    ResetShared();
    ResetPatientContext();
}
