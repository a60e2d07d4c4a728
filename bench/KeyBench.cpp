#include "Benches.h"
#include "BenchSession.h"
#include "BenchTable.h"
#include "charges/ChargeColumns.h"
#include "charges/frmPostCharges.h"
#include "components/shared.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int kKeys = 2000;

void SendKey(QWidget& receiver, Qt::Key key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&receiver, &press);
}

/// The clerk's mixture: digits into a quantity, Down and Up between lines, Enter with its two sums.
void PressNth(int number, FlexGrid& grid, QLineEdit& editor) {
    switch (number % 5) {
    case 0:
    case 1:
        SendKey(editor, Qt::Key_5, u"5"_s);
        break;
    case 2:
        SendKey(editor, Qt::Key_Down, {});
        break;
    case 3:
        SendKey(editor, Qt::Key_Up, {});
        break;
    default:
        grid.Cells().SetCol(kPostChargesDifferences.quantityCol);
        SendKey(editor, Qt::Key_Return, u"\r"_s);
        break;
    }
}

} // namespace

void BenchKeys(BenchTable& table) {
    const QTemporaryDir folder;
    const auto session = SignOnTo(CopyOfTrialHospital(folder, u"keys.db"_s));
    auto& screen = Screens::Get<frmPostCharges>();
    screen.Boxes().name.txtFirstName->setText(u"JUAN"_s);
    screen.Show();
    screen.activateWindow();
    QCoreApplication::processEvents();
    auto* grid = screen.findChild<FlexGrid*>(u"grdTable"_s);
    auto* editor = screen.findChild<QLineEdit*>(u"txtEntry"_s);
    grid->setFocus();
    grid->Cells().SetCell(1, kPostChargesDifferences.quantityCol);

    std::vector<double> times;
    for (int i = 0; i < kKeys; ++i) {
        times.push_back(Milliseconds([&] { PressNth(i, *grid, *editor); }));
        if (i % 50 == 0)
            editor->clear();
    }
    table.AddLimit(u"a key in the charge grid, median of %1"_s.arg(kKeys), Median(times), 1.0, u"ms"_s);
    Screens::Clear();
    gConnection = nullptr;
    gCurrentUser = {};
}
