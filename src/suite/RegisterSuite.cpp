#include "suite/RegisterSuite.h"

#include "components/clsDiagnosisCodes.h"
#include "components/ComponentRegistry.h"
#include "gateway/odbc/OdbcDataSources.h"
#include "reporting/ReportConnector.h"
#include "suite/CurrentUser.h"
#include "suite/Listing.h"
#include "suite/OdbcSource.h"
#include "suite/PersonFinder.h"
#include "suite/StockItem.h"
#include "suite/StockList.h"
#include "suite/TrialHospital.h"

using namespace Qt::StringLiterals;

namespace {

/// The suite runs inside the program; there is no remote server that a component could be made on.
template <class Made> void Register(const QString& className) {
    RegisterComponent(className, [](const QString&) { return std::make_shared<Made>(); });
}

/// Seconds that a report's query may take: as long as any other command of the workstation.
constexpr int kReportTimeout = 120;

/// For the components that a start needs and nothing uses.
class OnlyCreated : public Component {};

class DiagnosisCodes : public clsDiagnosisCodes {
  public:
    void SetActiveConnection(CommandGateway*) override {}
};

std::vector<std::unique_ptr<DataSource>> DataSources(const QString& dataFolder) {
    std::vector<std::unique_ptr<DataSource>> sources;
    sources.push_back(std::make_unique<TrialHospital>(dataFolder));
    const QString trial = sources.front()->Name();
    for (const QString& name : OdbcDataSources()) {
        // A report finds its data source by the name, so no two may share one.
        if (name != trial)
            sources.push_back(std::make_unique<OdbcSource>(name));
    }
    return sources;
}

std::unique_ptr<CommandGateway> ConnectReport(const QString& dataFolder, const ReportLogOn& logOn) {
    for (const auto& source : DataSources(dataFolder)) {
        if (source->Name() != logOn.server)
            continue;
        auto connection = LogOn(*source, logOn.user, logOn.password);
        connection->SetDefaultDatabase(logOn.database);
        connection->SetCommandTimeout(kReportTimeout);
        return connection;
    }
    throw RunTimeError(RunTime::kItemNotFound, u"There is no data source '%1'."_s.arg(logOn.server));
}

} // namespace

void RegisterSuite(const QString& dataFolder) {
    RegisterComponent(u"TARVEN_User.clsCurrentUser"_s, [dataFolder](const QString&) {
        return std::make_shared<CurrentUser>(DataSources(dataFolder));
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
    SetReportConnector([dataFolder](const ReportLogOn& logOn) { return ConnectReport(dataFolder, logOn); });
}
