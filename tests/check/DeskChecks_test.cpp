#include "check/DeskChecks.h"
#include "components/shared.h"
#include "report/output/Printers.h"
#include "support/cups/CupsServer.h"
#include "support/hospital/ProgramFolder.h"
#include "support/PrintQt.h"
#include "support/ProgramDirectoryAt.h"
#include "support/ScriptedGateway.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

/// The desk's checks in a program's folder of the test's own.
class DeskChecks : public testing::Test {
  protected:
    DeskChecks() {
        gIniPath = folder.File(u"tarvenaux.ini"_s);
        QFile::copy(folder.File(u"Reports/ChargeSlip.rpt"_s), folder.File(u"ChargeSlip.rpt"_s));
    }
    ~DeskChecks() override { gIniPath.clear(); }

    Ground On() {
        return {.connection = gateway,
                .needs = needs,
                .isTrial = isTrial,
                .user = u"NURSE"_s,
                .source = u"Somewhere"_s,
                .department = u"HC"_s,
                .dataFolder = dataFolder};
    }

    /// What is wrong, each on a line of its own.
    static std::string Faults(const Findings& findings) {
        QString faults;
        for (const Finding& finding : findings) {
            if (finding.verdict == Verdict::Fault)
                faults += finding.seen + u'\n';
        }
        return faults.toStdString();
    }

    void Change(const QString& file, const QByteArray& from, const QByteArray& to) {
        QFile opened(folder.File(file));
        ASSERT_TRUE(opened.open(QIODevice::ReadOnly));
        QByteArray content = opened.readAll();
        ASSERT_TRUE(content.contains(from));
        folder.Write(file, content.replace(from, to));
    }

    const ProgramFolder folder;
    const Seam<QString()>::Replacement there = ProgramDirectoryAt(folder.Path());
    const Needs needs = NeedsOfProgram();
    ScriptedGateway gateway;
    bool isTrial = true;
    QString dataFolder = folder.Path();
};

} // namespace

TEST_F(DeskChecks, OfAWholeFolderFindNothing) {
    EXPECT_EQ(Faults(LookAtTemplates(On())), "");
    EXPECT_EQ(LookAtTemplates(On()).front().seen, u"13 read"_s);
    EXPECT_EQ(Faults(LookAtConfiguration(On())), "");
    EXPECT_EQ(Faults(LookAtFolders(On())), "");
}

// One that the program opens and nobody looks at would be missed.
TEST_F(DeskChecks, TemplatesAreAllThatTheProgramBrings) {
    QStringList looked;
    for (const QString& path : TemplatesOfProgram())
        looked << QFileInfo(path).fileName();
    looked.sort();
    QStringList brought = QDir(u"" TARVEN_SOURCE_DIR "/Reports"_s).entryList(QDir::Files);
    brought.sort();
    EXPECT_EQ(looked, brought);
}

TEST_F(DeskChecks, ATemplateThatIsGoneIsTold) {
    QFile::remove(folder.File(u"Reports/AuditReport.RPT"_s));
    EXPECT_THAT(Faults(LookAtTemplates(On())), HasSubstr("AuditReport.RPT: No such file"));
}

TEST_F(DeskChecks, ATemplateThatCannotBeReadIsToldWithItsLine) {
    Change(u"Reports/AuditReport.RPT"_s, "<page-header", "<page-haeder");
    EXPECT_THAT(Faults(LookAtTemplates(On())), AllOf(HasSubstr("AuditReport.RPT"), HasSubstr("line")));
}

TEST_F(DeskChecks, AFieldThatNoQueryAnswersIsToldWithItsLine) {
    Change(u"Reports/IncomeReport.RPT"_s, "{Title.Type} INCOME REPORT", "{Title.Kind} INCOME REPORT");
    EXPECT_THAT(Faults(LookAtTemplates(On())),
                AllOf(HasSubstr("IncomeReport.RPT: line "), HasSubstr("there is no column Kind")));
}

TEST_F(DeskChecks, WordsThatCannotBeBarsAreToldWithTheirLine) {
    const QByteArray bars = "<page-header height=\"19.4\">\n"
                            "<barcode x=\"0\" y=\"0\" width=\"30\" height=\"9\">HC-12</barcode>"
                            "<barcode x=\"0\" y=\"0\" width=\"30\" height=\"9\">{?Start}</barcode>\n"
                            "<barcode x=\"0\" y=\"0\" width=\"90\" height=\"9\">Ñ{?Start}</barcode>\n"
                            "<barcode x=\"0\" y=\"0\" width=\"9\" height=\"9\">HC-12</barcode>"_ba;
    Change(u"Reports/AuditReport.RPT"_s, "<page-header height=\"19.4\">", bars);
    EXPECT_THAT(Faults(LookAtTemplates(On())),
                AllOf(Not(HasSubstr("line 30:")), HasSubstr("line 31: \"Ñ\" cannot be bars"),
                      HasSubstr("line 32: \"HC-12\" cannot be bars")));
}

TEST_F(DeskChecks, AProcedureThatIsNotKnownIsTold) {
    Change(u"Reports/IncomeReport.RPT"_s, "REPORTS.dbo.spReports_Income\"", "REPORTS.dbo.spReports_Incom\"");
    EXPECT_THAT(Faults(LookAtTemplates(On())), HasSubstr("the query answers nothing that is known"));
}

TEST_F(DeskChecks, AConfigurationWithoutADepartmentIsTold) {
    folder.Write(u"tarvenaux.ini"_s, "DeptDesc = X\n");
    EXPECT_THAT(Faults(LookAtConfiguration(On())), HasSubstr("names no department"));
    QFile::remove(folder.File(u"tarvenaux.ini"_s));
    EXPECT_THAT(Faults(LookAtConfiguration(On())), HasSubstr("tarvenaux.ini"));
}

TEST_F(DeskChecks, TemplatesThatAClerkMayWriteAreToldOnAServer) {
    isTrial = false;
    EXPECT_THAT(Faults(LookAtFolders(On())), HasSubstr("Reports may be written to by who works here"));
}

TEST_F(DeskChecks, ADataFolderThatIsAFileIsTold) {
    dataFolder = folder.File(u"tarvenaux.ini"_s);
    EXPECT_THAT(Faults(LookAtFolders(On())), HasSubstr("tarvenaux.ini cannot be written to"));
}

TEST_F(DeskChecks, PrintersAreCountedAndOneThatIsGoneIsTold) {
    if (!CupsServer::Missing().isEmpty())
        GTEST_SKIP() << "not installed: " << CupsServer::Missing().toStdString();
    CupsServer server;
    ASSERT_TRUE(server.IsRunning());
    EXPECT_EQ(Faults(LookAtPrinters(On())), "none\n");
    server.AddQueue(u"ward"_s, {u"A4"_s});
    EXPECT_EQ(Faults(LookAtPrinters(On())), "");
    RememberPrinter(u"cashier"_s);
    EXPECT_EQ(Faults(LookAtPrinters(On())), "the one used last, cashier, is gone\n");
    RememberPrinter({});
}
