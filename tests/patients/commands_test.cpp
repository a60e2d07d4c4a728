#include "patients/commands.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(PatientCommands, ListOfPatientsOfAType) {
    EXPECT_EQ(GetPatientCommand(u"I"_s, u"DELA"_s), u"Clinical_Area..spEarCare_GetPatient 'I','DELA'"_s);
    EXPECT_EQ(GetPatientCommand(u"O"_s, u"DELA"_s), u"Clinical_Area..spEarCare_GetPatient 'O','DELA'"_s);
}

TEST(PatientCommands, TextGoesInAsItStands) {
    EXPECT_EQ(GetPatientCommand(u"I"_s, u"  o'brien, Ana %"_s),
              u"Clinical_Area..spEarCare_GetPatient 'I','  o'brien, Ana %'"_s);
    EXPECT_EQ(GetPatientCommand(u"I"_s, u""_s), u"Clinical_Area..spEarCare_GetPatient 'I',''"_s);
}

TEST(PatientCommands, VisitByItsNumber) {
    EXPECT_EQ(OutPatientCommand(u"10231B"_s),
              u"select * from patient_data..tboutpatient where idnum = '10231B'"_s);
}
