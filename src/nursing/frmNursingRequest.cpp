#include "nursing/frmNursingRequest.h"

#include "charges/ChargeGrid.h"
#include "charges/frmPostCharges.h"
#include "components/shared.h"
#include "gateway/CommandGateway.h"
#include "nursing/commands.h"
#include "patients/PatientContext.h"
#include "reports/frmReport.h"
#include "reports/ReportFiles.h"
#include "reports/Reports.h"
#include "text/Format.h"
#include "text/IsDate.h"
#include "text/Trim.h"
#include "toolkit/Controls.h"
#include "toolkit/FlexGrid.h"
#include "toolkit/Look.h"
#include "toolkit/MsgBox.h"
#include "toolkit/Picker.h"
#include "toolkit/Screens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The columns of the queue that are read. The other ones are shown only.
namespace QueueColumn {
constexpr int kHospitalNumber = 1;
constexpr int kIdNumber = 2;
constexpr int kLastName = 3;
constexpr int kFirstName = 4;
constexpr int kMiddleName = 5;
constexpr int kSex = 13;
constexpr int kBirthDate = 15;
constexpr int kAge = 16;
constexpr int kAdmissionDate = 17;
constexpr int kRoomId = 18;
constexpr int kDoctorId = 19;
constexpr int kRequestingDoctor = 20;
constexpr int kPatientLetter = 23;
constexpr int kRequestNumber = 24;
} // namespace QueueColumn

/// The blanks behind a heading are room for what stands below it. The columns behind the headings show under
/// the names of their fields: the nurse, the room, the remarks and the number.
constexpr std::array<GridColumn, 25> kQueueColumns = {
    {{u"   ", GridColumn::kAsHeading},
     {u"Hospnum", 0},
     {u"IDNum    ", GridColumn::kAsHeading},
     {u"LastName                  ", GridColumn::kAsHeading},
     {u"Firstname                  ", GridColumn::kAsHeading},
     {u"Middlename               ", 0},
     {u"ItemID", 0},
     {u"ItemDesc                                    ", GridColumn::kAsHeading},
     {u"Requesting Nurse ", 0},
     {.width = 2100},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {},
     {.width = 0},
     {.width = 0},
     {.width = 0},
     {.width = 5000},
     {.width = 0},
     {}}};

constexpr QSize kListSize(12000, 4800);

/// A date as the charge screen shows it; a text that names none stays as it is.
QString DateText(const QString& text) {
    const std::optional<DateTime> date = ParseDate(text);
    return date ? Format(*date, u"mm/dd/yyyy") : text;
}

/// The rate class of a room; empty for a room that is on no list.
QString RoomClassOf(const QString& roomId) {
    RowSet room = gCurrentUser->SQLConnection()->Open(RoomClassCommand(roomId), CursorType::Dynamic,
                                                      LockType::Optimistic);
    // A room without a class is a mistake in the hospital's tables, and fails.
    QString roomClass = room.Eof() ? QString() : room.Fields(u"RoomClassID").ToText();
    room.Close();
    return roomClass;
}

} // namespace

frmNursingRequest::frmNursingRequest() {
    Layout();
    Wire();
}

void frmNursingRequest::Layout() {
    setObjectName(u"frmNursingRequest"_s);
    // Kept: nobody has given this screen a title of its own.
    setWindowTitle(u"Form1"_s);
    setAccessibleName(u"Pending Requests"_s);
    QLabel* heading = NewHeading(u"Pending Requests"_s, this);
    heading->setObjectName(u"Label6"_s);
    auto* hint = new QLabel(u"Double-click on the patient you want to process."_s, this);
    hint->setObjectName(u"Label3"_s);
    grdRequest = NewList(u"grdRequest"_s, u"Pending Requests"_s, kListSize, this);
    grdRequest->SetColumns(kQueueColumns);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(Space::kNormal);
    layout->addWidget(heading);
    layout->addWidget(hint);
    layout->addWidget(grdRequest, 1);
    layout->addLayout(LayoutActions());
    SetTabOrder({grdRequest, Command1, cmdCancel, cmdClose});
    grdRequest->setFocus();
}

QHBoxLayout* frmNursingRequest::LayoutActions() {
    // Kept: nothing shows this button and nothing enables the next one; what they do is ready behind them.
    Command1 = NewButton(u"Command1"_s, u"&Print RequestForm"_s, this);
    Command1->hide();
    cmdCancel = NewButton(u"cmdCancel"_s, u"&Cancel Request"_s, this);
    cmdCancel->setEnabled(false);
    cmdClose = NewButton(u"cmdClose"_s, u"&Close"_s, this);
    return RightAligned({Command1, cmdCancel, cmdClose});
}

void frmNursingRequest::Wire() {
    WirePicker({.list = grdRequest, .pick = [this] { grdRequest_DblClick(); }});
    connect(Command1, &QPushButton::clicked, this, &frmNursingRequest::Command1_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmNursingRequest::cmdCancel_Click);
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
}

void frmNursingRequest::Form_Load() {
    LoadRequests();
}

void frmNursingRequest::LoadRequests() {
    RowSet requests =
        gCurrentUser->SQLConnection()->Open(NurseRequestCommand(), CursorType::Dynamic, LockType::ReadOnly);
    FlexCells& cells = grdRequest->Cells();
    cells.Bind(requests.Data());
    requests.Close();
    if (cells.Rows() == 1) {
        // The grid of an empty queue has one blank row.
        cells.SetRows(2);
        cells.SetRow(1);
    }
}

void frmNursingRequest::grdRequest_DblClick() {
    const HospitalInfoBoxes& info = Screens::Get<frmPostCharges>().Boxes().info;
    // Kept: the patient's letter is read and decides nothing; every patient's id number goes the same way.
    // NOLINTNEXTLINE(bugprone-branch-clone)
    if (grdRequest->CurrentText(QueueColumn::kPatientLetter) == u"I"_s)
        info.txtId->setText(grdRequest->CurrentText(QueueColumn::kIdNumber));
    else
        info.txtId->setText(grdRequest->CurrentText(QueueColumn::kIdNumber));
    ProcessRequest();
}

/// Neither the patient type nor the charge mode changes; both stay as the last menu entry set them.
void frmNursingRequest::ProcessRequest() {
    const QString roomClass = RoomClassOf(Trim(grdRequest->CurrentText(QueueColumn::kRoomId)));
    auto& charges = Screens::Get<frmPostCharges>();
    const auto& [name, info, txtDocID, txtRequestingDoc] = charges.Boxes();
    info.txtPno->setText(grdRequest->CurrentText(QueueColumn::kHospitalNumber));
    info.txtId->setText(grdRequest->CurrentText(QueueColumn::kIdNumber));
    name.txtLastName->setText(grdRequest->CurrentText(QueueColumn::kLastName));
    name.txtFirstName->setText(grdRequest->CurrentText(QueueColumn::kFirstName));
    name.txtMiddleName->setText(grdRequest->CurrentText(QueueColumn::kMiddleName));
    info.txtRoom->setText(grdRequest->CurrentText(QueueColumn::kRoomId));
    info.txtDateAdmitted->setText(grdRequest->CurrentText(QueueColumn::kAdmissionDate));
    txtDocID->setText(grdRequest->CurrentText(QueueColumn::kDoctorId));
    txtRequestingDoc->setText(grdRequest->CurrentText(QueueColumn::kRequestingDoctor));
    name.txtAge->setText(grdRequest->CurrentText(QueueColumn::kAge));
    name.txtDob->setText(DateText(grdRequest->CurrentText(QueueColumn::kBirthDate)));
    gRoomClass = roomClass;
    charges.HoldPatient();
    name.txtSex->setText(grdRequest->CurrentText(QueueColumn::kSex) == u"M"_s ? u"MALE"_s : u"FEMALE"_s);
    LoadExam(grdRequest->CurrentText(QueueColumn::kIdNumber));
    FlexCells& lines = charges.Charges().Cells();
    lines.SetRows(lines.Rows() + 1);
    Unload();
    charges.Show();
}

void frmNursingRequest::LoadExam(const QString& IdNum) {
    const QString command = LoadExamCommand(IdNum);
    RowSet exams = gCurrentUser->SQLConnection()->Open(command, CursorType::Dynamic, LockType::Optimistic);
    if (!exams.Eof()) {
        mHasExams = true;
        ChargeGrid& charges = Screens::Get<frmPostCharges>().Charges();
        // Kept: the same question a second time; the first answer only told whether there are any.
        charges.Cells().Bind(gConnection->Execute(command).Data());
        charges.HideEditor();
    } else {
        mHasExams = false;
    }
    exams.Close();
}

void frmNursingRequest::cmdCancel_Click() {
    if (MsgBox({.text = u"Are you sure to revoke the request?"_s,
                .title = u"Notification"_s,
                .buttons = MsgButtons::YesNo,
                .defaultAnswer = MsgAnswer::No}) != MsgAnswer::Yes)
        return;
    gCurrentUser->SQLConnection()->ExecuteNoResult(RevokeNurseRequestCommand(
        grdRequest->CurrentText(QueueColumn::kRequestNumber), gCurrentUser->EmployeeCode()));
    MsgBox({.text = u"Request has been revoked."_s, .icon = MsgIcon::Information});
    LoadRequests();
}

void frmNursingRequest::Command1_Click() {
    PrintConsultation(Trim(grdRequest->CurrentText(QueueColumn::kRequestNumber)));
}

void frmNursingRequest::PrintConsultation(const QString& strRequestNum) {
    OpenReportOn(u"RADIOLOGY"_s, PathOf(ReportFile::kConsultation), [&strRequestNum](const QString& name) {
        return name == u"@REQUESTNUM"_s ? std::optional(strRequestNum) : std::nullopt;
    });
    ViewReport(u"Consultation Form"_s, false, ViewerSwitch::Switch258).release()->ShowModal();
    gReport = nullptr;
}
