#include "charges/TwinScreens.h"
#include "components/ReportConnector.h"
#include "patients/frmSearchPatient.h"
#include "reports/Reports.h"
#include "support/AwaitWork.h"
#include "support/CaseName.h"
#include "support/ProgramDirectoryAt.h"
#include "toolkit/ProgramFiles.h"

#include <QApplication>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>

using namespace Qt::StringLiterals;

// What tells the two charge screens apart, point by point: each is done on both screens, and what comes of it
// is written down as a text.

namespace {

QString NameBoxOpens(TwinGround& on) {
    QString opened;
    const QObject scope;
    QTimer::singleShot(0, &scope, [&opened] {
        if (auto* list = qobject_cast<Form*>(QApplication::activeModalWidget())) {
            opened = list->objectName();
            list->Unload();
        }
    });
    Press(on.Box(on.screen.nameBox), Qt::Key_Return);
    RunEvents();
    return Screens::IsLoaded<frmSearchPatient>() ? u"frmSearchPatient"_s : opened;
}

QString PatientTypeOfASave(TwinGround& on) {
    on.PutPatient();
    on.PutLine(u"HC"_s);
    gPatientType = u"O"_s;
    if (auto* walkIn = on.Screen().findChild<QRadioButton*>(u"optType(2)"_s))
        walkIn->click();
    on.Save();
    return gPatientType;
}

QString Headers(TwinGround& on) {
    return on.Cells().TextMatrix(0, 4) + u"/"_s + on.Cells().TextMatrix(0, 5);
}

QString DepartmentStep(TwinGround& on) {
    on.PutPatient();
    const int quantity = on.screen.differences.quantityCol;
    on.Cells().SetTextMatrix(1, quantity, u"3"_s);
    QStringList lines;
    for (const int row : {1, 2}) {
        on.OpenByFocus(row, Column::kDepartment);
        on.Key(u"xr"_s);
        QStringList texts = {on.Cells().TextMatrix(row, quantity)};
        for (int col = 7; col <= 10; ++col)
            texts << on.Cells().TextMatrix(row, col);
        lines << texts.join(u'|');
    }
    return lines.join(u", "_s);
}

QString AmountOfAnEarCareLine(TwinGround& on) {
    on.PutPatient();
    on.PutLine(u"HC"_s);
    on.OpenByFocus(1, Column::kAmount);
    return on.Charges().Editor()->isVisible() ? u"open"_s : u"closed"_s;
}

QString LockedColumns(TwinGround& on) {
    on.PutPatient();
    QStringList locked;
    for (int col = 1; col < Column::kCount; ++col) {
        on.Charges().HideEditor();
        on.OpenByFocus(1, col);
        if (!on.Charges().Editor()->isVisible())
            locked << QString::number(col);
    }
    return locked.join(u' ');
}

QString ColumnsThatPassOverTheAmount(TwinGround& on) {
    on.PutPatient();
    QStringList columns;
    for (const int col : {6, 7}) {
        const int row = col - 5;
        on.Cells().SetTextMatrix(row, col, u"Y"_s);
        on.OpenByFocus(row, Column::kAmount);
        if (on.Cells().Row() != row)
            columns << QString::number(col);
    }
    return columns.join(u' ');
}

QString BoxOfTheTotal(TwinGround& on) {
    on.Cells().SetTextMatrix(1, Column::kAmount, u"12.5"_s);
    on.Charges().ComputeTotal();
    QStringList boxes;
    for (const QLineEdit* box : on.Screen().findChildren<QLineEdit*>()) {
        if (box->text() == u"12.50"_s)
            boxes << box->objectName();
    }
    return boxes.join(u' ');
}

void KeyServiceIntoFirstLine(TwinGround& on) {
    on.PutPatient();
    on.Cells().SetTextMatrix(1, Column::kDepartment, u"XR"_s);
    on.listing->answers = {true};
    on.OpenByFocus(1, Column::kCode);
    on.Key(u"s1"_s);
}

QString SectionOfServices(TwinGround& on) {
    KeyServiceIntoFirstLine(on);
    return on.listing->searches.at(0).section;
}

QString PriceOfAnotherLetter(TwinGround& on) {
    gRoomClass = u"Z"_s;
    KeyServiceIntoFirstLine(on);
    return on.Cells().TextMatrix(1, on.screen.differences.priceCol);
}

QString SaveWithoutAName(TwinGround& on) {
    on.PutPatient();
    on.PutLine(u"HC"_s);
    on.Box(on.screen.nameBox).clear();
    on.Save();
    return on.boxes.texts.join(u' ');
}

QString Numbering(TwinGround& on) {
    on.PutPatient();
    on.PutLine(u"HC"_s);
    on.Save();
    return on.recorder.commands.at(0) + u" gives "_s + gSlipNumber;
}

QString SaveWithoutACounter(TwinGround& on) {
    on.PutPatient();
    on.PutLine(u"HC"_s);
    on.recorder.noCounters = true;
    const int failure = on.Save();
    return failure != 0 ? u"error %1"_s.arg(failure) : u"saved as '%1'"_s.arg(gSlipNumber);
}

/// What goes out for one line during the save, and what after it when it is printed as well.
QString CommandsOfALine(TwinGround& on, const QString& department) {
    on.PutPatient();
    on.PutLine(department);
    on.Save();
    const QStringList saved = on.TakeCommands();
    on.Print();
    const QStringList printed = on.TakeCommands().mid(saved.size());
    // The counter's reading and its bump come first.
    return u"save: "_s + saved.mid(2).join(u' ') + u", print: "_s + printed.join(u' ');
}

QString CommandsOfANormalLine(TwinGround& on) {
    QString commands = CommandsOfALine(on, u"HC"_s);
    return commands.remove(u"clear "_s);
}

QString PrintTableIsCleared(TwinGround& on) {
    const QString commands = CommandsOfALine(on, u"HC"_s);
    return commands.indexOf(u"clear"_s) < commands.indexOf(u"print:"_s) ? u"in the save"_s : u"behind it"_s;
}

QString CommandsOfAPackage(TwinGround& on) {
    QString commands = CommandsOfALine(on, u"YP"_s);
    return commands.remove(u"clear"_s).simplified();
}

QString Actions(TwinGround& on) {
    QStringList captions;
    for (const char* name : {"cmdSave", "cmdPrint"}) {
        if (const auto* button = on.Screen().findChild<QPushButton*>(QString::fromLatin1(name)))
            captions << button->text();
    }
    return captions.join(u", "_s);
}

QString SlipPrinted(TwinGround& on) {
    const auto directory = ProgramDirectoryAt(QStringLiteral(TARVEN_SOURCE_DIR));
    SetReportConnector([](const ReportLogOn&) { return std::make_unique<RecordingGateway>(); });
    on.PutPatient();
    on.PutLine(u"HC"_s);
    QString slip;
    const QObject scope;
    QTimer::singleShot(0, &scope, [&slip] {
        qsizetype values = 0;
        for (const ParameterField& field : gReport->ParameterFields())
            values += field.CurrentValue().has_value() ? 1 : 0;
        slip = u"%1, %2 parameters"_s.arg(QString(gReport->Path()).remove(ProgramDirectory())).arg(values);
        auto* viewer = qobject_cast<Form*>(QApplication::activeModalWidget());
        AwaitWork(*viewer);
        viewer->Unload();
    });
    on.Print();
    SetReportConnector({});
    return slip;
}

QString Exit(TwinGround& on) {
    on.PutPatient();
    Click(on.The<QPushButton>(on.screen.exit));
    EXPECT_FALSE(Screens::IsLoaded<frmPostCharges>() || Screens::IsLoaded<frmAssessment>());
    return QString::fromLatin1(on.screen.exit) + u": "_s + on.boxes.texts.join(u' ');
}

QString RowsAfterAnActivation(TwinGround& on) {
    Form& screen = on.Screen();
    on.Cells().SetRows(12);
    Screens::Get<Form>().Show();
    screen.Show();
    return QString::number(on.Cells().Rows());
}

QString TotalAtLoad(TwinGround& on) {
    return on.Box(on.screen.totalBox).text();
}

/// Picks the requesting doctor, with another name in the box that both screens have.
void PickDoctor(TwinGround& on) {
    on.PutPatient();
    on.Box("txtDoctor").setText(u"DR. ADMITTING"_s);
    on.listing->answers = {true};
    Click(on.The<QPushButton>(on.screen.doctorPicker));
}

QString DoctorBoxes(TwinGround& on) {
    PickDoctor(on);
    QStringList boxes;
    for (const QLineEdit* box : on.Screen().findChildren<QLineEdit*>()) {
        if (box->text() == u"D003"_s || box->text() == u"DR. CASTAÑEDA,LUIS PEÑA"_s)
            boxes << box->objectName();
    }
    boxes.sort();
    return boxes.join(u' ');
}

QString DoctorSent(TwinGround& on) {
    PickDoctor(on);
    on.PutLine(u"HC"_s);
    on.Save();
    static const QRegularExpression name(u"'(DR\\. [^']*)'"_s);
    return name.match(on.recorder.commands.join(u'\n')).captured(1);
}

struct Point {
    const char* name;
    QString (*on)(TwinGround&);
    QString postCharges;
    QString assessment;

    friend void PrintTo(const Point& point, std::ostream* out) { *out << point.name; }
};

const std::vector<Point>& Points() {
    static const std::vector<Point> points = {
        {"Patient", NameBoxOpens, u"frmSearchPatient"_s, u"frmCashWalkIn"_s},
        {"PatientType", PatientTypeOfASave, u"I"_s, u"W"_s},
        {"Columns4And5", Headers, u"Quantity/Price"_s, u"Price/Quantity"_s},
        {"DepartmentStep", DepartmentStep, u"3||||, 1||||"_s, u"1|Y|N|Y|52, 1|Y|N|Y|52"_s},
        {"AmountColumnOfHC", AmountOfAnEarCareLine, u"closed"_s, u"open"_s},
        {"ColLocked", LockedColumns, u"3 7 8 9 10 11 12"_s, u"3 7 8 9 10"_s},
        {"AmountJumpOnFocus", ColumnsThatPassOverTheAmount, u"6"_s, u"7"_s},
        {"TotalBox", BoxOfTheTotal, u"txtTAmount"_s, u"txtGross"_s},
        {"OtherSectionID", SectionOfServices, u"HC"_s, u"XR"_s},
        {"RateLetterOutsideAToH", PriceOfAnotherLetter, u"101.00"_s, u"0.00"_s},
        {"NameCheck", SaveWithoutAName, QString(), u"Please enter the patients name."_s},
        {"Numbering", Numbering, u"Select * from Clinical_Area..tbEarCareChargeSlip gives H1042C"_s,
         u"SELECT AssessmentNum FROM BILLING..tbAssessmentNum gives 1042"_s},
        {"EmptyCounterTable", SaveWithoutACounter, u"saved as ''"_s, u"error 3021"_s},
        {"ServerCommandPerLine", CommandsOfANormalLine, u"save: Append_Charging SaveChargePrint, print: "_s,
         u"save: Assessment, print: GlobalDumpChargeSlip DumpChargeSlip"_s},
        {"PrintTableCleared", PrintTableIsCleared, u"in the save"_s, u"behind it"_s},
        {"PackageLines", CommandsOfAPackage, u"save: , print:"_s,
         u"save: hemopackage, print: GlobalDumpChargeSlip DumpChargeSlip"_s},
        {"Actions", Actions, u"Save/Print"_s, u"&Save, Save && &Print"_s},
        {"Report", SlipPrinted, u"/Reports/Charge_Slip.RPT, 10 parameters"_s,
         u"/Reports/AssessmentSlip.RPT, 6 parameters"_s},
        {"Exit", Exit, u"Command1: "_s, u"cmdClose: Are you sure to close this program?"_s},
        {"SetupGrid", RowsAfterAnActivation, u"9"_s, u"12"_s},
        {"ComputeTotalAtLoad", TotalAtLoad, u"0.00"_s, QString()},
        {"RequestingDoctorBoxes", DoctorBoxes, u"txtDocID txtRequestingDoc"_s, u"txtDoctor txtDoctorID"_s},
        {"DoctorsNameSent", DoctorSent, u"DR. ADMITTING"_s, u"DR. CASTAÑEDA,LUIS PEÑA"_s},
    };
    return points;
}

class TwinsCompared : public testing::TestWithParam<Point> {};

INSTANTIATE_TEST_SUITE_P(Points, TwinsCompared, testing::ValuesIn(Points()), CaseName());

} // namespace

TEST_P(TwinsCompared, DifferInThis) {
    {
        TwinGround ground(PostChargesTwin());
        EXPECT_EQ(GetParam().on(ground), GetParam().postCharges) << "on the posting screen";
    }
    TwinGround ground(AssessmentTwin());
    EXPECT_EQ(GetParam().on(ground), GetParam().assessment) << "on the assessment";
}
