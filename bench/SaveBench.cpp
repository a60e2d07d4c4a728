#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "charges/frmPostCharges.h"
#include "gateway/embedded/HospitalEngine.h"
#include "gateway/embedded/SqlFunctions.h"
#include "RecordedStatements.h"
#include "shell/shared.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLines = 50;
constexpr int kRuns = 15;

/// A patient in the header and 50 lines in the grid, as a clerk would have keyed them.
void FillScreen(frmPostCharges& screen) {
    screen.SetBox(u"txtPno"_s, u"100284"_s);
    screen.SetBox(u"txtId"_s, u"700107"_s);
    screen.SetBox(u"txtRoom"_s, u"P306"_s);
    screen.SetBox(u"txtDoctor"_s, u"DR. BENEDICTO QUIOGUE"_s);
    FlexCells& cells = screen.findChild<FlexGrid*>(u"grdTable"_s)->Cells();
    cells.SetRows(kLines + 1);
    for (int row = 1; row <= kLines; ++row) {
        const QStringList texts = {u"HC"_s,
                                   u"HC%1"_s.arg(row, 3, 10, QChar(u'0')),
                                   u"HEMODIALYSIS TREATMENT"_s,
                                   u"1"_s,
                                   u"3360.00"_s,
                                   u"3360.00"_s};
        for (int col = 1; col <= texts.size(); ++col)
            cells.SetTextMatrix(row, col, texts[col - 1]);
    }
}

} // namespace

void BenchSave(BenchTable& table) {
    const QTemporaryDir folder;
    const auto session = SignOnTo(CopyOfTrialHospital(folder, u"ours.db"_s));
    auto& screen = Screens::Get<frmPostCharges>();
    FillScreen(screen);

    std::vector<QByteArray> statements;
    {
        const RecordedStatements recorded(session->Gateway().Engine().Database());
        screen.SaveCharges();
        statements = recorded.Statements();
    }
    SqliteDatabase bareDatabase(CopyOfTrialHospital(folder, u"bare.db"_s), SqliteDatabase::Mode::Existing);
    AddSqlFunctions(bareDatabase);
    RunBare(bareDatabase, statements);
    // One after the other, so that both meet the disk in the same mood. The recorded statements read and bump
    // the counter as the first time; to repeat them it is set back.
    const QString counter =
        QString::fromUtf8("UPDATE \"Clinical_Area..tbEarCareChargeSlip\" SET ChargeSlip = "
                          "ChargeSlip - 1");
    std::vector<double> ours;
    std::vector<double> bare;
    for (int run = 0; run < kRuns; ++run) {
        ours.push_back(MedianMilliseconds(1, [&screen] { screen.SaveCharges(); }));
        bareDatabase.Run(counter);
        bare.push_back(MedianMilliseconds(1, [&] { RunBare(bareDatabase, statements); }));
    }
    table.Add(u"50-line save, 103 commands (%1 statements)"_s.arg(statements.size()), Median(ours),
              Median(bare), u"ms"_s, 1.2);
    Screens::Clear();
    ResetShared();
}
