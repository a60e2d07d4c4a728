#include "suite/DataSources.h"

#include "suite/OdbcSource.h"
#include "suite/TrialHospital.h"
#include "text/RunTimeError.h"

namespace {

/// A workstation that cannot list its servers still has the trial hospital.
QStringList Listed(const DataSourceList& list) {
    try {
        return list();
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace

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

std::unique_ptr<DataSource> DataSourceNamed(const QString& dataFolder, const QString& name) {
    auto trial = std::make_unique<TrialHospital>(dataFolder);
    if (name == trial->Name())
        return trial;
    return std::make_unique<OdbcSource>(name);
}
