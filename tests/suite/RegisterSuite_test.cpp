#include "components/clsCurrentUser.h"
#include "components/clsDiagnosisCodes.h"
#include "components/clsListing.h"
#include "components/clsPersonFinder.h"
#include "components/clsStockItem.h"
#include "components/clsStockList.h"
#include "components/ComponentRegistry.h"
#include "components/ReportConnector.h"
#include "odbc/OdbcError.h"
#include "suite/RegisterSuite.h"
#include "suite/SuiteTest.h"
#include "support/ErrorOf.h"

#include <QComboBox>
#include <QFile>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

class RegisterSuiteTest : public SuiteTest {
  protected:
    RegisterSuiteTest() {
        RegisterSuite(folder.path());
        QFile::copy(Path(), folder.filePath(u"trial-hospital.db"_s));
    }
    ~RegisterSuiteTest() override { SetReportConnector({}); }

    static int ErrorOf(const ReportLogOn& logOn) {
        return ::ErrorOf([&] { ConnectReport(logOn); });
    }

    /// The data sources that the sign-on window offers.
    static QStringList Offered() {
        QStringList names;
        const OnDialog look([&names](QDialog& dialog) {
            const auto& list = Find<QComboBox>(dialog, "cmbDataSource");
            for (int i = 0; i < list.count(); ++i)
                names.append(list.itemText(i));
            dialog.reject();
        });
        CreateObject<clsCurrentUser>(u"TARVEN_User.clsCurrentUser"_s)->ShowMain();
        return names;
    }

    QTemporaryDir folder;
};

QStringList NoList() {
    throw RunTimeError(kOdbcFailure, u"The driver manager is broken."_s);
}

TEST_F(RegisterSuiteTest, EveryComponentCanBeCreatedByItsClassName) {
    EXPECT_TRUE(CreateObject<clsCurrentUser>(u"TARVEN_User.clsCurrentUser"_s).IsSet());
    EXPECT_TRUE(CreateObject<clsStockItem>(u"StockItemLib.clsStockItem"_s).IsSet());
    EXPECT_TRUE(CreateObject<clsPersonFinder>(u"PersonFinderLib.clsPersonFinder"_s).IsSet());
    EXPECT_TRUE(CreateObject<clsStockList>(u"StockListLib.clsStockList"_s).IsSet());
    EXPECT_TRUE(CreateObject<clsStockList>(u"StockGroupListLib.clsGroupList"_s).IsSet());
    EXPECT_TRUE(CreateObject<clsListing>(u"ListingLib.clsListing"_s).IsSet());
    EXPECT_TRUE(CreateObject<clsDiagnosisCodes>(u"DiagnosisCodeLib.clsDiagnosisCodes"_s).IsSet());
    for (const QString& className : {u"ResultViewLib.clsResultView"_s, u"AccountStatementLib.clsStatement"_s,
                                     u"WardWorkLib.clsRequest"_s, u"WardWorkLib.clsResults"_s,
                                     u"WardWorkLib.clsConfinementResults"_s, u"WardWorkLib.clsConfinement"_s})
        EXPECT_TRUE(CreateObject<Component>(className).IsSet());
}

TEST_F(RegisterSuiteTest, TheDiagnosisCodesTakeAConnectionThatIsNotOpenYet) {
    const auto user = CreateObject<clsCurrentUser>(u"TARVEN_User.clsCurrentUser"_s);
    EXPECT_EQ(user->SQLConnection(), nullptr);
    const auto codes = CreateObject<clsDiagnosisCodes>(u"DiagnosisCodeLib.clsDiagnosisCodes"_s);
    EXPECT_NO_THROW(codes->SetActiveConnection(user->SQLConnection()));
}

TEST_F(RegisterSuiteTest, AReportReachesTheTrialHospitalWithTheUsersLogon) {
    const auto connection = ConnectReport({u"Trial hospital"_s, u"Clinical_Area"_s, u"NURSE"_s, u"nurse"_s});
    ASSERT_NE(connection, nullptr);
    EXPECT_EQ(connection->DefaultDatabase(), u"Clinical_Area"_s);
    EXPECT_EQ(connection->CommandTimeout(), 30) << "the main window alone sets another one";
    EXPECT_FALSE(connection->Execute(u"select * from PATIENT_DATA..tbhospitalInfo"_s).Eof());
}

TEST_F(RegisterSuiteTest, AReportWithAWrongPasswordOrServerIsRefused) {
    EXPECT_EQ(ErrorOf({u"Trial hospital"_s, u"Clinical_Area"_s, u"NURSE"_s, u"wrong"_s}), 18456);
    EXPECT_EQ(ErrorOf({u"closed long ago"_s, u"Clinical_Area"_s, u"NURSE"_s, u"nurse"_s}), kOdbcFailure);
}

TEST_F(RegisterSuiteTest, WithoutAListOfDataSourcesTheTrialHospitalAloneIsOffered) {
    RegisterSuite(folder.path(), NoList);
    EXPECT_EQ(Offered(), QStringList{u"Trial hospital"_s});
    EXPECT_NE(ConnectReport({u"Trial hospital"_s, u"Clinical_Area"_s, u"NURSE"_s, u"nurse"_s}), nullptr);
}

TEST_F(RegisterSuiteTest, AMachineWithoutDataSourcesHasTheTrialHospital) {
    const auto back = qScopeGuard([system = qgetenv("ODBCSYSINI"), user = qgetenv("ODBCINI")] {
        qputenv("ODBCSYSINI", system);
        qputenv("ODBCINI", user);
    });
    qputenv("ODBCSYSINI", folder.path().toUtf8());
    qputenv("ODBCINI", folder.filePath(u"odbc.ini"_s).toUtf8());
    EXPECT_EQ(Offered(), QStringList{u"Trial hospital"_s});
}

TEST_F(RegisterSuiteTest, AReportDoesNotListTheDataSources) {
    int lists = 0;
    RegisterSuite(folder.path(), [&lists] {
        ++lists;
        return QStringList();
    });
    ErrorOf({u"closed long ago"_s, u"Clinical_Area"_s, u"NURSE"_s, u"nurse"_s});
    EXPECT_NE(ConnectReport({u"Trial hospital"_s, u"Clinical_Area"_s, u"NURSE"_s, u"nurse"_s}), nullptr);
    EXPECT_EQ(lists, 0);
}

} // namespace
