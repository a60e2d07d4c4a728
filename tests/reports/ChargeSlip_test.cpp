#include "reports/SlipGround.h"

using namespace Qt::StringLiterals;

namespace {

/// The charge slip as the program prints it, over fixed rows.
class ChargeSlip : public SlipGround {
  protected:
    QString TextOf(const std::vector<PrintedLine>& lines, const std::vector<Value>& parameters) {
        SetLines(lines);
        return SlipGround::TextOf(u"Charge_Slip.RPT"_s, parameters);
    }
};

const std::vector<Value> kChargeParameters = {
    u"H1042C"_s,       u"11/21/2026"_s, u"DELA CRUZ, JUAN MIGUEL SANTOS"_s,
    u"100482"_s,       u"20387"_s,      u"204-B"_s,
    u"10:30:15 AM"_s,  u"A-5521"_s,     u"THIRD FLOOR STATION"_s,
    u"REYES, ANA B."_s};

const std::vector<PrintedLine> kChargeLines = {
    {u"HC"_s, u"HD001"_s, u"HEMODIALYSIS TREATMENT, FOUR HOURS"_s, u"1"_s, u"3500.0000"_s},
    {u"HB"_s, u"EPO4000"_s, u"ERYTHROPOIETIN 4000 IU"_s, u"2"_s, u"2401.5000"_s},
    {u"HD"_s, u"DLZ18"_s,
     u"HIGH-FLUX POLYSULFONE DIALYZER, SURFACE 1.8 SQUARE METRES, STEAM STERILISED, WITH BLOODLINE SET AND NEEDLES"_s,
     u"1"_s, u"1850.2500"_s},
    {u"MD"_s, u"0142"_s, u"DR. PEÑAFLOR, MARIA - PROFESSIONAL FEE"_s, u""_s, u"1500.0000"_s}};

} // namespace

TEST_F(ChargeSlip, OfFourLinesFitsOnePage) {
    ExpectGolden(TextOf(kChargeLines, kChargeParameters), u"charge_slip.txt"_s);
}

TEST_F(ChargeSlip, OfFiftyLinesRunsOverPagesWithRepeatedHeads) {
    ExpectGolden(TextOf(FiftyLines(u"HD"_s), kChargeParameters), u"charge_slip_fifty_lines.txt"_s);
}

TEST_F(ChargeSlip, WithoutLinesShowsATotalOfZero) {
    ExpectGolden(TextOf({}, kChargeParameters), u"charge_slip_empty.txt"_s);
}

TEST_F(ChargeSlip, WithLongWordsCutsNothing) {
    std::vector<Value> parameters = kChargeParameters;
    parameters[2] = u"DE LOS SANTOS-MONTENEGRO Y VILLAVICENCIO, MARIA CONCEPCION MAGDALENA DEL ROSARIO"_s;
    parameters[7] = u"PHILIPPINE HEALTH INSURANCE CORPORATION AND INTELLIGENT CARE CORPORATE ACCOUNTS"_s;
    parameters[8] = u"INTENSIVE CARE UNIT, MAIN BUILDING, FOURTH FLOOR"_s;
    ExpectGolden(TextOf(kChargeLines, parameters), u"charge_slip_long_words.txt"_s);
}

TEST_F(ChargeSlip, TakesTheTenValuesInTheScreensOrder) {
    TextOf({}, kChargeParameters);
    EXPECT_EQ(ParameterNames(*gReport),
              u"SlipNumber Date Patient AdmissionNumber HospitalNumber Room Time Account Station User"_s);
}

TEST_F(ChargeSlip, ReadsTheLinesInTheOrderInWhichTheyWereSaved) {
    TextOf({}, kChargeParameters);
    EXPECT_EQ(database.commands.at(0), u"SELECT ItemID, RevenueID, Description, Quantity, Amount FROM "
                                       "Clinical_Area.dbo.tbEarCareChargePrint ORDER BY PrintID"_s);
}

namespace {

class ChargeSlipOverTheEmbeddedHospital : public SlipHospital {};

} // namespace

TEST_F(ChargeSlipOverTheEmbeddedHospital, PrintsWhatTheSavesHavePutIntoThePrintTable) {
    Run(u"Clinical_Area..spEarCare_SaveChargePrint 'HD001','3500.00','1','HC','TREATMENT', 'O'"_s);
    Run(u"Clinical_Area..spEarCare_SaveChargePrint '0142','1500.50','','MD','DOCTOR', 'O'"_s);
    const QString text = Page(u"Charge_Slip.RPT"_s, kChargeParameters);
    EXPECT_TRUE(text.startsWith(u"NUESTRA SEÑORA HOSPITAL CHARGE SLIP San Isidro H1042C"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(
        u"HC HD001 TREATMENT 1 3,500.00 MD 0142 DOCTOR 1,500.50 TOTAL AMOUNT 5,000.50 REYES, ANA B."_s))
        << text.toStdString();
}
