#include "charges/RequestingDoctor.h"

#include "components/shared.h"
#include "toolkit/SendKeys.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

void LookUpRequestingDoctor(QLineEdit& code, QLineEdit& name, QLineEdit& typedName) {
    if (code.text() == u"0"_s) {
        typedName.setEnabled(true);
        typedName.setFocus();
        return;
    }
    gListing->SetSearchMode(true);
    QString text = code.text();
    if (!gListing->SearchListing(text, ListingKind::kDoctor))
        return;
    const DoctorListing& doctor = gListing->DoctorRecord();
    name.setText(u"DR. "_s + doctor.FirstName + u" "_s + doctor.LastName);
    code.setText(doctor.ResultCode);
    SendTab();
}

void PickRequestingDoctor(QLineEdit& code, QLineEdit& name) {
    QString text = name.text();
    if (!gListing->SearchListing(text, ListingKind::kDoctor))
        return;
    const DoctorListing& doctor = gListing->DoctorRecord();
    // Kept: the name is written in another form than the one of a keyed code, with no blank behind the comma.
    name.setText(u"DR. "_s + doctor.LastName + u","_s + doctor.FirstName + u" "_s + doctor.MiddleName);
    code.setText(doctor.ResultCode);
}
