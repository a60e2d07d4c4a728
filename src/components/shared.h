#pragma once

#include "components/clsCurrentUser.h"
#include "components/clsDiagnosisCodes.h"
#include "components/clsListing.h"
#include "components/clsPersonFinder.h"
#include "components/clsStockItem.h"
#include "components/clsStockList.h"
#include "components/Ref.h"

#include <QString>

class CommandGateway;

/// The variables that the whole program shares for one run. The start of the program and the load of the main
/// window set most of them; each comment names who sets and who reads the others.

/// Full path of the configuration file. Set by Main.
inline QString gIniPath;
/// The department, from the configuration file. Set by LoadDepartment, read by the sign-on and the title.
inline QString gDeptCode;
inline QString gDeptDesc;
/// Copies taken after the sign-on.
inline QString gDeptCodeCopy;
inline QString gDeptDescCopy;

/// The session component, owner of the connection.
inline Ref<clsCurrentUser> gCurrentUser;
/// The same connection as gCurrentUser's SQLConnection.
inline CommandGateway* gConnection = nullptr;

/// The hospital record. Read by most reports.
inline QString gHospitalName;
inline QString gHospitalAddress;
inline QString gHospitalTin;
/// Kept: set from the hospital record and read by nothing; the choice of the stock picker goes by
/// gUseGenericList alone in this release.
inline bool gByGeneric = false;
/// Kept: nothing sets it, so the plain stock picker is always made.
inline bool gUseGenericList = false;
/// Kept: nothing sets it; the listing component receives it empty.
inline QString gCompanyName;

/// The in-house components, made at the start.
inline Ref<clsPersonFinder> gPersonFinder;
inline Ref<clsListing> gListing;
inline Ref<clsStockItem> gStockItem;
inline Ref<clsStockList> gStockList;
inline Ref<clsStockList> gStockListBasic;
inline Ref<clsDiagnosisCodes> gDiagnosisCodes;
/// Made because the start of a workstation fails without them; nothing uses them.
inline Ref<Component> gResultView;
inline Ref<Component> gStatement;
inline Ref<Component> gWardRequest;
inline Ref<Component> gWardResults;
inline Ref<Component> gWardConfinement;
inline Ref<Component> gWardConfinementResults;

/// Which screen waits for the patient finder: "Post", "List" or "Ledger". Set by the main window's menu.
inline QString gChargeMode;

/// The charge slip or assessment number of the last save. Set by the saves, read by the slips.
inline QString gSlipNumber;
/// The stock section handed to the stock components, "1" or "52". Set by the item lookup.
inline QString gStockSection;
/// The text handed to the cash patient list. Set by the assessment and the registration of a walk-in.
inline QString gCashSearchText;
/// Kept: set when a save has emptied the print table, and read by nothing.
inline bool gSlipTableCleared = false;
/// Kept: one for each accepted department of a charge screen, back to 0 when the screen unloads; read by
/// nothing.
inline int gLineCount = 0;
inline int gLineCount2 = 0;
