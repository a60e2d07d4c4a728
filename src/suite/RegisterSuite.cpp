#include "suite/RegisterSuite.h"

#include "components/clsDiagnosisCodes.h"
#include "components/ComponentRegistry.h"
#include "reporting/ReportConnector.h"
#include "suite/CurrentUser.h"
#include "suite/Listing.h"
#include "suite/PersonFinder.h"
#include "suite/StockItem.h"
#include "suite/StockList.h"
#include "suite/TrialHospital.h"

using namespace Qt::StringLiterals;

namespace {

/// For the components that a start needs and nothing uses.
class OnlyCreated : public Component {};

class DiagnosisCodes : public clsDiagnosisCodes {
  public:
    void SetActiveConnection(CommandGateway*) override {}
};

std::vector<std::unique_ptr<DataSource>> DataSources(const QString& dataFolder) {
    std::vector<std::unique_ptr<DataSource>> sources;
    sources.push_back(std::make_unique<TrialHospital>(dataFolder));
    return sources;
}

template <class Made> void Register(const QString& className) {
    RegisterComponent(className, [] { return std::make_shared<Made>(); });
}

std::unique_ptr<CommandGateway> ConnectReport(const QString& dataFolder, const ReportLogOn& logOn) {
    for (const auto& source : DataSources(dataFolder)) {
        if (source->Name() != logOn.server)
            continue;
        auto connection = LogOn(*source, logOn.user, logOn.password);
        connection->SetDefaultDatabase(logOn.database);
        return connection;
    }
    throw RunTimeError(RunTime::kItemNotFound, u"There is no data source '%1'."_s.arg(logOn.server));
}

} // namespace

void RegisterSuite(const QString& dataFolder) {
    RegisterComponent(u"TARVEN_User.clsCurrentUser"_s,
                      [dataFolder] { return std::make_shared<CurrentUser>(DataSources(dataFolder)); });
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
    SetReportConnector([dataFolder](const ReportLogOn& logOn) { return ConnectReport(dataFolder, logOn); });
}
