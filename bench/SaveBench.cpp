#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "components/DepartmentCodes.h"
#include "components/shared.h"
#include "driver/FilledGrid.h"
#include "RecordedStatements.h"
#include "toolkit/Screens.h"
#include "trial/HospitalEngine.h"
#include "trial/sqlite/SqlFunctions.h"

#include <QLineEdit>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLines = 50;

/// A screen of which the save is measured. The recorded statements read and bump the counter as the first
/// time; to repeat them it is set back.
struct MeasuredSave {
    QString label;
    QString limitsDatabase;
    std::function<void()> save;
    QString setCounterBack;
};

/// 50 services.
std::vector<FilledLine> Lines() {
    std::vector<FilledLine> lines;
    for (int number = 1; number <= kLines; ++number)
        lines.push_back({Department::kEarCare, u"HC%1"_s.arg(number, 3, 10, QChar(u'0'))});
    return lines;
}

/// The statements that reach the database while the save runs.
std::vector<QByteArray> Record(const BenchSession& session, const MeasuredSave& measured) {
    const RecordedStatements recorded(session.Gateway().Engine().Database());
    measured.save();
    return recorded.Statements();
}

void Measure(BenchTable& table, const BenchSession& session, const QTemporaryDir& folder,
             const MeasuredSave& measured) {
    const std::vector<QByteArray> statements = Record(session, measured);
    SqliteDatabase bareDatabase(CopyOfTrialHospital(folder, measured.limitsDatabase),
                                SqliteDatabase::Mode::Existing);
    AddSqlFunctions(bareDatabase);
    RunBare(bareDatabase, statements);
    const auto ours = [&] { return Milliseconds(measured.save); };
    const auto bare = [&] {
        bareDatabase.Run(measured.setCounterBack);
        return Milliseconds([&] { RunBare(bareDatabase, statements); });
    };
    table.Add(u"%1 (%2 statements)"_s.arg(measured.label).arg(statements.size()), InTurns(ours, bare),
              u"ms"_s, 1.2);
}

void MeasurePosting(BenchTable& table, const BenchSession& session, const QTemporaryDir& folder) {
    auto& screen = Screens::Get<frmPostCharges>();
    screen.Boxes().info.txtPno->setText(u"100284"_s);
    screen.Boxes().info.txtId->setText(u"700107"_s);
    screen.Boxes().info.txtRoom->setText(u"P306"_s);
    screen.Boxes().info.txtDoctor->setText(u"DR. BENEDICTO QUIOGUE"_s);
    FillGrid(screen, kPostChargesDifferences, Lines());
    Measure(table, session, folder,
            {.label = u"50-line posting, 103 commands"_s,
             .limitsDatabase = u"bare-posting.db"_s,
             .save = [&screen] { screen.SaveCharges(); },
             .setCounterBack =
                 u"UPDATE \"Clinical_Area..tbEarCareChargeSlip\" SET ChargeSlip = ChargeSlip - 1"_s});
    Screens::Clear();
}

void MeasureAssessment(BenchTable& table, const BenchSession& session, const QTemporaryDir& folder) {
    auto& screen = Screens::Get<frmAssessment>();
    screen.Boxes().txtSname->setText(u"DE GUZMAN, CARMELITA PERALTA"_s);
    FillGrid(screen, kAssessmentDifferences, Lines());
    Measure(
        table, session, folder,
        {.label = u"50-line assessment, 52 commands"_s,
         .limitsDatabase = u"bare-assessment.db"_s,
         .save =
             [&screen] {
                 QString number;
                 screen.SaveAssessment(number);
             },
         .setCounterBack = u"UPDATE \"BILLING..tbAssessmentNum\" SET AssessmentNum = AssessmentNum - 1"_s});
    Screens::Clear();
}

} // namespace

void BenchSave(BenchTable& table) {
    const QTemporaryDir folder;
    const auto session = SignOnTo(CopyOfTrialHospital(folder, u"ours.db"_s));
    MeasurePosting(table, *session, folder);
    MeasureAssessment(table, *session, folder);
    gConnection = nullptr;
    gCurrentUser = {};
}
