#include "reports/SlipGround.h"

using namespace Qt::StringLiterals;

namespace {

/// The re-printed assessment slip over fixed rows.
class ReprintAssesSlip : public SlipGround {
  protected:
    QString TextOf(const std::vector<PrintedLine>& lines, const std::vector<Value>& parameters) {
        std::vector<std::vector<Value>> rows;
        for (const PrintedLine& line : lines) {
            const bool due = line.remarks != u"REVOKED"_s;
            rows.push_back({line.department, line.code, line.particular, line.quantity, Decimal{line.amount},
                            line.remarks, Decimal{due ? line.amount : u"0.0000"_s}});
        }
        std::vector<std::vector<Value>> assessment;
        if (!lines.empty())
            assessment.push_back({DateTime::FromFields({2026, 11, 20, 14, 5, 30, 0}).value(),
                                  u"DR. CARMELA NUÑEZ"_s, u"CLERK"_s});
        database.Set(u"TOP 1"_s, Rows({u"TransDate"_s, u"DoctorName"_s, u"UserID"_s}, assessment));
        database.Set(u"AS Due"_s, Rows({u"Revenueid"_s, u"ItemID"_s, u"Description"_s, u"Quantity"_s,
                                        u"Amount"_s, u"Remarks"_s, u"Due"_s},
                                       rows));
        return SlipGround::TextOf(u"ReprintAssesSlip.RPT"_s, parameters);
    }
};

const std::vector<Value> kReprintParameters = {
    u"5017"_s, u"DELA CRUZ, JUAN MIGUEL SANTOS"_s, u"100482"_s, u"104233B"_s, u"CASH"_s, u"REYES, ANA B."_s};

const std::vector<PrintedLine> kReprintLines = {
    {u"HC"_s, u"HC001"_s, u"HEMODIALYSIS TREATMENT, FOUR HOURS"_s, u"1"_s, u"3500.0000"_s},
    {u"HB"_s, u"EPO4000"_s, u"ERYTHROPOIETIN 4000 IU"_s, u"2"_s, u"2401.5000"_s},
    {u"HD"_s, u"DLZ18"_s,
     u"HIGH-FLUX POLYSULFONE DIALYZER, SURFACE 1.8 SQUARE METRES, STEAM STERILISED, WITH BLOODLINE SET AND NEEDLES"_s,
     u"1"_s, u"1850.2500"_s},
    {u"MD"_s, u"0142"_s, u"(PF) DR. PEÑAFLOR, MARIA"_s, u""_s, u"1500.0000"_s}};

} // namespace

TEST_F(ReprintAssesSlip, OfFourLinesFitsOnePage) {
    ExpectGolden(TextOf(kReprintLines, kReprintParameters), u"reprint_assess_slip.txt"_s);
}

TEST_F(ReprintAssesSlip, TellsPaidLinesAndLeavesRevokedOnesOutOfTheTotal) {
    std::vector<PrintedLine> lines = kReprintLines;
    lines[0].remarks = u"OR 310022"_s;
    lines[1].remarks = u"REVOKED"_s;
    ExpectGolden(TextOf(lines, kReprintParameters), u"reprint_assess_slip_remarks.txt"_s);
}

TEST_F(ReprintAssesSlip, OfFiftyLinesRunsOverPagesWithRepeatedHeads) {
    ExpectGolden(TextOf(FiftyLines(u"HC"_s), kReprintParameters), u"reprint_assess_slip_fifty_lines.txt"_s);
}

TEST_F(ReprintAssesSlip, OfAReferenceWithoutLinesIsAnEmptySlip) {
    ExpectGolden(TextOf({}, {u""_s, u""_s, u""_s, u""_s, u"CASH"_s, u"REYES, ANA B."_s}),
                 u"reprint_assess_slip_empty.txt"_s);
}

TEST_F(ReprintAssesSlip, WithALongNameCutsNothing) {
    std::vector<Value> parameters = kReprintParameters;
    parameters[1] = u"DE LOS SANTOS-MONTENEGRO Y VILLAVICENCIO, MARIA CONCEPCION MAGDALENA DEL ROSARIO"_s;
    ExpectGolden(TextOf(kReprintLines, parameters), u"reprint_assess_slip_long_name.txt"_s);
}

TEST_F(ReprintAssesSlip, TakesTheSixValuesInTheScreensOrder) {
    TextOf({}, kReprintParameters);
    EXPECT_EQ(ParameterNames(*gReport), u"Number Patient HospitalNumber VisitNumber Payment User"_s);
}

namespace {

/// The slip over the structure of the hospital, with what the procedures have written.
class ReprintAssesSlipOverTheEmbeddedHospital : public SlipHospital {
  protected:
    ReprintAssesSlipOverTheEmbeddedHospital()
        : SlipHospital(u"CLERK"_s) {
        for (const QString& line : {u"'5017','CRUZ, ANA','HC001','HC','2','5600.50'"_s,
                                    u"'5018','OTHER, EVA','HC001','HC','1','111.00'"_s,
                                    u"'5017','CRUZ, ANA','D003','MD','','1500.00'"_s})
            Run(u"Clinical_Area..spEarCare_Assessment "_s + line +
                u",'HC','CLERK','W000003','','D001','DR. ROBERTO ALCARAZ'"_s);
    }

    static QString Page(const QString& number) {
        std::vector<Value> parameters = kReprintParameters;
        parameters[0] = number;
        return SlipHospital::Page(u"ReprintAssesSlip.RPT"_s, parameters);
    }
};

} // namespace

TEST_F(ReprintAssesSlipOverTheEmbeddedHospital, ShowsTheLinesOfItsReferenceAlone) {
    const QString text = Page(u"5017"_s);
    EXPECT_TRUE(text.startsWith(u"NUESTRA SEÑORA HOSPITAL "_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"DR. ROBERTO ALCARAZ CLERK CASH"_s)) << text.toStdString();
    EXPECT_TRUE(text.contains(u"Amount HC HC001 2 5,600.50 MD D003 1,500.00 TOTAL AMOUNT 7,100.50"_s))
        << text.toStdString();
}

TEST_F(ReprintAssesSlipOverTheEmbeddedHospital, TellsReceiptsAndRevokedLines) {
    Run(u"UPDATE BILLING..tbCashAssessment SET ORNum = '310022' WHERE ItemID = 'HC001'"_s);
    Run(u"Clinical_Area..spEarCare_AssessRevoke '3','5017','MD'"_s);
    const QString text = Page(u"5017"_s);
    EXPECT_TRUE(
        text.contains(u"HC HC001 OR 310022 2 5,600.50 MD D003 REVOKED 1,500.00 TOTAL AMOUNT 5,600.50"_s))
        << text.toStdString();
}

TEST_F(ReprintAssesSlipOverTheEmbeddedHospital, OfABlankReferenceTakesNoLineThatStandsAlone) {
    Run(u"UPDATE BILLING..tbCashAssessment SET RefNum = NULL"_s);
    const QString text = Page(u""_s);
    EXPECT_TRUE(text.contains(u"TOTAL AMOUNT 0.00"_s)) << text.toStdString();
    EXPECT_FALSE(text.contains(u"HC001"_s)) << text.toStdString();
}
