#include "components/ReportConnector.h"
#include "maintenance/ReprintGround.h"
#include "reports/commands.h"
#include "reports/Reports.h"
#include "support/slip/SlipPrint.h"
#include "toolkit/ProgramFiles.h"

#include <QPrinter>

using namespace Qt::StringLiterals;

class ReprintPrintTest : public ReprintGround {
  protected:
    static ReprintLine On(const QString& slipNumber, const QString& item, const QString& encoder) {
        ReprintLine charge;
        charge.slip = slipNumber;
        charge.item = item;
        charge.encoder = encoder;
        return charge;
    }
    void ExpectEmptied() { gateway.Expect(EmptyChargePrintCommand()); }
    static QString Written(const QString& item) {
        return SaveDuplicateLineCommand({.code = u"HC"_s + item,
                                         .amount = u"2800.50"_s,
                                         .quantity = u"2"_s,
                                         .revenueCode = u"HC"_s,
                                         .description = u"TREATMENT"_s});
    }
    std::vector<QString> Printed() {
        return slip.Values(u"Print ChargeSlip"_s, [] { Click(PrintButton()); });
    }

    const SlipPrint slip{programDirectory, u"Charge_Slip.RPT"_s, 10};
};

TEST_F(ReprintPrintTest, WritesTheLineAndFillsTheSlip) {
    OpenPatient({line});
    ExpectEmptied();
    gateway.Expect(Written(u"HC001"_s));
    EXPECT_EQ(Printed(), (std::vector<QString>{u"H1042C"_s, u"11/21/2026"_s, u"DELA CRUZ  , JUAN  PEÑA   "_s,
                                               u"104233"_s, u"100085"_s, u"301-A"_s, u"10:30:15 AM"_s,
                                               u"PHILHEALTH"_s, u"HEMODIALYSIS"_s, u"ANA REYES"_s}));
    EXPECT_TRUE(gateway.IsDone());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Default);
}

TEST_F(ReprintPrintTest, GathersTheWholeSlipWhicheverOfItsLinesIsSelected) {
    OpenPatient({On(u"H1"_s, u"A"_s, u"U1"_s), On(u"H2"_s, u"B"_s, u"U1"_s), On(u"H1"_s, u"C"_s, u"U2"_s),
                 On(u"h1"_s, u"D"_s, u"U2"_s), On(u"H1 "_s, u"E"_s, u"U2"_s)});
    ClickRow(3);
    ExpectEmptied();
    gateway.Expect(Written(u"A"_s));
    gateway.Expect(Written(u"C"_s));
    EXPECT_EQ(Printed().at(0), u"H1"_s);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ReprintPrintTest, EmptyQuantityAndAmountGoAsTheyAreShown) {
    ReprintLine fee = line;
    fee.quantity = 0;
    fee.amount = u"0.0000"_s;
    fee.description = Value();
    OpenPatient({fee});
    ExpectEmptied();
    gateway.Expect(SaveDuplicateLineCommand(
        {.code = u"HCHC001"_s, .amount = {}, .quantity = {}, .revenueCode = u"HC"_s, .description = {}}));
    Printed();
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ReprintPrintTest, EmptiesTheTableOnTheSharedConnection) {
    ScriptedGateway shared;
    gConnection = &shared;
    OpenPatient({line});
    shared.Expect(EmptyChargePrintCommand());
    gateway.Expect(Written(u"HC001"_s));
    Printed();
    EXPECT_TRUE(shared.IsDone());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ReprintPrintTest, OutpatientsSlipHasTheMiddleNameAndTheRoomOPD) {
    SetOutpatient();
    Open();
    PatientCode().setCurrentIndex(1);
    ExpectCharges(u"104233B"_s, {line});
    Press(Number(), Qt::Key_Return);
    ExpectEmptied();
    gateway.Expect(Written(u"HC001"_s));
    const std::vector<QString> values = Printed();
    EXPECT_EQ(values.at(2), u"SANTOS ,  EVA  LIM "_s);
    EXPECT_EQ(values.at(3), u"104233B"_s);
    EXPECT_EQ(values.at(4), u"100482"_s);
    EXPECT_EQ(values.at(5), u"OPD"_s);
    EXPECT_EQ(values.at(7), u"MAXICARE"_s);
}

TEST_F(ReprintPrintTest, DoubleClickPrints) {
    OpenPatient({line, On(u"H2"_s, u"B"_s, u"U1"_s)});
    ExpectEmptied();
    gateway.Expect(Written(u"B"_s));
    const auto values =
        slip.Values(u"Print ChargeSlip"_s, [] { DoubleClick(*Grid().viewport(), PlaceOf(2)); });
    EXPECT_EQ(values.at(0), u"H2"_s);
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(ReprintPrintTest, FailureBetweenTheLinesLeavesTheTablePartialAndPrintsNothing) {
    OpenPatient({On(u"H1"_s, u"A"_s, u"U1"_s), On(u"H1"_s, u"B"_s, u"U1"_s)});
    ExpectEmptied();
    gateway.Expect(Written(u"A"_s));
    gateway.ExpectFailure(Written(u"B"_s), RunTimeError(1205, u"Transaction was deadlocked"_s));
    Click(PrintButton());
    EXPECT_EQ(TakeFailure(), 1205);
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_EQ(CurrentMousePointer(), MousePointer::Wait);
}

/// The second routine, which prints the older layout without asking.
class PrintDirectTest : public ReprintPrintTest {
  protected:
    PrintDirectTest() {
        PutTemplate(programDirectory, u"ChargeSlip.rpt"_s,
                    {u"Title"_s, u"PATIENT"_s, u"company"_s, u"AdmNo"_s, u"ISSUER"_s, u"Remarks"_s,
                     u"UserID"_s, u"CHARGEDATE"_s});
        gHospitalName = u"San Rafael General Hospital"_s;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(PaperFile());
    }

    QString PaperFile() const { return programDirectory.filePath(u"paper.pdf"_s); }
    void ExpectIssuer(const std::vector<std::vector<Value>>& rows) {
        gateway.Expect(IssuerCommand(u"CLERK"_s), Rows({u"FirstName"_s, u"LastName"_s}, rows));
    }
    void PrintsTheSlipFirst() {
        ExpectEmptied();
        gateway.Expect(Written(u"HC001"_s));
    }
    /// What the older layout has got when its rows are fetched, and of which databases rows were fetched.
    struct Paper {
        QString path;
        std::vector<QString> formulas;
        QString databases;
    };
    Paper PrintDirect(const QString& query = u"SELECT ItemID FROM REPORTS.dbo.tbLines"_s) {
        Paper paper;
        SetReportConnector([&paper, query](const ReportLogOn& logOn) {
            if (logOn.database == u"REPORTS"_s) {
                paper.path = gReport->Path();
                for (const ParameterField& field : gReport->ParameterFields())
                    paper.formulas.push_back(field.CurrentValue()->ToText());
            }
            paper.databases += QString(logOn.database.constData(), logOn.database.size()) + u' ';
            auto connection = std::make_unique<ScriptedGateway>();
            connection->Expect(
                logOn.database == u"REPORTS"_s ? query : u"SELECT ItemID FROM Clinical_Area.dbo.tbLines"_s,
                Rows({u"ItemID"_s}, {{u"S1"_s}}));
            return connection;
        });
        slip.Values(u"Print ChargeSlip"_s, [this] { Screens::Get<frmReprint>().PrintDirect(printer); });
        return paper;
    }

    QPrinter printer;
};

TEST_F(PrintDirectTest, PrintsTheSlipAndThenTheOlderLayoutFilledByItsNames) {
    OpenPatient({line});
    PrintsTheSlipFirst();
    ExpectIssuer({{u" ANA "_s, u"REYES "_s}});
    const Paper paper = PrintDirect();
    EXPECT_EQ(paper.formulas,
              (std::vector<QString>{u"SAN RAFAEL GENERAL HOSPITAL CC NO. H1042C"_s,
                                    u"DELA CRUZ  , JUAN  PEÑA   "_s, u"PHILHEALTH"_s, u"104233"_s,
                                    u"REYES ,  ANA "_s, u"/"_s, u"NURSE"_s, u"11/20/2026"_s}));
    EXPECT_EQ(paper.path, ProgramDirectory() + u"\\ChargeSlip.rpt"_s);
    EXPECT_EQ(paper.databases, u"PASSWORD REPORTS "_s);
    EXPECT_GT(QFileInfo(PaperFile()).size(), 0) << "the paper was made";
    EXPECT_FALSE(gReport.IsSet());
    EXPECT_TRUE(messages.Shown().empty());
    EXPECT_TRUE(gateway.IsDone());
}

TEST_F(PrintDirectTest, IssuerWhoIsNotOnFileIsEmpty) {
    OpenPatient({line});
    PrintsTheSlipFirst();
    ExpectIssuer({});
    EXPECT_EQ(PrintDirect().formulas.at(4), u""_s);
}

TEST_F(PrintDirectTest, OutpatientsNameHasNoMiddleNameThere) {
    SetOutpatient();
    Open();
    PatientCode().setCurrentIndex(1);
    ExpectCharges(u"104233B"_s, {line});
    Press(Number(), Qt::Key_Return);
    PrintsTheSlipFirst();
    ExpectIssuer({});
    const Paper paper = PrintDirect();
    EXPECT_EQ(paper.formulas.at(1), u"SANTOS ,  EVA "_s);
    EXPECT_EQ(paper.formulas.at(2), u"MAXICARE"_s);
    EXPECT_EQ(paper.formulas.at(3), u"104233B"_s);
}

TEST_F(PrintDirectTest, PrinterThatDoesNotTakeItFails) {
    OpenPatient({line});
    PrintsTheSlipFirst();
    ExpectIssuer({});
    printer.setOutputFileName(programDirectory.filePath(u"no/such/folder/paper.pdf"_s));
    EXPECT_THROW(PrintDirect(), RunTimeError);
}

TEST_F(PrintDirectTest, EveryTableOfTheOlderLayoutIsReadInReports) {
    const QString file = programDirectory.filePath(u"ChargeSlip.rpt"_s);
    QFile older(file);
    ASSERT_TRUE(older.open(QIODevice::ReadWrite));
    QByteArray text = older.readAll();
    text.replace("</tables>", "<table name=\"Heads\" location=\"Clinical_Area.dbo.tbHeads\"/></tables>");
    text.replace("FROM {Lines}", "FROM {Lines}, {Heads}");
    older.resize(0);
    ASSERT_GT(older.write(text), 0);
    older.close();
    OpenPatient({line});
    PrintsTheSlipFirst();
    ExpectIssuer({});
    PrintDirect(u"SELECT ItemID FROM REPORTS.dbo.tbLines, REPORTS.dbo.tbHeads"_s);
    EXPECT_GT(QFileInfo(PaperFile()).size(), 0) << "the paper was made";
    EXPECT_EQ(user->passwordReads, 3) << "one table of the slip and two of the older layout";
}
