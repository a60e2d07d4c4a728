#include "components/shared.h"
#include "patients/commands.h"
#include "patients/FakeFinderTarget.h"
#include "patients/frmSearchPatient.h"
#include "patients/LoadPatient.h"
#include "patients/PatientContext.h"
#include "support/CaseName.h"
#include "support/ErrorOf.h"
#include "support/ScreenTest.h"
#include "text/RunTimeError.h"
#include "toolkit/Screens.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

using Boxes = std::map<QString, QString>;

DateTime At(int year, int month, int day, int hour = 0, int minute = 0) {
    return DateTime::FromFields({year, month, day, hour, minute, 0, 0}).value();
}

/// A patient master that holds numbers in a form of its own and says so, since it gets them by reference.
class RewritingPersonFinder : public FakePersonFinder {
  public:
    bool ValidateAdmission(QString& idNumber) override {
        idNumber = u"A"_s + idNumber;
        return true;
    }
    bool OpenOutPatient(QString& idNumber, QString& hospitalNumber) override {
        idNumber = u"V"_s + idNumber;
        hospitalNumber = u"H"_s + hospitalNumber;
        return true;
    }
    bool LoadPatient(QString& hospitalNumber) override {
        hospitalNumber += u"P"_s;
        return true;
    }
};

struct LoadCase {
    const char* name;
};

} // namespace

class LoadPatientTest : public ScreenTest {
  protected:
    LoadPatientTest() {
        personFinder->FillAdmission();
        gHospitalNumber = u"100085"_s;
        gIDNumber = u"104233"_s;
        // A former patient's values, to see which of them are overwritten.
        for (QString* text : {&gRoomClass, &gStationName, &gAccountNumber, &gCompany, &gAdmissionDate,
                              &gDischargeDate, &gRoomID})
            *text = u"former"_s;
        for (Value* value : {&gDoctor1, &gDoctor2, &gDoctor3, &gDoctor2Code})
            *value = u"former"_s;
        gDaysConfined = 77;
    }

    void ExpectVisitRows(std::vector<std::vector<Value>> rows) {
        gateway.Expect(OutPatientCommand(gIDNumber),
                       Rows({u"DoctorID1"_s, u"DoctorID2"_s, u"DoctorID3"_s}, std::move(rows)));
    }
    void InPatient() {
        gPatientType = u"I"_s;
        ExpectVisitRows({});
    }
    void OutPatient() {
        gPatientType = u"O"_s;
        ExpectVisitRows({{u"D001"_s, u"D002"_s, u"D003"_s}});
    }

    static int NumberRaisedBy(FinderTarget& target) {
        return ErrorOf([&] { target.LoadPick(); });
    }

    void LoadForLedger() { targets[u"Ledger"_s].LoadPick(); }

    FakeFinderTargets targets;
};

/// What the three routines have in common.
class LoadAnyTest : public LoadPatientTest, public testing::WithParamInterface<LoadCase> {
  protected:
    FakeFinderTarget& Target() { return targets[QString::fromLatin1(GetParam().name)]; }
    void Load() { Target().LoadPick(); }
};

INSTANTIATE_TEST_SUITE_P(Modes, LoadAnyTest,
                         testing::Values(LoadCase{"Post"}, LoadCase{"List"}, LoadCase{"Ledger"}), CaseName());

TEST_P(LoadAnyTest, VisitIsReadWithADynamicOptimisticCursorForInPatientsToo) {
    InPatient();
    Load();
    ASSERT_EQ(gateway.Openings().size(), 1U);
    EXPECT_EQ(gateway.Openings()[0].command, OutPatientCommand(u"104233"_s));
    EXPECT_EQ(gateway.Openings()[0].cursor, CursorType::Dynamic);
    EXPECT_EQ(gateway.Openings()[0].lock, LockType::Optimistic);
    EXPECT_EQ(gateway.Openings()[0].location, CursorLocation::Server);
}

TEST_P(LoadAnyTest, InPatientWithoutAVisitRowKeepsSecondAndThirdDoctorOfTheFormerPatient) {
    InPatient();
    Load();
    EXPECT_EQ(gDoctor2, Value(u"former"_s));
    EXPECT_EQ(gDoctor3, Value(u"former"_s));
}

TEST_P(LoadAnyTest, InPatientWithAVisitRowTakesItsDoctors) {
    gPatientType = u"I"_s;
    ExpectVisitRows({{u"V001"_s, u"V002"_s, u"V003"_s}});
    Load();
    EXPECT_EQ(gDoctor2, Value(u"V002"_s));
    EXPECT_EQ(gDoctor3, Value(u"V003"_s));
    // The charge screens go on to the attending doctor of the admission.
    EXPECT_EQ(gDoctor1, Value(GetParam().name == std::string("Ledger") ? u"V001"_s : u"D003"_s));
}

TEST_P(LoadAnyTest, OutPatientWithoutAVisitRowKeepsTheDoctorsOfTheFormerPatient) {
    gPatientType = u"O"_s;
    personFinder->hasVisit = false;
    ExpectVisitRows({});
    Load();
    EXPECT_EQ(gDoctor1, Value(u"former"_s));
    personFinder->hasVisit = true;
    ExpectVisitRows({});
    Load();
    EXPECT_EQ(gDoctor2, Value(u"former"_s));
    EXPECT_EQ(gDoctor3, Value(u"former"_s));
}

TEST_P(LoadAnyTest, VisitIsReadThroughTheConnectionOfTheSession) {
    gConnection = nullptr;
    InPatient();
    Load();
    EXPECT_TRUE(gateway.IsDone());
}

TEST_P(LoadAnyTest, VisitRowGivesTheDoctorsAndNullIsTheEmptyText) {
    personFinder->hasVisit = false;
    gPatientType = u"O"_s;
    ExpectVisitRows({{u"D001"_s, Value(), u"D003"_s}});
    Load();
    EXPECT_EQ(gDoctor1, Value(u"D001"_s));
    EXPECT_EQ(gDoctor2, Value(u""_s));
    EXPECT_EQ(gDoctor3, Value(u"D003"_s));
}

TEST_P(LoadAnyTest, DaysConfinedAreResetAlthoughNobodyIsFound) {
    personFinder->hasAdmission = false;
    InPatient();
    Load();
    EXPECT_EQ(gDaysConfined, 0);
}

TEST_P(LoadAnyTest, VisitNotFoundTouchesNothing) {
    personFinder->hasVisit = false;
    OutPatient();
    Load();
    EXPECT_EQ(Target().boxes, Boxes());
    EXPECT_TRUE(personFinder->loaded.empty());
    for (const QString* text :
         {&gRoomClass, &gStationName, &gAccountNumber, &gCompany, &gAdmissionDate, &gDischargeDate, &gRoomID})
        EXPECT_EQ(*text, u"former"_s);
    EXPECT_EQ(gDoctor2Code, Value(u"former"_s));
}

TEST_P(LoadAnyTest, VisitWhosePatientIsNotFoundLeavesTheScreenBlankButClassAAndRoomOPD) {
    personFinder->hasPatient = false;
    personFinder->discharge = At(2026, 11, 21, 9, 5);
    OutPatient();
    Load();
    EXPECT_EQ(Target().boxes, Boxes());
    EXPECT_EQ(gRoomClass, u"A"_s);
    EXPECT_EQ(gRoomID, u"OPD"_s);
    EXPECT_EQ(gAdmissionDate, u"11/20/2026 8:05:00 AM"_s);
    EXPECT_EQ(gDischargeDate, u"11/21/2026 9:05:00 AM"_s);
    EXPECT_EQ(gDoctor1, Value(u"D001"_s));
    EXPECT_EQ(gStationName, u"former"_s);
}

TEST_P(LoadAnyTest, DischargeDateZeroIsNoDischarge) {
    OutPatient();
    Load();
    EXPECT_EQ(gDischargeDate, u""_s);
}

TEST_P(LoadAnyTest, VisitIsOpenedByNumberAndItsPatientByHospitalNumber) {
    OutPatient();
    Load();
    EXPECT_EQ(personFinder->opened, std::vector<QString>{u"104233/100085"_s});
    EXPECT_EQ(personFinder->loaded, std::vector<QString>{u"100085"_s});
    EXPECT_TRUE(personFinder->validated.empty());
}

TEST_P(LoadAnyTest, AdmissionIsOpenedByNumberAlone) {
    InPatient();
    Load();
    EXPECT_EQ(personFinder->validated, std::vector<QString>{u"104233"_s});
    EXPECT_TRUE(personFinder->opened.empty());
}

TEST_P(LoadAnyTest, AnyTypeButIIsTreatedAsOutPatient) {
    for (const QString& type : {u"i"_s, u""_s, u"W"_s}) {
        personFinder->opened.clear();
        gPatientType = type;
        ExpectVisitRows({});
        Load();
        EXPECT_EQ(personFinder->opened.size(), 1U) << type.toStdString();
    }
    EXPECT_TRUE(personFinder->validated.empty());
}

TEST_P(LoadAnyTest, AdmissionNotFoundTouchesNothing) {
    personFinder->hasAdmission = false;
    InPatient();
    Load();
    EXPECT_EQ(Target().boxes, Boxes());
    for (const QString* text :
         {&gRoomClass, &gStationName, &gAccountNumber, &gCompany, &gAdmissionDate, &gDischargeDate, &gRoomID})
        EXPECT_EQ(*text, u"former"_s);
    EXPECT_EQ(gDoctor1, Value(u"former"_s));
}

TEST_P(LoadAnyTest, FinderIsClosedWhetherThePatientWasFoundOrNot) {
    for (const bool found : {true, false}) {
        personFinder->hasAdmission = personFinder->hasVisit = found;
        Screens::Get<frmSearchPatient>();
        InPatient();
        Load();
        EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
        Screens::Get<frmSearchPatient>();
        OutPatient();
        Load();
        EXPECT_FALSE(Screens::IsLoaded<frmSearchPatient>());
    }
}

TEST_P(LoadAnyTest, InPatientTurnsTheFindersFirstOptionOnFoundOrNot) {
    personFinder->hasAdmission = false;
    const auto& finder = Screens::Get<frmSearchPatient>();
    InPatient();
    Load();
    EXPECT_TRUE(finder.optPatientType[0]->isChecked());
}

TEST_P(LoadAnyTest, OutPatientLeavesTheFindersOptionsOff) {
    const auto& finder = Screens::Get<frmSearchPatient>();
    OutPatient();
    Load();
    EXPECT_FALSE(finder.optPatientType[0]->isChecked());
    EXPECT_FALSE(finder.optPatientType[1]->isChecked());
}

TEST_P(LoadAnyTest, NumbersGoToThePatientMasterByReference) {
    const auto rewriting = std::make_shared<RewritingPersonFinder>();
    rewriting->FillAdmission();
    gPersonFinder = rewriting;
    InPatient();
    Load();
    EXPECT_EQ(gIDNumber, u"A104233"_s);
    OutPatient();
    Load();
    EXPECT_EQ(gIDNumber, u"VA104233"_s);
    EXPECT_EQ(gHospitalNumber, u"H100085P"_s);
    EXPECT_EQ(Target().boxes[GetParam().name == std::string("Ledger") ? u"txtIDNum"_s : u"txtId"_s],
              u"VA104233"_s);
}

TEST_P(LoadAnyTest, ScreenIsNotToldOfAPickByTheRoutineItself) {
    InPatient();
    Load();
    EXPECT_EQ(Target().picked, 0);
}

TEST_P(LoadAnyTest, MissingRoomFails) {
    personFinder->admission.Room = nullptr;
    InPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kObjectNotSet);
    OutPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kObjectNotSet);
}

TEST_P(LoadAnyTest, NullNameFails) {
    personFinder->FirstName = Value();
    OutPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kInvalidUseOfNull);
}

/// The two charge screens, which are filled field for field alike.
class LoadForChargesTest : public LoadAnyTest {};

INSTANTIATE_TEST_SUITE_P(Modes, LoadForChargesTest, testing::Values(LoadCase{"Post"}, LoadCase{"List"}),
                         CaseName());

TEST_P(LoadForChargesTest, InPatientFillsTheScreen) {
    InPatient();
    Load();
    EXPECT_EQ(Target().boxes, (Boxes{{u"txtLastName"_s, u"DELA CRUZ"_s},
                                     {u"txtFirstName"_s, u"JUAN"_s},
                                     {u"txtMiddleName"_s, u"PEÑA"_s},
                                     {u"txtSex"_s, u"M"_s},
                                     {u"txtDob"_s, u"5/6/1960"_s},
                                     {u"txtAge"_s, u"66"_s},
                                     {u"txtPno"_s, u"100085"_s},
                                     {u"txtId"_s, u"104233"_s},
                                     {u"txtRoom"_s, u"301-A"_s},
                                     {u"txtDateAdmitted"_s, u"11/03/2026"_s},
                                     {u"txtDoctor"_s, u"DR. LUIS CASTAÑEDA"_s}}));
}

TEST_P(LoadForChargesTest, BoxesAreFilledInThisOrder) {
    const std::vector<QString> order = {u"txtLastName"_s,     u"txtFirstName"_s, u"txtMiddleName"_s,
                                        u"txtSex"_s,          u"txtDob"_s,       u"txtAge"_s,
                                        u"txtPno"_s,          u"txtId"_s,        u"txtRoom"_s,
                                        u"txtDateAdmitted"_s, u"txtDoctor"_s};
    InPatient();
    Load();
    EXPECT_EQ(Target().order, order);
    Target().order.clear();
    OutPatient();
    Load();
    EXPECT_EQ(Target().order, order);
}

TEST_P(LoadForChargesTest, WhatWasWrittenBeforeAMissingMemberStays) {
    personFinder->admission.Room->Station->Description = Value();
    InPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kInvalidUseOfNull);
    EXPECT_EQ(Target().order, (std::vector<QString>{u"txtLastName"_s, u"txtFirstName"_s, u"txtMiddleName"_s,
                                                    u"txtSex"_s, u"txtDob"_s}));
    EXPECT_EQ(gAccountNumber, u"500123"_s);
    EXPECT_EQ(gCompany, u"former"_s);
}

TEST_P(LoadForChargesTest, InPatientFillsThePatientInHand) {
    InPatient();
    Load();
    EXPECT_EQ(gAccountNumber, u"500123"_s);
    EXPECT_EQ(gStationName, u"STATION 3"_s);
    EXPECT_EQ(gCompany, u"PHILHEALTH"_s);
    EXPECT_EQ(gDaysConfined, 18);
    EXPECT_EQ(gRoomClass, u"C"_s);
}

TEST_P(LoadForChargesTest, InPatientShowsTheDoctorsNameAndKeepsTheCode) {
    InPatient();
    Load();
    EXPECT_EQ(Target().boxes[u"txtDoctor"_s], u"DR. LUIS CASTAÑEDA"_s);
    EXPECT_EQ(gDoctor1, Value(u"D003"_s));
    EXPECT_EQ(gDoctor2Code, Value(u"D007"_s));
}

TEST_P(LoadForChargesTest, InPatientKeepsDatesAndRoomTextOfTheFormerPatient) {
    InPatient();
    Load();
    EXPECT_EQ(gAdmissionDate, u"former"_s);
    EXPECT_EQ(gDischargeDate, u"former"_s);
    EXPECT_EQ(gRoomID, u"former"_s);
}

TEST_P(LoadForChargesTest, InPatientTakesTheAdmissionsOwnNumbersAndAge) {
    personFinder->admission.IDNumber = u"104233-R"_s;
    personFinder->admission.HospitalNumber = u"H-1"_s;
    personFinder->admission.Age = u"66 Y"_s;
    InPatient();
    Load();
    EXPECT_EQ(Target().boxes[u"txtId"_s], u"104233-R"_s);
    EXPECT_EQ(Target().boxes[u"txtPno"_s], u"H-1"_s);
    EXPECT_EQ(Target().boxes[u"txtAge"_s], u"66 Y"_s);
}

TEST_P(LoadForChargesTest, OutPatientFillsTheScreen) {
    // The person of the visit, and not the admission's, gives the person's own values.
    personFinder->LastName = u"SANTOS "_s;
    personFinder->FirstName = u"MARIA  "_s;
    personFinder->MiddleName = u"  LUZ"_s;
    personFinder->Sex = u"F"_s;
    personFinder->BirthDate = At(1971, 12, 31);
    personFinder->Age = u"54"_s;
    personFinder->HospitalNumber = u"200001"_s;
    OutPatient();
    Load();
    EXPECT_EQ(Target().boxes, (Boxes{{u"txtLastName"_s, u"SANTOS"_s},
                                     {u"txtFirstName"_s, u"MARIA"_s},
                                     {u"txtMiddleName"_s, u"  LUZ"_s},
                                     {u"txtSex"_s, u"F"_s},
                                     {u"txtDob"_s, u"12/31/1971"_s},
                                     {u"txtAge"_s, u"54"_s},
                                     {u"txtPno"_s, u"200001"_s},
                                     {u"txtId"_s, u"104233"_s},
                                     {u"txtRoom"_s, u"OPD"_s},
                                     {u"txtDateAdmitted"_s, u"11/20/2026"_s},
                                     {u"txtDoctor"_s, u"DR. LUIS CASTAÑEDA"_s}}));
}

TEST_P(LoadForChargesTest, OutPatientFillsThePatientInHandFromTheAdmissionSide) {
    OutPatient();
    Load();
    EXPECT_EQ(gAccountNumber, u"500123"_s);
    EXPECT_EQ(gStationName, u"STATION 3"_s);
    EXPECT_EQ(gCompany, u"PHILHEALTH"_s);
    EXPECT_EQ(gRoomClass, u"C"_s);
    EXPECT_EQ(gAdmissionDate, u"11/20/2026 8:05:00 AM"_s);
    EXPECT_EQ(gRoomID, u"OPD"_s);
    EXPECT_EQ(gDaysConfined, 1);
    EXPECT_EQ(gDoctor2, Value(u"D002"_s));
    EXPECT_EQ(gDoctor3, Value(u"D003"_s));
}

TEST_P(LoadForChargesTest, OutPatientKeepsTheFirstDoctorsNameAndTheFormerCode) {
    OutPatient();
    Load();
    EXPECT_EQ(gDoctor1, Value(u"DR. LUIS CASTAÑEDA"_s));
    EXPECT_EQ(gDoctor2Code, Value(u"former"_s));
}

TEST_P(LoadForChargesTest, EmptyRoomClassIsPassedOnAsItIs) {
    auto room = std::make_shared<RoomRecord>(*personFinder->admission.Room);
    room->roomclassid = u""_s;
    personFinder->admission.Room = room;
    OutPatient();
    Load();
    EXPECT_EQ(gRoomClass, u""_s);
}

TEST_P(LoadForChargesTest, PatientAdmittedTodayHasZeroDays) {
    personFinder->admission.AdmissionDate = At(2026, 11, 21, 23, 59);
    InPatient();
    Load();
    EXPECT_EQ(gDaysConfined, 0);
}

TEST_P(LoadForChargesTest, DaysAreCountedFromDayToDay) {
    personFinder->admission.AdmissionDate = At(2026, 11, 20, 23, 59);
    InPatient();
    Load();
    EXPECT_EQ(gDaysConfined, 1);
}

TEST_P(LoadForChargesTest, AdmissionAheadOfTodayCountsBackwards) {
    personFinder->visitDate = At(2026, 11, 23);
    OutPatient();
    Load();
    EXPECT_EQ(gDaysConfined, -2);
}

TEST_P(LoadForChargesTest, MoreDaysThanTheCounterHoldsOverflow) {
    const DateTime today = At(2026, 11, 21);
    personFinder->admission.AdmissionDate = today.AddDays(-32767);
    InPatient();
    Load();
    EXPECT_EQ(gDaysConfined, 32767);
    personFinder->admission.AdmissionDate = today.AddDays(-32768);
    InPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kOverflow);
}

TEST_P(LoadForChargesTest, MissingFirstDoctorFails) {
    personFinder->admission.AttendingDoctor1 = nullptr;
    InPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kObjectNotSet);
}

TEST_P(LoadForChargesTest, MissingSecondDoctorFailsForInPatientsAlone) {
    personFinder->admission.AttendingDoctor2 = nullptr;
    OutPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), 0);
    InPatient();
    EXPECT_EQ(NumberRaisedBy(Target()), RunTime::kObjectNotSet);
}

TEST_F(LoadPatientTest, LedgerInPatientFillsTheScreen) {
    personFinder->admission.IDNumber = u"104233-R"_s;
    personFinder->admission.HospitalNumber = u"H-1"_s;
    InPatient();
    LoadForLedger();
    EXPECT_EQ(targets[u"Ledger"_s].boxes, (Boxes{{u"txtLastName"_s, u"DELA CRUZ"_s},
                                                 {u"txtFirstName"_s, u"JUAN"_s},
                                                 {u"txtMiddleName"_s, u"PEÑA"_s},
                                                 {u"txtHospNum"_s, u"H-1"_s},
                                                 {u"txtIDNum"_s, u"104233-R"_s}}));
}

TEST_F(LoadPatientTest, LedgerFillsItsBoxesInThisOrder) {
    const std::vector<QString> order = {u"txtLastName"_s, u"txtFirstName"_s, u"txtMiddleName"_s,
                                        u"txtHospNum"_s, u"txtIDNum"_s};
    InPatient();
    LoadForLedger();
    EXPECT_EQ(targets[u"Ledger"_s].order, order);
    targets[u"Ledger"_s].order.clear();
    OutPatient();
    LoadForLedger();
    EXPECT_EQ(targets[u"Ledger"_s].order, order);
}

TEST_F(LoadPatientTest, LedgerInPatientWritesRoomAndAdmissionDateAlone) {
    InPatient();
    LoadForLedger();
    EXPECT_EQ(gRoomID, u"301-A"_s);
    EXPECT_EQ(gAdmissionDate, u"11/03/2026"_s);
    EXPECT_EQ(gRoomClass, u"former"_s);
    EXPECT_EQ(gDischargeDate, u"former"_s);
    EXPECT_EQ(gDoctor1, Value(u"former"_s));
    EXPECT_EQ(gDoctor2Code, Value(u"former"_s));
    EXPECT_EQ(gDaysConfined, 0);
}

TEST_F(LoadPatientTest, LedgerOutPatientFillsTheScreen) {
    personFinder->HospitalNumber = u"200001"_s;
    OutPatient();
    LoadForLedger();
    EXPECT_EQ(targets[u"Ledger"_s].boxes, (Boxes{{u"txtLastName"_s, u"DELA CRUZ"_s},
                                                 {u"txtFirstName"_s, u"JUAN"_s},
                                                 {u"txtMiddleName"_s, u"PEÑA"_s},
                                                 {u"txtHospNum"_s, u"200001"_s},
                                                 {u"txtIDNum"_s, u"104233"_s}}));
}

TEST_F(LoadPatientTest, LedgerOutPatientTakesDatesAndClassAndKeepsTheDoctorsId) {
    OutPatient();
    LoadForLedger();
    EXPECT_EQ(gAdmissionDate, u"11/20/2026 8:05:00 AM"_s);
    EXPECT_EQ(gRoomID, u"OPD"_s);
    EXPECT_EQ(gRoomClass, u"C"_s);
    EXPECT_EQ(gDoctor1, Value(u"D001"_s));
    EXPECT_EQ(gDaysConfined, 0);
}

TEST_F(LoadPatientTest, LedgerTouchesNeitherAccountNorStationNorCompany) {
    InPatient();
    LoadForLedger();
    OutPatient();
    LoadForLedger();
    EXPECT_EQ(gAccountNumber, u"former"_s);
    EXPECT_EQ(gStationName, u"former"_s);
    EXPECT_EQ(gCompany, u"former"_s);
}
