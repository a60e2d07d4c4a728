#include "components/ReportConnector.h"
#include "hospital/HospitalScripts.h"
#include "report/ReportEngine.h"
#include "reports/Reports.h"
#include "support/report/ReportFixture.h"
#include "support/ScreenTest.h"
#include "trial/EmbeddedGateway.h"

using namespace Qt::StringLiterals;

namespace {

const std::vector<QString> kColumns = {u"company"_s,   u"Address1"_s,    u"RequestNum"_s, u"RequestDate"_s,
                                       u"HospNum"_s,   u"IdNum"_s,       u"Patient"_s,    u"Sex"_s,
                                       u"BirthDate"_s, u"AdmDate"_s,     u"RoomID"_s,     u"Station"_s,
                                       u"Doctor"_s,    u"RequestedBy"_s, u"RevenueID"_s,  u"ItemID"_s,
                                       u"ItemDesc"_s,  u"Quantity"_s,    u"Remarks"_s};

/// The consultation form as the queue opens it, over a fixed request.
class RadioConsultation : public ScreenTest {
  protected:
    ~RadioConsultation() override { gReport = nullptr; }

    void OpenForm() {
        gReport =
            ReportEngine().OpenReport(QStringLiteral(TARVEN_SOURCE_DIR "/Reports/RadioConsultation.rpt"), 1);
        for (ReportTable& table : gReport->Tables())
            SetTableLogOn(table, u"RADIOLOGY"_s);
        gReport->ParameterFields().at(0).SetCurrentValue(u"41"_s);
    }

    QString TextOf(const QString& patient, const QString& remarks) {
        database.Set(
            u"spRadio_Consultation"_s,
            Rows(kColumns,
                 {{u"SAMPAGUITA GENERAL HOSPITAL"_s, u"128 Rizal Avenue, San Isidro, Nueva Ecija"_s, 41,
                   DateTime::FromFields({2026, 11, 21, 9, 5, 0, 0}).value(), u"100482"_s, u"700121"_s,
                   patient, u"FEMALE"_s, DateTime::FromFields({1970, 2, 3, 0, 0, 0, 0}).value(),
                   u"11/19/2026"_s, u"301-A"_s, u"THIRD FLOOR STATION"_s, u"DR. LUIS CASTAÑEDA"_s,
                   u"ORDOÑEZ, NORMA RN"_s, u"HC"_s, u"HC001"_s, u"HEMODIALYSIS TREATMENT"_s, 1, remarks}}));
        OpenForm();
        return TextOfPages(*gReport->Document());
    }

    ReportDatabase database;
};

} // namespace

TEST_F(RadioConsultation, OfARequestFitsOnePage) {
    ExpectGolden(TextOf(u"DELA CRUZ, JUANA SANTOS"_s, u"FOR POTASSIUM 6.8"_s), u"radio_consultation.txt"_s);
}

TEST_F(RadioConsultation, WithLongWordsCutsNothing) {
    ExpectGolden(
        TextOf(
            u"DE LOS SANTOS-MONTENEGRO Y VILLAVICENCIO, MARIA CONCEPCION MAGDALENA DEL ROSARIO"_s,
            u"PLEASE FETCH BY WHEELCHAIR AFTER THE TRANSFUSION, WITH FEMORAL CATHETER, OXYGEN AND HER CHART"_s),
        u"radio_consultation_long_words.txt"_s);
}

TEST_F(RadioConsultation, AsksRadiologyForTheRequestByItsNumber) {
    TextOf(u"A"_s, u""_s);
    EXPECT_EQ(database.commands, QStringList{u"RADIOLOGY.dbo.spRadio_Consultation '41'"_s});
    EXPECT_EQ(database.logOns.at(0).at(1), u"RADIOLOGY"_s);
}

TEST_F(RadioConsultation, ItsParameterIsTheOneThatTheQueueLooksFor) {
    OpenForm();
    ASSERT_EQ(gReport->ParameterFields().size(), 1U);
    EXPECT_EQ(gReport->ParameterFields()[0].Name().toUpper(), u"@REQUESTNUM"_s);
}

TEST_F(RadioConsultation, OverTheEmbeddedHospitalShowsTheRequest) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"hospital.db"_s);
    HospitalFile::Create(file, HospitalScripts());
    SetReportConnector([&file](const ReportLogOn&) { return std::make_unique<EmbeddedGateway>(file); });
    EmbeddedGateway gateway2(file);
    const RowSet first = gateway2.Execute(u"Clinical_Area..spEarCare_NurseRequest"_s);
    OpenForm();
    gReport->ParameterFields()[0].SetCurrentValue(first.Fields(u"RequestNum").ToText());
    const auto document = gReport->Document();
    SetReportConnector({});
    ASSERT_EQ(document->PageCount(), 1);
    const QString text = PageText(*document, 1).simplified();
    for (const QStringView column : {u"LastName", u"HospNum", u"IDNum", u"ItemDesc", u"Requesting Nurse",
                                     u"Requesting Doctor", u"RoomID", u"RequestNum"})
        EXPECT_TRUE(text.contains(first.Fields(column).ToText().trimmed()))
            << column.toString().toStdString() << " in " << text.toStdString();
}
