#include "reports/SlipGround.h"

using namespace Qt::StringLiterals;

namespace {

/// The assessment slip as the program prints it, over fixed rows.
class AssessmentSlip : public SlipGround {
  protected:
    QString TextOf(const std::vector<PrintedLine>& lines, const std::vector<Value>& parameters) {
        SetLines(lines);
        return SlipGround::TextOf(u"AssessmentSlip.RPT"_s, parameters);
    }
};

const std::vector<Value> kAssessmentParameters = {
    u"5017"_s, u"DELA CRUZ, JUAN MIGUEL SANTOS"_s, u"100482"_s, u"104233B"_s, u"OPD"_s, u"REYES, ANA B."_s};

const std::vector<PrintedLine> kAssessmentLines = {
    {u"HC"_s, u"HC001"_s, u"HEMODIALYSIS TREATMENT, FOUR HOURS"_s, u"1"_s, u"3500.0000"_s},
    {u"HB"_s, u"EPO4000"_s, u"ERYTHROPOIETIN 4000 IU"_s, u"2"_s, u"2401.5000"_s},
    {u"YP"_s, u"PKG01"_s,
     u"HEMODIALYSIS PACKAGE WITH DIALYZER, BLOODLINES, NEEDLES AND FOUR VIALS OF HEPARIN"_s, u"1"_s,
     u"1850.2500"_s},
    {u"MD"_s, u"0142"_s, u"(PF) DR. PEÑAFLOR, MARIA"_s, u""_s, u"1500.0000"_s}};

} // namespace

TEST_F(AssessmentSlip, OfFourLinesFitsOnePage) {
    ExpectGolden(TextOf(kAssessmentLines, kAssessmentParameters), u"assessment_slip.txt"_s);
}

TEST_F(AssessmentSlip, OfFiftyLinesRunsOverPagesWithRepeatedHeads) {
    ExpectGolden(TextOf(FiftyLines(u"HC"_s), kAssessmentParameters), u"assessment_slip_fifty_lines.txt"_s);
}

TEST_F(AssessmentSlip, WithoutLinesShowsATotalOfZero) {
    ExpectGolden(TextOf({}, kAssessmentParameters), u"assessment_slip_empty.txt"_s);
}

TEST_F(AssessmentSlip, OfAWalkInWithALongNameAndNoNumbersCutsNothing) {
    std::vector<Value> parameters = kAssessmentParameters;
    parameters[1] = u"DE LOS SANTOS-MONTENEGRO Y VILLAVICENCIO, MARIA CONCEPCION MAGDALENA DEL ROSARIO"_s;
    parameters[2] = QString();
    parameters[3] = QString();
    ExpectGolden(TextOf(kAssessmentLines, parameters), u"assessment_slip_long_name.txt"_s);
}

TEST_F(AssessmentSlip, TakesTheSixValuesInTheScreensOrder) {
    TextOf({}, kAssessmentParameters);
    EXPECT_EQ(ParameterNames(*gReport), u"Number Patient HospitalNumber VisitNumber Room User"_s);
}

TEST_F(AssessmentSlip, ReadsTheLinesInTheOrderInWhichTheyWereSaved) {
    TextOf({}, kAssessmentParameters);
    EXPECT_EQ(database.commands.at(0), u"SELECT ItemID, RevenueID, Description, Quantity, Amount FROM "
                                       "Clinical_Area.dbo.tbEarCareChargePrint ORDER BY PrintID"_s);
}

namespace {

class AssessmentSlipOverTheEmbeddedHospital : public SlipHospital {};

} // namespace

TEST_F(AssessmentSlipOverTheEmbeddedHospital, PrintsWhatTheTwoDumpCommandsHaveLeft) {
    Run(u"Clinical_Area..spEarCare_GlobalDumpChargeSlip 'HC001','TREATMENT','2','1750.00','3500.00','NURSE'"_s);
    Run(u"Clinical_Area..spEarCare_DumpChargeSlip 'HC001','TREATMENT','2','3500.00','HC'"_s);
    Run(u"Clinical_Area..spEarCare_GlobalDumpChargeSlip '0142','DOCTOR','','','1500.50','NURSE'"_s);
    Run(u"Clinical_Area..spEarCare_DumpChargeSlip '0142','DOCTOR','','1500.50','MD'"_s);
    const QString text = Page(u"AssessmentSlip.RPT"_s, kAssessmentParameters);
    EXPECT_TRUE(text.startsWith(u"NUESTRA SEÑORA HOSPITAL ASSESSMENT SLIP San Isidro 5017"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(u"HC HC001 TREATMENT 2 3,500.00 MD 0142 DOCTOR 1,500.50"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(u"TOTAL AMOUNT 5,000.50"_s)) << text.toStdString();
}
