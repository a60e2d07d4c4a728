#include "torture/JournaledSuite.h"

#include "components/ComponentRegistry.h"
#include "odbc/OdbcDataSources.h"
#include "odbc/OdbcGateway.h"
#include "suite/CurrentUser.h"
#include "suite/OdbcSource.h"
#include "suite/RegisterSuite.h"
#include "suite/TrialHospital.h"
#include "trial/EmbeddedGateway.h"

#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// A gateway that keeps a journal of its commands, an updatable row set's writes among them.
template <class Gateway> class JournaledGateway : public Gateway {
  public:
    template <class... Arguments>
    explicit JournaledGateway(Journal& journal, const Arguments&... arguments)
        : Gateway(arguments...)
        , mJournal(journal) {}

  protected:
    typename Gateway::Outcome Run(const QString& command) override {
        mJournal.Sent(command);
        try {
            typename Gateway::Outcome outcome = Gateway::Run(command);
            mJournal.Answered(outcome.rowsAffected);
            return outcome;
        } catch (...) {
            mJournal.Failed();
            throw;
        }
    }

  private:
    Journal& mJournal;
};

class JournaledTrialHospital : public TrialHospital {
  public:
    JournaledTrialHospital(const QString& folder, Journal& journal)
        : TrialHospital(folder)
        , mJournal(journal) {}

    std::unique_ptr<CommandGateway> Connect(const QString& user, const QString& password) override {
        // What a sign-on looks after in the file is done by the hospital's own connection, which stays until
        // the other one stands.
        const auto opened = TrialHospital::Connect(user, password);
        return std::make_unique<JournaledGateway<EmbeddedGateway>>(mJournal, Path());
    }

  private:
    Journal& mJournal;
};

class JournaledServer : public OdbcSource {
  public:
    JournaledServer(const QString& name, Journal& journal)
        : OdbcSource(name)
        , mJournal(journal) {}

    std::unique_ptr<CommandGateway> Connect(const QString& user, const QString& password) override {
        return std::make_unique<JournaledGateway<OdbcGateway>>(mJournal, Name(), user, password);
    }

  private:
    Journal& mJournal;
};

std::vector<std::unique_ptr<DataSource>> JournaledSources(const QString& dataFolder, Journal& journal) {
    std::vector<std::unique_ptr<DataSource>> sources;
    sources.push_back(std::make_unique<JournaledTrialHospital>(dataFolder, journal));
    for (const QString& name : OdbcDataSources())
        sources.push_back(std::make_unique<JournaledServer>(name, journal));
    return sources;
}

} // namespace

void RegisterJournaledSuite(const QString& dataFolder, Journal& journal) {
    RegisterSuite(dataFolder);
    RegisterComponent(u"TARVEN_User.clsCurrentUser"_s, [dataFolder, &journal](const QString&) {
        return std::make_shared<CurrentUser>(JournaledSources(dataFolder, journal));
    });
}

std::unique_ptr<SignedOnUser> SignOnWithJournal(const QString& dataFolder, Journal& journal,
                                                const QString& user, const QString& password) {
    JournaledTrialHospital hospital(dataFolder, journal);
    SignOnOutcome outcome = TrySignOn(hospital, user, password, {.deptCode = u"HC"_s});
    // Many desks that sign on at one moment stand in each other's trail until their passwords were looked at.
    while (outcome.wait.count() > 0) {
        std::this_thread::sleep_for(outcome.wait);
        outcome = TrySignOn(hospital, user, password, {.deptCode = u"HC"_s, .waited = true});
    }
    if (!outcome.user)
        throw std::runtime_error(outcome.refusal.toStdString());
    return std::move(outcome.user);
}
