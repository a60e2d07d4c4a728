#include "suite/RegisterSuite.h"

#include "components/clsDiagnosisCodes.h"
#include "components/ComponentRegistry.h"
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

/// The data sources of the machine. A workstation that cannot list them still has the trial hospital.
QStringList Listed(const DataSourceList& list) {
    try {
        return list();
    } catch (const RunTimeError&) {
        return {};
    }
}

std::vector<std::unique_ptr<DataSource>> DataSources(const QString& dataFolder, const DataSourceList& list) {
    std::vector<std::unique_ptr<DataSource>> sources;
    sources.push_back(std::make_unique<TrialHospital>(dataFolder));
    const QString trial = sources.front()->Name();
    for (const QString& name : Listed(list)) {
        // A report finds its data source by the name, so no two may share one.
        if (name != trial)
            sources.push_back(std::make_unique<OdbcSource>(name));
    }
    return sources;
}

std::unique_ptr<CommandGateway> ConnectTo(DataSource& source, const ReportLogOn& logOn) {
    auto connection = LogOn(source, logOn.user, logOn.password);
    connection->SetCommandTimeout(kReportTimeout);
    connection->SetDefaultDatabase(logOn.database);
    return connection;
}

std::unique_ptr<CommandGateway> ConnectReport(const QString& dataFolder, const ReportLogOn& logOn) {
    TrialHospital trial(dataFolder);
    if (logOn.server == trial.Name())
        return ConnectTo(trial, logOn);
    OdbcSource server(logOn.server);
    return ConnectTo(server, logOn);
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
    SetReportConnector([dataFolder](const ReportLogOn& logOn) { return ConnectReport(dataFolder, logOn); });
}
