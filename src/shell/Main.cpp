#include "shell/Main.h"

#include "components/ComponentRegistry.h"
#include "components/shared.h"
#include "manual/Help.h"
#include "shell/ConfigFile.h"
#include "shell/frmMain.h"
#include "shell/frmSetup.h"
#include "toolkit/EndProcess.h"
#include "toolkit/MsgBox.h"
#include "toolkit/ProgramFiles.h"
#include "toolkit/Screens.h"

#include <exception>

using namespace Qt::StringLiterals;

void Main() {
    OfferHelp();
    gIniPath = ProgramDirectory() + u'\\' + kConfigFileName.toString();
    EnsureConfigFile();
    LoadDepartment();
    if (!InitComponents())
        EndProcess();
    frmMain::Open();
}

void LoadDepartment() {
    ReadConfigValue(u"DeptCode"_s, gDeptCode);
    ReadConfigValue(u"DeptDesc"_s, gDeptDesc);
    if (!gDeptCode.isEmpty() && !gDeptDesc.isEmpty())
        return;
    MsgBox({.text = u"Department not set."_s});
    Screens::Get<frmSetup>().ShowModal();
    // Kept: the program ends whatever the user did in the setup, even after Cancel.
    MsgBox({.text = u"Restart Program."_s});
    EndProcess();
}

bool InitComponents() {
    try {
        gCurrentUser = CreateObject<clsCurrentUser>(u"TARVEN_User.clsCurrentUser"_s);
        gStockItem = CreateObject<clsStockItem>(u"StockItemLib.clsStockItem"_s);
        gResultView = CreateObject<Component>(u"ResultViewLib.clsResultView"_s);
        gPersonFinder = CreateObject<clsPersonFinder>(u"PersonFinderLib.clsPersonFinder"_s);
        gStockListBasic = CreateObject<clsStockList>(u"StockListLib.clsStockList"_s);
        gListing = CreateObject<clsListing>(u"ListingLib.clsListing"_s);
        gStatement = CreateObject<Component>(u"AccountStatementLib.clsStatement"_s);
        gDiagnosisCodes = CreateObject<clsDiagnosisCodes>(u"DiagnosisCodeLib.clsDiagnosisCodes"_s);
        // Kept: nobody has signed on yet, and the component is not told of the connection again.
        gDiagnosisCodes->SetActiveConnection(gCurrentUser->SQLConnection());
        return true;
    } catch (const std::exception& error) {
        // Kept: the second word is written so, and nothing stands between the two texts.
        MsgBox({.text = QString::fromUtf8(error.what()) + u"Error Initalizing DLLs..."_s});
        return false;
    }
}
