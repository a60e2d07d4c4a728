#include "catalogue/commands.h"
#include "charges/ChargeGrid.h"
#include "components/shared.h"
#include "fuzz/Fuzz.h"
#include "patients/PatientContext.h"
#include "support/FakeComponents.h"
#include "support/FixedClock.h"
#include "support/FreshVariables.h"
#include "support/RevenueRows.h"
#include "toolkit/Application.h"
#include "toolkit/Failure.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Screens.h"

#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

// What a clerk may key, paste and click into the charge grid of either screen, one byte an act, message boxes
// and the list of departments included.

namespace {

const std::vector<RevenueCentre>& Centres() {
    static const std::vector<RevenueCentre> centres = {{u"EAR CARE"_s, u"HC"_s},
                                                       {u"MEDICINES"_s, u"HB"_s, u"Y"_s, true, u"1"_s},
                                                       {u"SUPPLIES"_s, u"HD"_s, u"Y"_s, true, u"52"_s},
                                                       {u"MEDICAL FEE"_s, u"MD"_s, u"N"_s},
                                                       {u"OTHERS"_s, u"OT"_s, u"N"_s},
                                                       {u"X-RAY"_s, u"XR"_s}};
    return centres;
}

/// Knows the departments, and nothing else.
class DepartmentGateway : public CommandGateway {
  public:
    bool Connected() const override { return true; }
    QString ConnectionString() const override { return {}; }

  protected:
    Outcome Run(const QString& command) override {
        std::vector<RevenueCentre> found;
        for (const RevenueCentre& centre : Centres()) {
            if (command == ExactRevenueCommand(centre.code.ToText()))
                found = {centre};
        }
        if (found.empty() && command.startsWith(ExactRevenueCommand({}).chopped(1)))
            return {RevenueRows({}), 0};
        // A text of some length means none of them.
        constexpr qsizetype kLongest = 60;
        return {RevenueRows(found.empty() && command.size() < kLongest ? Centres() : found), 0};
    }
};

/// Finds services and doctors by any code that is not empty.
class AnyListing : public FakeListing {
  public:
    AnyListing() {
        service.OtherRevenue = u"CLEANING"_s;
        service.Rates = {101};
        doctor = {u"D003"_s, u"CASTAÑEDA"_s, u"LUIS"_s, u"PEÑA"_s};
    }
    bool SearchListing(QString& code, int) override {
        service.ResultCode = code;
        return !code.isEmpty();
    }
};

/// A window with the grid of one of the screens, new for each input.
class Desk {
  public:
    explicit Desk(const ChargeGridDifferences& screen)
        : mFrame(new QWidget(&mWindow))
        , mTotal(new QLineEdit(&mWindow))
        , mCharges(new ChargeGrid(mFrame, mTotal, screen)) {
        mWindow.resize(1000, 450);
        mFrame->setGeometry(5, 60, 980, 350);
        mCharges->Grid()->setGeometry(10, 20, 900, 300);
        mCharges->SetupGrid();
        mWindow.show();
        mWindow.activateWindow();
        mCharges->Grid()->setFocus();
    }

    void Click(int row, int col) {
        FlexGrid& grid = *mCharges->Grid();
        const QPointF place = grid.CellRect(row, col).center() - grid.viewport()->pos();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, grid.viewport()->mapToGlobal(place), Qt::LeftButton,
                              Qt::LeftButton, {});
            QApplication::sendEvent(grid.viewport(), &event);
        }
    }

    ChargeGrid& Charges() { return *mCharges; }

    void Check() const {
        const QLineEdit& editor = *mCharges->Editor();
        const FlexCells& cells = mCharges->Cells();
        Require(cells.Row() < cells.Rows() && cells.Col() < cells.Cols(),
                "the current cell lies in the grid");
        // A closed cell leaves the editor over the one before.
        const FlexGrid& grid = *mCharges->Grid();
        const QRect cell = grid.CellRect(cells.Row(), cells.Col()).translated(grid.pos());
        Require(!editor.hasFocus() || editor.geometry() != cell || editor.text() == cells.Text(),
                "what is keyed stands in the cell under the editor");
    }

  private:
    QWidget mWindow;
    QWidget* mFrame;
    QLineEdit* mTotal;
    ChargeGrid* mCharges;
};

/// Does one act for each byte, in whatever window is in front, and leaves the windows that stand open at its
/// end.
class Clerk : public QObject {
  public:
    Clerk(Desk& desk, QByteArrayView acts)
        : mDesk(desk)
        , mActs(acts) {
        Continue();
    }

    bool IsDone() const { return mDone; }
    /// Nothing more is keyed after a failure: the program has ended.
    void Stop() { mActs = {}; }

  private:
    /// The next act is due before this one is done: what it opens waits for its end in a loop of its own.
    void Continue() {
        QTimer::singleShot(0, this, [this] { Next(); });
    }

    void Next() {
        if (!mActs.isEmpty()) {
            const auto act = static_cast<uchar>(mActs.front());
            mActs = mActs.sliced(1);
            Continue();
            Do(act);
            return;
        }
        auto* modal = qobject_cast<Form*>(QApplication::activeModalWidget());
        mDone = !modal;
        if (modal) {
            Continue();
            modal->Unload();
        }
    }

    void Do(uchar act) {
        if (act < 0x20 || act >= 0xE0)
            return DoOther(act);
        const QChar letter{char16_t(act)};
        Press(0, {}, letter);
    }

    void DoOther(uchar act) {
        switch (act) {
        case '\n':
            return Press(Qt::Key_Return, {}, u'\r');
        case '\t':
            return Press(Qt::Key_Tab, {}, u'\t');
        case 0x1B:
            return Press(Qt::Key_Escape, {}, QChar(0x1B));
        case 0x08:
            return Press(Qt::Key_Backspace, {}, u'\b');
        case 0x01:
            return Press(Qt::Key_Up);
        case 0x02:
            return Press(Qt::Key_Down);
        case 0x03:
            return Press(Qt::Key_Left);
        case 0x04:
            return Press(Qt::Key_Right);
        case 0x05:
            return Press(Qt::Key_Delete);
        case 0x06:
            return Press(Qt::Key_A, Qt::ControlModifier, QChar(1));
        case 0x07:
            return Press(Qt::Key_Z, Qt::ControlModifier, QChar(26));
        case 0x0B:
            return Press(Qt::Key_Backtab, Qt::ShiftModifier);
        case 0x0C:
            return mDesk.Charges().SetupGrid();
        case 0x16:
            return Paste();
        default:
            return Click(act);
        }
    }

    /// Where keys go: a window that is covered gets none.
    static QWidget* Receiver() {
        QWidget* const focused = QApplication::focusWidget();
        QWidget* const modal = QApplication::activeModalWidget();
        if (!modal || (focused && focused->window() == modal))
            return focused;
        return modal->focusWidget() ? modal->focusWidget() : modal;
    }

    static void Press(int key, Qt::KeyboardModifiers modifiers = {}, QChar text = {}) {
        QWidget* const receiver = Receiver();
        if (!receiver)
            return;
        const QString written = text.isNull() ? QString() : QString(text);
        QKeyEvent shortcut(QEvent::ShortcutOverride, key, modifiers, written);
        QApplication::sendEvent(receiver, &shortcut);
        QKeyEvent press(QEvent::KeyPress, key, modifiers, written);
        QApplication::sendEvent(receiver, &press);
    }

    /// The acts up to the end of the line are what was copied.
    void Paste() {
        const qsizetype end = mActs.indexOf('\n');
        const QByteArrayView copied = end < 0 ? mActs : mActs.first(end);
        mActs = mActs.sliced(copied.size());
        QGuiApplication::clipboard()->setText(QString::fromUtf8(copied));
        Press(Qt::Key_V, Qt::ControlModifier, QChar(0x16));
    }

    void Click(uchar act) {
        if (QApplication::activeModalWidget())
            return;
        const FlexCells& cells = mDesk.Charges().Cells();
        mDesk.Click(1 + act % (cells.Rows() - 1), 1 + act / 3 % 6);
    }

    Desk& mDesk;
    QByteArrayView mActs;
    bool mDone = false;
};

/// Signed on, with components that find something.
void FillShared(DepartmentGateway& gateway) {
    ResetShared();
    ResetPatientContext();
    gConnection = &gateway;
    gListing = std::make_shared<AnyListing>();
    auto stock = std::make_shared<FakeStockItem>();
    stock->items = {{u"52"_s, u"G1"_s, u"GAUZE"_s, {.SellingPriceOut = 20, .SellingPriceIn = 12.5}}};
    gStockItem = stock;
    gStockList = gStockListBasic = std::make_shared<FakeStockList>();
    gRoomClass = u"A"_s;
}

void KeyAll(const ChargeGridDifferences& screen, QByteArrayView acts) {
    Desk desk(screen);
    Clerk clerk(desk, acts);
    bool failed = false;
    const auto failures = Failure::EndSeam().Replace([&](const std::exception_ptr& failure, bool) {
        failed = true;
        clerk.Stop();
        Allowing([&] { std::rethrow_exception(failure); });
    });
    while (!clerk.IsDone()) {
        QCoreApplication::processEvents();
        if (!failed)
            desk.Check();
    }
}

/// Nobody looks at the windows: what is asked to be painted never is, which takes most of the time.
class Unpainted : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::UpdateRequest || event->type() == QEvent::UpdateLater ||
               event->type() == QEvent::Expose;
    }
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    [[maybe_unused]] static const auto* const application = new Application(*count, *words);
    static Unpainted unpainted;
    qApp->installEventFilter(&unpainted);
    static const auto clock = FixedClock(*DateTime::FromFields({2026, 11, 21, 10, 30, 15, 0}));
    static const auto boxes = MessageSeam().Replace([](const Message&) { return MsgAnswer::Ok; });
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static DepartmentGateway gateway;
    FillShared(gateway);
    KeyAll(data[0] % 2 == 0 ? kPostChargesDifferences : kAssessmentDifferences,
           QByteArrayView(data, qsizetype(size)).sliced(1));
    Screens::Clear();
    return 0;
}
