#include "desk/ByClass.h"

#include "catalogue/frmRates.h"
#include "catalogue/frmSearcher.h"
#include "maintenance/frmReprint.h"
#include "nursing/frmNursingRequest.h"
#include "patients/frmARPatients.h"
#include "patients/frmCashPatients.h"
#include "patients/frmRegisteredOPD.h"
#include "patients/frmWalkIn.h"
#include "patients/frmWalkInUpdate.h"
#include "toolkit/Screens.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

template <class Screen> void ShowScreen() {
    Screens::Get<Screen>().Show();
}

/// Nothing shows the queue's button that prints the consultation form.
void PrintConsultation() {
    Screens::Get<frmNursingRequest>().PrintConsultation(u"1"_s);
}

} // namespace

void OpenByClass(const QString& name) {
    static const std::map<QString, void (*)()> kScreens = {
        {u"frmARPatients"_s, ShowScreen<frmARPatients>},
        {u"frmCashPatients"_s, ShowScreen<frmCashPatients>},
        {u"frmRates"_s, ShowScreen<frmRates>},
        {u"frmRegisteredOPD"_s, ShowScreen<frmRegisteredOPD>},
        {u"frmReport"_s, PrintConsultation},
        {u"frmReprint"_s, ShowScreen<frmReprint>},
        {u"frmSearcher"_s, ShowScreen<frmSearcher>},
        {u"frmWalkIn"_s, ShowScreen<frmWalkIn>},
        {u"frmWalkInUpdate"_s, ShowScreen<frmWalkInUpdate>}};
    if (!kScreens.contains(name))
        throw std::runtime_error("no class is called " + name.toStdString());
    kScreens.at(name)();
}
