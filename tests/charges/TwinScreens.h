#pragma once

#include "charges/ChargeGrid.h"
#include "charges/frmAssessment.h"
#include "charges/frmPostCharges.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "patients/CashTarget.h"
#include "patients/FinderTarget.h"
#include "patients/PatientContext.h"
#include "support/ErrorOf.h"
#include "support/RevenueRows.h"
#include "support/ScreenTest.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Screens.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStringList>

#include <map>

/// A hospital that answers every command of the two charge screens and writes the commands down.
class RecordingGateway : public CommandGateway {
  public:
    QStringList commands;
    /// The counters have no row.
    bool noCounters = false;

    bool Connected() const override { return true; }
    QString ConnectionString() const override { return QStringLiteral("recording"); }

  protected:
    Outcome Run(const QString& command) override {
        commands << command;
        for (const auto& [part, rows] : Answers()) {
            if (command.contains(part))
                return {rows, 0};
        }
        return {nullptr, 1};
    }

  private:
    std::map<QString, std::shared_ptr<const RowData>> Answers() const {
        const std::vector<std::vector<Value>> counter =
            noCounters ? std::vector<std::vector<Value>>() : std::vector<std::vector<Value>>{{1042}};
        return {
            {QStringLiteral("Select * from"), Rows({QStringLiteral("ChargeSlip")}, counter)},
            {QStringLiteral("SELECT AssessmentNum"), Rows({QStringLiteral("AssessmentNum")}, counter)},
            {QStringLiteral("tbhemopackage"), Rows({QStringLiteral("ItemID")})},
            {QStringLiteral("spEarCare_GetCashPatient"), Rows({QStringLiteral("ADM. #")})},
            {QStringLiteral("spEarCare_GetPatient"), Rows({QStringLiteral("hospital #")})},
            {QStringLiteral("ORDER BY PrintID"),
             Rows({QStringLiteral("ItemID"), QStringLiteral("RevenueID"), QStringLiteral("Description"),
                   QStringLiteral("Quantity"), QStringLiteral("Amount")})},
            {QStringLiteral("tbhospitalInfo"), Rows({QStringLiteral("company"), QStringLiteral("Address1")})},
            {QStringLiteral("spEarCare_SearchRevenue"),
             RevenueRows({{QStringLiteral("STOCK CENTRE"), QStringLiteral("XR"), QStringLiteral("Y"), true,
                           QStringLiteral("52")}})}};
    }
};

/// Keeps what the message boxes say, and presses Ok.
struct RecordingMessages {
    QStringList texts;
    const Seam<MsgAnswer(const Message&)>::Replacement boxes =
        MessageSeam().Replace([this](const Message& message) {
            texts << message.text;
            return MsgAnswer::Ok;
        });
};

/// What a test calls by another name on the two charge screens.
struct TwinScreen {
    const char* name;
    Form& (*form)();
    /// Does what a pick of a patient does for the lines.
    void (*letKeyLines)();
    bool (*save)();
    const char* nameBox;
    const char* totalBox;
    /// The requesting doctor.
    const char* doctorCode;
    const char* doctorName;
    const char* doctorPicker;
    const char* exit;
    const ChargeGridDifferences& differences;
};

inline const TwinScreen& PostChargesTwin() {
    static const TwinScreen twin{.name = "PostCharges",
                                 .form = []() -> Form& { return Screens::Get<frmPostCharges>(); },
                                 .letKeyLines =
                                     [] {
                                         Find<QLineEdit>(Screens::Get<frmPostCharges>(), "txtFirstName")
                                             .setText(QStringLiteral("JUAN"));
                                     },
                                 .save = [] { return Screens::Get<frmPostCharges>().SaveCharges(); },
                                 .nameBox = "txtLastName",
                                 .totalBox = "txtTAmount",
                                 .doctorCode = "txtDocID",
                                 .doctorName = "txtRequestingDoc",
                                 .doctorPicker = "Command2",
                                 .exit = "Command1",
                                 .differences = kPostChargesDifferences};
    return twin;
}

inline const TwinScreen& AssessmentTwin() {
    static const TwinScreen twin{.name = "Assessment",
                                 .form = []() -> Form& { return Screens::Get<frmAssessment>(); },
                                 .letKeyLines = [] { Screens::Get<frmAssessment>().EnableExams(); },
                                 .save =
                                     [] {
                                         QString number;
                                         return Screens::Get<frmAssessment>().SaveAssessment(number);
                                     },
                                 .nameBox = "txtSname",
                                 .totalBox = "txtGross",
                                 .doctorCode = "txtDoctorID",
                                 .doctorName = "txtDoctor",
                                 .doctorPicker = "cmdDoctor",
                                 .exit = "cmdClose",
                                 .differences = kAssessmentDifferences};
    return twin;
}

/// One of the two charge screens, open with a patient whose lines can be keyed.
class TwinGround : public ScreenTest {
  public:
    explicit TwinGround(const TwinScreen& twin)
        : screen(twin) {
        user->connection = &recorder;
        gConnection = &recorder;
        gRoomClass = QStringLiteral("A");
        gPatientType = QStringLiteral("O");
        gChargeMode = QStringLiteral("Post");
        listing->service.ResultCode = QStringLiteral("S1");
        listing->service.Rates = {101};
        listing->doctor = {QStringLiteral("D003"), QStringLiteral("CASTAÑEDA"), QStringLiteral("LUIS"),
                           QStringLiteral("PEÑA")};
        RegisterFinderTarget(QStringLiteral("Post"),
                             []() -> FinderTarget& { return Screens::Get<frmPostCharges>(); });
        RegisterCashTarget([]() -> CashTarget& { return Screens::Get<frmAssessment>(); });
        screen.form().Show();
        Activate(screen.form());
    }
    ~TwinGround() override { RegisterCashTarget({}); }

    using ScreenTest::listing;
    using ScreenTest::TakeFailure;

    Form& Screen() const { return screen.form(); }
    template <class Control> Control& The(const char* name) const { return Find<Control>(Screen(), name); }
    QLineEdit& Box(const char* name) const { return The<QLineEdit>(name); }
    ChargeGrid& Charges() const { return *Screen().findChild<ChargeGrid*>(); }
    FlexCells& Cells() const { return Charges().Cells(); }

    /// Puts a patient into the header and lets lines be keyed.
    void PutPatient() {
        Box(screen.nameBox).setText(QStringLiteral("CRUZ"));
        screen.letKeyLines();
        if (auto* id = Screen().findChild<QLineEdit*>(QStringLiteral("txtId")))
            id->setText(QStringLiteral("104233"));
    }
    /// A first line of a department that a save takes.
    void PutLine(const QString& department) {
        Cells().SetTextMatrix(1, Column::kDepartment, department);
        Cells().SetTextMatrix(1, Column::kCode, QStringLiteral("S1"));
        Cells().SetTextMatrix(1, Column::kParticular, QStringLiteral("CLEANING"));
    }
    /// Puts the current cell there and lets the editor take the focus from the name box.
    void OpenByFocus(int row, int col) {
        Box(screen.nameBox).setFocus();
        Cells().SetCell(row, col);
        Charges().Grid()->setFocus();
    }
    /// Keys a text into the open cell, and Enter.
    void Key(const QString& text) {
        Type(*Charges().Editor(), text);
        Press(*Charges().Editor(), Qt::Key_Return);
    }
    /// The number of the failure of a save, 0 for none.
    int Save() {
        return ErrorOf([this] { screen.save(); });
    }
    /// Presses the button that saves and prints, with no template in reach of it.
    void Print() {
        Click(The<QPushButton>("cmdPrint"));
        TakeFailure();
    }
    /// The commands since the last call, by their objects alone, "clear" for an emptied print table.
    QStringList TakeCommands() {
        static const QRegularExpression object(QStringLiteral("\\.\\.(sp|tb)(EarCare_?)?(\\w+)"));
        QStringList objects;
        for (const QString& command : recorder.commands)
            objects << (command.startsWith(QLatin1String("delete"), Qt::CaseInsensitive)
                            ? QStringLiteral("clear")
                            : object.match(command).captured(3));
        recorder.commands.clear();
        return objects;
    }

    const TwinScreen& screen;
    RecordingGateway recorder;
    RecordingMessages boxes;

  private:
    void TestBody() override {}
};
