#include "report/output/PdfJob.h"
#include "ReportsTest.h"
#include "support/CaseName.h"
#include "support/FixedClock.h"

using namespace Qt::StringLiterals;

// The department's reports over the demo data, each compared with its golden text.

namespace {

const QString kHospital = u"SAN RAFAEL GENERAL HOSPITAL"_s;
const QString kAddress = u"148 MABINI ST., POBLACION, SAN RAFAEL"_s;

struct GoldenCase {
    const char* name;
    QString file;
    QString golden;
    std::vector<Value> values;
};

DateTime On(int month, int day) {
    return DateTime::FromFields({.year = 2026, .month = month, .day = day, .hour = 0}).value();
}

std::vector<Value> Range(DateTime start, DateTime end) {
    return {start, end, kHospital, kAddress};
}

std::vector<Value> RangeOf(const QString& patientType, DateTime start, DateTime end) {
    return {patientType, start, end, kHospital, kAddress};
}

class DepartmentReport : public ReportsTest, public testing::WithParamInterface<GoldenCase> {};

} // namespace

TEST_P(DepartmentReport, OverTheDemoDataIsItsGoldenText) {
    const auto document = Document(GetParam().file, GetParam().values);
    ExpectGolden(TextOfPages(*document), GetParam().golden);
    // To look at the pages: TARVEN_REPORT_PDF names a folder.
    if (qEnvironmentVariableIsSet("TARVEN_REPORT_PDF")) {
        const QString folder = qEnvironmentVariable("TARVEN_REPORT_PDF");
        const QString file = folder + u'/' + GetParam().golden + u".pdf"_s;
        EXPECT_EQ(PdfJob(*document, GetParam().golden, file).Finish(), QString());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Templates, DepartmentReport,
    testing::Values(GoldenCase{"Audit",
                               u"AuditReport.RPT"_s,
                               u"audit.txt"_s,
                               {On(10, 25), On(10, 26), kHospital, kAddress, u"NURSE"_s}},
                    GoldenCase{"InPatientIncome", u"IncomeReport.RPT"_s, u"income_in.txt"_s,
                               RangeOf(u"I"_s, On(10, 1), On(10, 31))},
                    GoldenCase{"OutPatientIncome", u"IncomeReport.RPT"_s, u"income_out.txt"_s,
                               RangeOf(u"O"_s, On(10, 1), On(10, 31))},
                    GoldenCase{"CashIncome", u"IncomeReportCash.RPT"_s, u"income_cash.txt"_s,
                               Range(On(9, 1), On(10, 31))},
                    GoldenCase{"Statistics", u"StatisticsReport.RPT"_s, u"statistics.txt"_s,
                               Range(On(10, 1), On(10, 31))},
                    GoldenCase{"InPatientCompany", u"CompanyReport.RPT"_s, u"company_in.txt"_s,
                               RangeOf(u"I"_s, On(10, 1), On(10, 31))},
                    GoldenCase{"OutPatientCompany", u"CompanyReport.RPT"_s, u"company_out.txt"_s,
                               RangeOf(u"O"_s, On(10, 1), On(10, 31))},
                    GoldenCase{"Ledger",
                               u"Orvandelle_Ledger.rpt"_s,
                               u"ledger.txt"_s,
                               {u"O"_s, u"104196B"_s, kHospital, u"MORALES, HONORIO SANTOS"_s, u"100218"_s,
                                u"OPD"_s, u"10/23/2026 8:00:00 AM"_s, u""_s, u""_s, kAddress, u""_s}},
                    GoldenCase{
                        "EmptyLedger",
                        u"Orvandelle_Ledger.rpt"_s,
                        u"ledger_empty.txt"_s,
                        {u"O"_s, u""_s, u""_s, u",  "_s, u""_s, u""_s, u""_s, u""_s, u""_s, u""_s, u""_s}},
                    GoldenCase{"EmptyPeriod",
                               u"AuditReport.RPT"_s,
                               u"audit_empty.txt"_s,
                               {On(1, 1), On(1, 1), kHospital, kAddress, u"NURSE"_s}},
                    GoldenCase{"CensusAll", u"CensusAll.rpt"_s, u"census_all.txt"_s, {}},
                    GoldenCase{"CensusStation", u"CensusStation.rpt"_s, u"census_station.txt"_s, {}}),
    CaseName());

struct ParameterCase {
    const char* name;
    QString file;
    QString parameters;
};

class TemplateParameters : public ReportsTest, public testing::WithParamInterface<ParameterCase> {};

TEST_P(TemplateParameters, StandInTheOrderInWhichTheScreenSendsThem) {
    QStringList names;
    const auto report = Open(GetParam().file, {});
    for (const ParameterField& field : report->ParameterFields()) {
        names << field.Name();
        EXPECT_EQ(field.TakesDates(), field.Name() == "Start"_L1 || field.Name() == "End"_L1);
    }
    EXPECT_EQ(names.join(u' '), GetParam().parameters);
}

INSTANTIATE_TEST_SUITE_P(
    Templates, TemplateParameters,
    testing::Values(
        ParameterCase{"Audit", u"AuditReport.RPT"_s,
                      u"Start End HospitalName HospitalAddress EmployeeCode"_s},
        ParameterCase{"Income", u"IncomeReport.RPT"_s,
                      u"PatientType Start End HospitalName HospitalAddress"_s},
        ParameterCase{"CashIncome", u"IncomeReportCash.RPT"_s, u"Start End HospitalName HospitalAddress"_s},
        ParameterCase{"Statistics", u"StatisticsReport.RPT"_s, u"Start End HospitalName HospitalAddress"_s},
        ParameterCase{"Company", u"CompanyReport.RPT"_s,
                      u"PatientType Start End HospitalName HospitalAddress"_s},
        ParameterCase{"Ledger", u"Orvandelle_Ledger.rpt"_s,
                      u"PatientType IdNum HospitalName Patient HospNum Room AdmissionDate Spare1 Spare2 "
                      "HospitalAddress Spare3"_s},
        ParameterCase{"CensusAll", u"CensusAll.rpt"_s, u""_s},
        ParameterCase{"CensusStation", u"CensusStation.rpt"_s, u""_s}),
    CaseName());

/// What the reports make of particular rows.
class ReportRows : public ReportsTest {
  protected:
    QString TextOf(const QString& file, const std::vector<Value>& values) {
        return TextOfPages(*Document(file, values)).simplified();
    }
};

TEST_F(ReportRows, OfTheCensusComeFromPatientDataAlone) {
    for (const QString& file : {u"CensusAll.rpt"_s, u"CensusStation.rpt"_s}) {
        const auto report = Open(file, {});
        for (const ReportTable& table : report->Tables())
            EXPECT_TRUE(table.Location().startsWith("PATIENT_DATA."_L1)) << table.Location().toStdString();
    }
}

TEST_F(ReportRows, OfTheCensusLeaveOutWhoIsDischarged) {
    const QString number = Cell(u"SELECT MIN(IdNum) FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL"_s);
    EXPECT_TRUE(TextOf(u"CensusAll.rpt"_s, {}).contains(number));
    Run(u"UPDATE PATIENT_DATA..tbpatient SET DcrDate = '20261121' WHERE IdNum = '%1'"_s.arg(number));
    EXPECT_FALSE(TextOf(u"CensusAll.rpt"_s, {}).contains(number));
    EXPECT_FALSE(TextOf(u"CensusStation.rpt"_s, {}).contains(number));
}

TEST_F(ReportRows, OfAPatientInARoomThatIsOnNoListAreStillCounted) {
    const QString number = Cell(u"SELECT MIN(IdNum) FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL"_s);
    Run(u"UPDATE PATIENT_DATA..tbpatient SET RoomID = 'TENT', CompanyID = 'NONE', DoctorID1 = 'NOBODY' WHERE "
        "IdNum = '%1'"_s.arg(number));
    const QString text = TextOf(u"CensusStation.rpt"_s, {});
    EXPECT_TRUE(text.contains(number));
    EXPECT_TRUE(text.contains("NO STATION, patients: 1"_L1)) << text.toStdString();
}

TEST_F(ReportRows, OfAnAccountWithoutACompanyOnFileAreTheCompanysCode) {
    Run(u"UPDATE PATIENT_DATA..tboutpatient SET CompanyID = 'ZZZ' WHERE IdNum = '104196B'"_s);
    const QString text = TextOf(u"CompanyReport.RPT"_s, RangeOf(u"O"_s, On(11, 1), On(11, 20)));
    EXPECT_TRUE(text.contains("ZZZ, accounts: 1"_L1)) << text.toStdString();
}

TEST_F(ReportRows, OfAVisitThatIsNotOnFileCountAsPersonal) {
    Run(u"DELETE PATIENT_DATA..tboutpatient WHERE CompanyID <> 'PER' OR IdNum = '104196B'"_s);
    const auto document = Document(u"CompanyReport.RPT"_s, RangeOf(u"O"_s, On(11, 1), On(11, 20)));
    ASSERT_EQ(document->Groups().size(), 1U) << "one company";
    EXPECT_TRUE(TextOfPages(*document).contains("PERSONAL ACCOUNT"_L1));
}

TEST_F(ReportRows, OfTwoItemsWithoutACodeGoByTheirDescription) {
    for (const QString& particular : {u"AMBULANCE TO SAN ISIDRO"_s, u"AMBULANCE TO CABIAO"_s})
        Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','01/05/2027 10:15:07 "
            "AM','AM','D','','1', 'H9001C','750.00','NURSE','W201','D005','', 'I','%1'"_s.arg(particular));
    const DateTime day = Day(2027, 1, 5);
    for (const QString& text : {TextOf(u"IncomeReport.RPT"_s, RangeOf(u"I"_s, day, day)),
                                TextOf(u"StatisticsReport.RPT"_s, Range(day, day))}) {
        EXPECT_TRUE(text.contains("AMBULANCE TO CABIAO 1"_L1)) << text.toStdString();
        EXPECT_TRUE(text.contains("AMBULANCE TO SAN ISIDRO 1"_L1)) << text.toStdString();
    }
}

TEST_F(ReportRows, OfTheAuditShowEachActWithWhatItMoved) {
    const DateTime day = Day(2027, 1, 5);
    const auto clock = FixedClock(*DateTime::FromFields({.year = 2027, .month = 1, .day = 5, .hour = 11}));
    Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','01/05/2027 10:15:07 "
        "AM','HC','D','HC001','1', 'H9001C','2800.50','NURSE','W201','D005','', 'I','HEMODIALYSIS'"_s);
    const QString clerk = u"CLERK"_s;
    RunAs(clerk,
          u"Clinical_ARea..spEarCare_UpdateCharging '100050','700124','HC001','2800.50','1','01/05/2027 "
          u"10:20:00 AM','HC','CLERK','I','C','W201','H9001C',''"_s);
    RunAs(clerk,
          u"Clinical_Area..spEarCare_Assessment '9001','ZZTEST, ANA','HC001','HC','1','100.25','HC','CLERK',"
          "'W000003','','D001',''"_s);
    const QString revoke = u"Clinical_Area..spEarCare_AssessRevoke '%1','9001','HC'"_s.arg(
        Cell(u"SELECT MAX(AssessNum) FROM BILLING..tbCashAssessment"_s));
    RunAs(clerk, revoke);
    Run(u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s);
    const QString text = TextOf(u"AuditReport.RPT"_s, {day, day, kHospital, kAddress, u"LAB"_s});
    for (const QString& line :
         {u"Cancelled H9001C"_s, u"-2,800.50 01/05/2027 11:00 AM Assessed 9001 ZZTEST, ANA"_s,
          u"Revoked 9001 ZZTEST, ANA HC HC001 HEMODIALYSIS TREATMENT 1 -100.25"_s,
          u"CLERK MAGBANUA, JOEL, acts: 3 -2,800.50 0.00"_s, u"01/05/2027 10:15 AM Posted H9001C"_s,
          u"RE-PRINT NO. 1 OF THE SLIP"_s, u"NURSE VILLANUEVA, MARISSA, acts: 2 2,800.50 0.00"_s,
          u"All users, acts: 5 0.00 0.00"_s, u"Printed by LAB, 01/05/2027 11:00 AM Page 1 of 1"_s})
        EXPECT_TRUE(text.contains(line)) << line.toStdString() << " in " << text.toStdString();
    EXPECT_FALSE(text.contains("USER NOT RECORDED"_L1)) << text.toStdString();
}

TEST_F(ReportRows, OfTheAuditShowLastWhatWasDoneBeforeUsersWereRecorded) {
    const DateTime day = Day(2027, 1, 5);
    const auto clock = FixedClock(*DateTime::FromFields({.year = 2027, .month = 1, .day = 5, .hour = 11}));
    Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','01/05/2027 10:15:07 "
        "AM','HC','D','HC001','1', 'H9001C','2800.50','NURSE','W201','D005','', 'I','HEMODIALYSIS'"_s);
    Run(u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s);
    Run(u"Clinical_Area..spEarCare_Assessment '9001','ZZTEST, ANA','HC001','HC','1','100.25','HC','NURSE',"
        "'W000003','','D001',''"_s);
    Run(u"UPDATE BILLING..tbAuditTrail SET UserID = '' WHERE RefNum = 'H9001C'"_s);
    Run(u"UPDATE BILLING..tbCashAssessment SET RevokeDate = TransDate WHERE RefNum = '9001'"_s);
    const QString text = TextOf(u"AuditReport.RPT"_s, {day, day, kHospital, kAddress, u"LAB"_s});
    const QString before = text.section(u"USER NOT RECORDED "_s, 0, 0);
    EXPECT_TRUE(before.contains("NURSE VILLANUEVA, MARISSA, acts: 2 2,800.50 100.25"_L1))
        << text.toStdString();
    EXPECT_FALSE(before.contains("Revoked"_L1) || before.contains("Re-printed"_L1)) << text.toStdString();
    EXPECT_TRUE(text.contains("USER NOT RECORDED, acts: 2 0.00 -100.25"_L1)) << text.toStdString();
}

TEST_F(ReportRows, GoByTheLastNameBeforeTheFirst) {
    const std::vector<QStringList> patients = Rows(
        u"SELECT TOP 2 IdNum, HospNum FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL ORDER BY IdNum"_s);
    Run(u"UPDATE PATIENT_DATA..tbmaster SET LastName = 'CRUZ ABAD', FirstName = 'Z' WHERE HospNum = '%1'"_s
            .arg(patients[0][1]));
    Run(u"UPDATE PATIENT_DATA..tbmaster SET LastName = 'CRUZ', FirstName = 'A' WHERE HospNum = '%1'"_s.arg(
        patients[1][1]));
    for (const QStringList& patient : patients) {
        Run(u"UPDATE PATIENT_DATA..tbpatient SET RoomID = 'W201', CompanyID = 'PER' WHERE IdNum = '%1'"_s.arg(
            patient[0]));
        Run(u"Clinical_Area..spEarCare_Append_Charging '%1','%2','01/05/2027 10:15:07 AM','HC','D','HC001',"
            "'1','H9001C','10.00','NURSE','W201','D005','','I','HEMODIALYSIS'"_s.arg(patient[1], patient[0]));
    }
    const DateTime day = Day(2027, 1, 5);
    for (const QString& text : {TextOf(u"CensusAll.rpt"_s, {}), TextOf(u"CensusStation.rpt"_s, {}),
                                TextOf(u"CompanyReport.RPT"_s, RangeOf(u"I"_s, day, day))}) {
        const qsizetype first = text.indexOf("CRUZ, A "_L1);
        ASSERT_GE(first, 0) << text.toStdString();
        EXPECT_GT(text.indexOf("CRUZ ABAD, Z "_L1), first) << text.toStdString();
    }
}

TEST_F(ReportRows, OfTheCensusKeepAPatientWhomTheMasterLacks) {
    const QStringList patient =
        Rows(
            u"SELECT TOP 1 IdNum, HospNum FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL ORDER BY IdNum"_s)
            .front();
    const QString count = u"Patients in the hospital: "_s +
                          Cell(u"SELECT COUNT(*) FROM PATIENT_DATA..tbpatient WHERE DcrDate IS NULL"_s);
    Run(u"DELETE PATIENT_DATA..tbmaster WHERE HospNum = '%1'"_s.arg(patient[1]));
    for (const QString& file : {u"CensusAll.rpt"_s, u"CensusStation.rpt"_s}) {
        const QString text = TextOf(file, {});
        EXPECT_TRUE(text.contains(patient[1] + u' ' + patient[0])) << text.toStdString();
        EXPECT_TRUE(text.contains(count)) << text.toStdString();
    }
}

TEST_F(ReportRows, OfTwoStationsOfOneNameStayApart) {
    const auto names = [this] {
        QStringList stations;
        for (const GroupEntry& group : Document(u"CensusStation.rpt"_s, {})->Groups())
            stations << group.label;
        return stations;
    };
    const QStringList before = names();
    ASSERT_GT(before.size(), 2);
    Run(u"UPDATE build_file..tbCoStation SET Station = 'WARD'"_s);
    QStringList after = names();
    EXPECT_EQ(after.size(), before.size());
    EXPECT_EQ(after.removeDuplicates(), 0) << "the tree tells them apart";
}

TEST_F(ReportRows, OfAReprintNameThePatientOfTheUnitsOwnSlip) {
    Run(u"INSERT INTO BILLING..tbPatientCharges (HospNum, IdNum, PatientType, TransDate, RevenueID, "
        u"RecordType, "
        "ItemID, Description, Quantity, Units, Amount, RefNum, UserID, RoomID, DoctorID, DoctorName, "
        "SourceDept, "
        "EntryDate) VALUES ('100051','700125','I','01/05/2027','LB','D','LB001','CREATININE','1',1,180.25,"
        "'H9001C','LAB','W201','D005','','LB','01/05/2027')"_s);
    Run(u"UPDATE PATIENT_DATA..tbmaster SET LastName = 'LABTEST' WHERE HospNum = '100051'"_s);
    Run(u"UPDATE PATIENT_DATA..tbmaster SET LastName = 'UNITTEST' WHERE HospNum = '100050'"_s);
    Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','01/06/2027 10:15:07 "
        u"AM','HC','D','HC001',"
        "'1','H9001C','10.00','NURSE','W201','D005','','I','HEMODIALYSIS'"_s);
    const auto clock = FixedClock(*DateTime::FromFields({.year = 2027, .month = 1, .day = 5, .hour = 11}));
    Run(u"Clinical_Area..spEarCare_ReprintChargeSlip 'H9001C'"_s);
    const DateTime day = Day(2027, 1, 5);
    const QString text = TextOf(u"AuditReport.RPT"_s, {day, day, kHospital, kAddress, u"LAB"_s});
    EXPECT_TRUE(text.contains("Re-printed H9001C UNITTEST, "_L1)) << text.toStdString();
}

TEST_F(ReportRows, OfACompanyCountTheSlipsThatWerePostedInThePeriod) {
    const auto clock = FixedClock(*DateTime::FromFields({.year = 2027, .month = 1, .day = 6, .hour = 11}));
    Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','01/05/2027 10:15:07 "
        u"AM','HC','D','HC001',"
        "'1','H9001C','2800.50','NURSE','W201','D005','','I','HEMODIALYSIS'"_s);
    Run(u"Clinical_ARea..spEarCare_UpdateCharging '100050','700124','HC001','2800.50','1','01/06/2027 "
        u"10:20:00 "
        "AM','HC','NURSE','I','C','W201','H9001C',''"_s);
    const auto textOf = [this](int day) {
        return TextOf(u"CompanyReport.RPT"_s, RangeOf(u"I"_s, Day(2027, 1, day), Day(2027, 1, day)));
    };
    EXPECT_TRUE(textOf(5).contains("All companies, accounts: 1 1 2,800.50 0.00 2,800.50"_L1));
    EXPECT_TRUE(textOf(6).contains("All companies, accounts: 1 0 0.00 -2,800.50 -2,800.50"_L1))
        << textOf(6).toStdString();
}

TEST_F(ReportRows, ShowQuantitiesWithTheDecimalsTheyHave) {
    const DateTime day = Day(2027, 1, 5);
    for (const auto& [quantity, shown] :
         {std::pair(u"1250"_s, u" 1,250 "_s), std::pair(u"0.5"_s, u" 1,250.5 "_s)}) {
        Run(u"Clinical_Area..spEarCare_Append_Charging '100050','700124','01/05/2027 10:15:07 AM','HC','D',"
            "'HC001','%1','H9001C','10.00','NURSE','W201','D005','','I','HEMODIALYSIS'"_s.arg(quantity));
        EXPECT_TRUE(TextOf(u"IncomeReport.RPT"_s, RangeOf(u"I"_s, day, day)).contains(shown))
            << shown.toStdString();
        EXPECT_TRUE(TextOf(u"StatisticsReport.RPT"_s, Range(day, day)).contains(shown))
            << shown.toStdString();
    }
}

/// One line assessed on January 5, 2027, with the moments of its receipt and its revoke.
class CashLine : public ReportRows {
  protected:
    void Assess(const QString& paid, const QString& revoked) {
        const auto clock = FixedClock(*DateTime::FromFields({.year = 2027, .month = 1, .day = 5, .hour = 8}));
        Run(u"Clinical_Area..spEarCare_Assessment '9001','ZZTEST, "
            u"ANA','HC001','HC','1','100.25','HC','NURSE',"
            "'W000003','','D001',''"_s);
        for (const auto& [column, moment] :
             {std::pair(u"ORDate"_s, paid), std::pair(u"RevokeDate"_s, revoked)})
            if (!moment.isEmpty())
                Run(u"UPDATE BILLING..tbCashAssessment SET %1 = '%2' WHERE AssessNum = %3"_s.arg(
                    column, moment, Cell(u"SELECT MAX(AssessNum) FROM BILLING..tbCashAssessment"_s)));
    }
    /// Paid lines, paid, revoked, income and unpaid of that day of January 2027.
    QString TotalsOf(int day) {
        const QString text = TextOf(u"IncomeReportCash.RPT"_s, Range(Day(2027, 1, day), Day(2027, 1, day)));
        return text.section(u"ALL DEPARTMENTS "_s, 1).section(u' ', 0, 4);
    }
};

TEST_F(CashLine, ThatIsNotPaidWaits) {
    Assess({}, {});
    EXPECT_EQ(TotalsOf(5), u"0 0.00 0.00 0.00 100.25"_s);
}

TEST_F(CashLine, IsTakenOffOnTheDayOfTheRevokeThatFollowsThePayment) {
    Assess(u"01/05/2027 09:00:00 AM"_s, u"01/06/2027 09:00:00 AM"_s);
    EXPECT_EQ(TotalsOf(5), u"1 100.25 0.00 100.25 0.00"_s);
    EXPECT_EQ(TotalsOf(6), u"0 0.00 -100.25 -100.25 0.00"_s);
}

TEST_F(CashLine, IsTakenOffByARevokeAtTheMomentOfThePayment) {
    Assess(u"01/05/2027 09:00:00 AM"_s, u"01/05/2027 09:00:00 AM"_s);
    EXPECT_EQ(TotalsOf(5), u"1 100.25 -100.25 0.00 0.00"_s);
}

TEST_F(CashLine, ThatIsPaidBehindItsRevokeStaysIncome) {
    Assess(u"01/06/2027 09:00:00 AM"_s, u"01/05/2027 09:00:00 AM"_s);
    EXPECT_EQ(TotalsOf(5), u"0 0.00 0.00 0.00 0.00"_s);
    EXPECT_EQ(TotalsOf(6), u"1 100.25 0.00 100.25 0.00"_s);
}

TEST_F(CashLine, CountsOnTheDayOfItsReceiptToTheLastSecond) {
    Assess(u"01/05/2027 11:59:59 PM"_s, {});
    EXPECT_EQ(TotalsOf(5), u"1 100.25 0.00 100.25 0.00"_s);
    EXPECT_EQ(TotalsOf(6), u"0 0.00 0.00 0.00 0.00"_s);
}

TEST_F(CashLine, ThatIsPaidAtMidnightCountsOnTheDayThatBegins) {
    Assess(u"01/06/2027 12:00:00 AM"_s, {});
    EXPECT_EQ(TotalsOf(5), u"0 0.00 0.00 0.00 0.00"_s);
    EXPECT_EQ(TotalsOf(6), u"1 100.25 0.00 100.25 0.00"_s);
}

TEST_F(ReportRows, WithTheLongestNamesAreWrappedAndNeverCut) {
    const QString long30 = u"MARIA CONCEPCION MAGDALENA XYZ"_s;
    Run(u"UPDATE PATIENT_DATA..tbmaster SET LastName = 'DE LOS SANTOS-MONTENEGRO Y VIL', FirstName = '%1', "
        "MiddleName = 'VILLAVICENCIO DEL ROSARIO YQUI'"_s.arg(long30));
    Run(u"UPDATE build_file..tbCoCompany SET Company = "
        "'INTELLIGENT CARE AND PHILIPPINE CORPORATE ACCOUNTS OF LUZON'"_s);
    Run(u"UPDATE BILLING..tbPatientCharges SET Description = "
        "'HIGH-FLUX POLYSULFONE DIALYZER, 1.8 SQ M, STEAM STERILISED, WITH BLOODLINES AND NEEDLES'"_s);
    const std::vector<Value> audit = {On(11, 19), On(11, 19), kHospital, kAddress, u"NURSE"_s};
    const std::vector<Value> ledger = {u"O"_s, u"104196B"_s, kHospital, u"P"_s,   u"1"_s, u"OPD"_s,
                                       u""_s,  u""_s,        u""_s,     kAddress, u""_s};
    const auto hasAll = [](const QString& text, const QString& words) {
        for (const QString& word : words.split(u' '))
            EXPECT_TRUE(text.contains(word)) << word.toStdString();
    };
    const QString name = u"SANTOS-MONTENEGRO MAGDALENA XYZ VILLAVICENCIO YQUI"_s;
    const QString item = u"POLYSULFONE STERILISED BLOODLINES NEEDLES"_s;
    hasAll(TextOf(u"AuditReport.RPT"_s, audit), name + u' ' + item);
    hasAll(TextOf(u"Orvandelle_Ledger.rpt"_s, ledger), item);
    hasAll(TextOf(u"IncomeReport.RPT"_s, RangeOf(u"O"_s, On(11, 19), On(11, 19))), item);
    hasAll(TextOf(u"StatisticsReport.RPT"_s, Range(On(11, 19), On(11, 19))), item);
    const QString company = u"INTELLIGENT PHILIPPINE CORPORATE LUZON"_s;
    hasAll(TextOf(u"CompanyReport.RPT"_s, RangeOf(u"O"_s, On(11, 19), On(11, 19))), name + u' ' + company);
    hasAll(TextOf(u"CensusAll.rpt"_s, {}), name + u' ' + company);
    hasAll(TextOf(u"CensusStation.rpt"_s, {}), name + u' ' + company);
}
