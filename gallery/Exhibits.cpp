#include "gallery/Exhibits.h"

#include "catalogue/frmRates.h"
#include "catalogue/frmSearcher.h"
#include "driver/Driver.h"
#include "maintenance/frmReprint.h"
#include "patients/frmARPatients.h"
#include "patients/frmCashPatients.h"
#include "patients/frmRegisteredOPD.h"
#include "patients/frmWalkIn.h"
#include "patients/frmWalkInUpdate.h"
#include "toolkit/Screens.h"

using namespace Qt::StringLiterals;

namespace {

template <class T>
Exhibit ExhibitOf(const QString& name, std::function<void(Driver&, const TakePicture&)> visit) {
    return {name, [] { Screens::Get<T>().Show(); }, [] { Screens::Unload<T>(); }, std::move(visit)};
}

void VisitWalkInUpdate(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"txtSearch"_s);
    clerk.Press(Qt::Key_Return);
    take(u"search"_s);
    clerk.Press(Qt::Key_Down);
    clerk.Press(Qt::Key_Return);
    take(u"record"_s);
}

/// The screen's caption is what its caller was looking for.
void OpenRegisteredOPD() {
    frmRegisteredOPD::PatientRecord = u"104233B"_s;
    Screens::Get<frmRegisteredOPD>().Show();
}

void VisitRegisteredOPD(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"txtSearch"_s);
    clerk.Type(u"de"_s);
    clerk.Press(Qt::Key_Return);
    take(u"found"_s);
}

void VisitARPatients(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"txtSearch"_s);
    clerk.Type(u"de"_s);
    clerk.Press(Qt::Key_Return);
    take(u"found"_s);
}

void VisitSearcher(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"txtSearchStr"_s);
    take(u"list"_s);
}

/// The line above the list is what its caller was looking for.
void OpenCashPatients() {
    frmCashPatients::SetPatientRecord(u"Search record of DELA CRUZ"_s);
    Screens::Get<frmCashPatients>().Show();
}

void VisitCashPatients(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"cmbPatientType"_s);
    clerk.Type(u"w"_s);
    clerk.Press(Qt::Key_Return);
    take(u"found"_s);
}

void VisitRates(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"txtRevenueID"_s);
    clerk.Type(u"HC"_s);
    clerk.Press(Qt::Key_Return);
    take(u"rates"_s);
}

void VisitReprint(Driver& clerk, const TakePicture& take) {
    clerk.ExpectFocus(u"cmbPatientCode"_s);
    clerk.Press(Qt::Key_Return);
    clerk.Type(u"700124"_s);
    clerk.Press(Qt::Key_Return);
    clerk.ExpectFocus(u"grdTable"_s);
    take(u"slips"_s);
}

void VisitEntry(Driver&, const TakePicture& take) {
    take(u"entry"_s);
}

} // namespace

std::vector<Exhibit> Exhibits() {
    return {ExhibitOf<frmWalkInUpdate>(u"frmWalkInUpdate"_s, VisitWalkInUpdate),
            {u"frmRegisteredOPD"_s, OpenRegisteredOPD, [] { Screens::Unload<frmRegisteredOPD>(); },
             VisitRegisteredOPD},
            ExhibitOf<frmARPatients>(u"frmARPatients"_s, VisitARPatients),
            ExhibitOf<frmSearcher>(u"frmSearcher"_s, VisitSearcher),
            {u"frmCashPatients"_s, OpenCashPatients, [] { Screens::Unload<frmCashPatients>(); },
             VisitCashPatients},
            ExhibitOf<frmWalkIn>(u"frmWalkIn"_s, VisitEntry),
            ExhibitOf<frmRates>(u"frmRates"_s, VisitRates),
            ExhibitOf<frmReprint>(u"frmReprint"_s, VisitReprint)};
}
