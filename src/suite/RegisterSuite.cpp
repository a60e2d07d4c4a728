#include "suite/RegisterSuite.h"

#include "components/ComponentRegistry.h"
#include "components/ReportConnector.h"
#include "suite/CurrentUser.h"
#include "suite/DiagnosisCodes.h"
#include "suite/Listing.h"
#include "suite/PersonFinder.h"
#include "suite/SignOn.h"
#include "suite/StockItem.h"
#include "suite/StockList.h"

using namespace Qt::StringLiterals;

namespace {

/// The suite runs inside the program; there is no remote server that a component could be made on.
template <class Made> void Register(const QString& className) {
    RegisterComponent(className, [](const QString&) { return std::make_shared<Made>(); });
}

/// For the components that a start needs and nothing uses.
class OnlyCreated : public Component {};

std::unique_ptr<CommandGateway> Connect(const QString& dataFolder, const ReportLogOn& logOn) {
    auto connection = LogOn(*DataSourceNamed(dataFolder, logOn.server), logOn.user, logOn.password);
    connection->SetDefaultDatabase(logOn.database);
    return connection;
}

} // namespace

void RegisterSuite(const QString& dataFolder, const DataSourceList& list) {
    RegisterComponent(u"TARVEN_User.clsCurrentUser"_s, [dataFolder, list](const QString&) {
        return std::make_shared<CurrentUser>(DataSources(dataFolder, list));
    });
    Register<StockItem>(u"StockItemLib.clsStockItem"_s);
    Register<OnlyCreated>(u"ResultViewLib.clsResultView"_s);
    Register<PersonFinder>(u"PersonFinderLib.clsPersonFinder"_s);
    Register<StockList>(u"StockListLib.clsStockList"_s);
    Register<StockList>(u"StockGroupListLib.clsGroupList"_s);
    Register<Listing>(u"ListingLib.clsListing"_s);
    Register<OnlyCreated>(u"AccountStatementLib.clsStatement"_s);
    Register<DiagnosisCodes>(u"DiagnosisCodeLib.clsDiagnosisCodes"_s);
    for (const QString& className : {u"WardWorkLib.clsRequest"_s, u"WardWorkLib.clsResults"_s,
                                     u"WardWorkLib.clsConfinementResults"_s, u"WardWorkLib.clsConfinement"_s})
        Register<OnlyCreated>(className);
    SetReportConnector([dataFolder](const ReportLogOn& logOn) { return Connect(dataFolder, logOn); });
}
