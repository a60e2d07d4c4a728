#include "odbc/AlteredTexts.h"
#include "odbc/OdbcError.h"
#include "odbc/OdbcGateway.h"
#include "odbc/OdbcServer.h"

#include <arpa/inet.h>
#include <future>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using OdbcGatewayTest = OdbcServer;

/// Answers with that many rows of one column "Line", from 1.
void AnswerLines(TdsAnswer& answer, int lines) {
    answer.Columns({{.name = u"Line"_s, .type = TdsType::Int}});
    for (int line = 1; line <= lines; ++line)
        answer.Row({line});
}

constexpr int kSeveralPackets = 5000;
/// Seconds for a command that is to come to its end however busy the machine is.
constexpr int kPatient = 120;

} // namespace

// What crosses the wire.

TEST_F(OdbcGatewayTest, TextReachesTheServerUnchanged) {
    const QStringList commands = {
        u"RADIOLOGY..spRadio_CheckPending 'HC'"_s,
        u"CLINICAL_AREA..spEarCare_GetCashPatient  '"_s,
        u"delete Clinical_Area..tbPrint  "_s,
        u"  select 1 \n\t from x"_s,
        u"Clinical_Area..spGetPatient 'I','O'Brien'"_s,
        u"select 'unclosed"_s,
        u"spX '{braces} and ? in quotes','it''s {too}?'"_s,
        u"select [a{b?}], \"{?}\" from x /* {?} */ -- {?}"_s,
        u"spX 'Peña, Niño ÄÖ € 漢字 😀'"_s,
        u"x}"_s,
        u"exec spX 'a'"_s,
        u"x {fn now()}"_s,
        u"x"_s,
    };
    for (const QString& command : commands)
        mGateway->ExecuteNoResult(command);
    EXPECT_EQ(mServer.Batches(), commands);
}

TEST_F(OdbcGatewayTest, LongTextReachesTheServerWhole) {
    const QString command = u"spX '"_s + QString(100000, u'ñ') + u'\'';
    mGateway->ExecuteNoResult(command);
    EXPECT_EQ(mServer.Batches(), QStringList{command});
}

TEST_F(OdbcGatewayTest, OneCommandIsOneRoundTrip) {
    mGateway->Execute(u"a"_s);
    mGateway->Open(u"b"_s, CursorType::Dynamic, LockType::Optimistic, CursorLocation::Client);
    mGateway->ExecuteNoResult(u"c"_s);
    EXPECT_EQ(mServer.Batches(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

TEST_F(OdbcGatewayTest, TextThatTheDriverWouldAlterIsRefusedAndNotSent) {
    for (const auto& [command, near] : kAlteredByFreeTds) {
        const RaisedError failure = FailureOfCommand(command);
        EXPECT_EQ(failure.number, 102) << command.toStdString();
        EXPECT_EQ(failure.text, u"Incorrect syntax near '%1'."_s.arg(near)) << command.toStdString();
        EXPECT_EQ(failure.state, u"42000"_s);
    }
    EXPECT_EQ(mServer.Batches(), QStringList());
}

TEST_F(OdbcGatewayTest, AParameterThatHasNoValueIsTheDriversOwnFailureAndNotSent) {
    for (const QString& command : {u"spX ?"_s, u"spX 'O'?'"_s})
        EXPECT_NE(FailureOfCommand(command).number, 0) << command.toStdString();
    EXPECT_EQ(mServer.Batches(), QStringList());
    EXPECT_NO_THROW(mGateway->ExecuteNoResult(u"x"_s));
}

TEST_F(OdbcGatewayTest, EmptyTextIsAFailure) {
    EXPECT_NE(FailureOfCommand(QString()).number, 0);
    EXPECT_EQ(mServer.Batches(), QStringList());
}

// Logging on.

TEST_F(OdbcGatewayTest, LogsOnWithUserAndPasswordAsTheyStand) {
    const QString user = u"Niña;x"_s;
    const QString password = u"pä{}ss;=漢 '\""_s;
    mServer.Admit(user, password);
    EXPECT_NO_THROW(OdbcGateway(mSource, user, password));
    EXPECT_EQ(mServer.Logins().back().user, user);
    EXPECT_EQ(mServer.Logins().back().password, password);
}

TEST_F(OdbcGatewayTest, ANameOfADataSourceMayHaveBlanksAndSigns) {
    const QString name = u"St. Luke's (main)"_s;
    TestDataSources::Instance().Add(mServer.Port(), name);
    EXPECT_NO_THROW(OdbcGateway(name, u"u"_s, u"p"_s));
    TestDataSources::Instance().Remove(name);
}

TEST_F(OdbcGatewayTest, WrongPasswordIsTheServersOwnError) {
    mServer.Admit(u"NURSE"_s, u"nurse"_s);
    const RaisedError failure = FailureOf([this] { OdbcGateway(mSource, u"NURSE"_s, u"wrong"_s); });
    EXPECT_EQ(failure.number, 18456);
    EXPECT_EQ(failure.text, u"Login failed for user 'NURSE'."_s);
}

TEST_F(OdbcGatewayTest, ConnectionStringHasNoPassword) {
    const OdbcGateway gateway(mSource, u"NURSE"_s, u"secret"_s);
    EXPECT_EQ(gateway.ConnectionString(), u"Provider=MSDASQL;DSN=%1;UID=NURSE"_s.arg(mSource));
}

TEST_F(OdbcGatewayTest, UnknownDataSourceIsToldByTheDriverManager) {
    const RaisedError failure = FailureOf([] { OdbcGateway(u"closed long ago"_s, u"u"_s, u"p"_s); });
    EXPECT_EQ(failure.number, kOdbcFailure);
    EXPECT_EQ(failure.text, u"Data source name not found and no default driver specified"_s);
    EXPECT_EQ(failure.state, u"IM002"_s);
}

TEST_F(OdbcGatewayTest, DataSourceWithoutItsDriverIsToldByTheDriverManager) {
    TestDataSources::Instance().Add(u"No driver"_s, u"Driver=/nowhere/libdriver.so\n"_s);
    const RaisedError failure = FailureOf([] { OdbcGateway(u"No driver"_s, u"u"_s, u"p"_s); });
    TestDataSources::Instance().Remove(u"No driver"_s);
    EXPECT_EQ(failure.number, kOdbcFailure);
    EXPECT_EQ(failure.text, u"Can't open lib '/nowhere/libdriver.so' : file not found"_s);
}

TEST_F(OdbcGatewayTest, ServerThatIsGoneIsToldByTheDriver) {
    mServer.Close();
    const RaisedError failure = FailureOf([this] { Connect(); });
    EXPECT_NE(failure.number, 0);
    EXPECT_TRUE(failure.text.startsWith(u"Unable to connect"_s)) << failure.text.toStdString();
}

TEST_F(OdbcGatewayTest, ServerThatDoesNotAnswerTheLogonIsGivenUp) {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    const QString source = TestDataSources::Instance().Add(ntohs(address.sin_port));
    EXPECT_NE(FailureOf([&source] { OdbcGateway(source, u"u"_s, u"p"_s, 1); }).number, 0);
    close(listener);
}

TEST_F(OdbcGatewayTest, DefaultDatabaseIsSetOnTheServer) {
    mGateway->SetDefaultDatabase(u"PASSWORD"_s);
    EXPECT_EQ(mGateway->DefaultDatabase(), u"PASSWORD"_s);
    EXPECT_EQ(mServer.Batches(), QStringList{u"USE [PASSWORD]"_s});
}

TEST_F(OdbcGatewayTest, DatabaseThatTheServerHasNotIsItsError) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Error(911,
                     u"Database 'NOWHERE' does not exist. Make sure that the name is entered correctly."_s);
    });
    const RaisedError failure = FailureOf([this] { mGateway->SetDefaultDatabase(u"NOWHERE"_s); });
    EXPECT_EQ(failure.number, 911);
    EXPECT_TRUE(failure.text.startsWith(u"Database 'NOWHERE' does not exist."_s));
    EXPECT_EQ(mGateway->DefaultDatabase(), QString());
}

TEST_F(OdbcGatewayTest, ANameOfADatabaseIsOneNameWhateverIsInIt) {
    mGateway->SetDefaultDatabase(u"a]; DELETE x {?}"_s);
    EXPECT_EQ(mServer.Batches(), QStringList{u"USE [a]]; DELETE x {?}]"_s});
}

TEST_F(OdbcGatewayTest, AServerThatIsSilentAboutTheDefaultDatabaseIsGivenUp) {
    AnswerWith([](const QString&, TdsAnswer& answer) { answer.FallSilent(); });
    mGateway->SetCommandTimeout(1);
    EXPECT_EQ(FailureOf([this] { mGateway->SetDefaultDatabase(u"PASSWORD"_s); }).state, u"HYT00"_s);
    EXPECT_EQ(mGateway->DefaultDatabase(), QString());
}

// What comes back.

TEST_F(OdbcGatewayTest, ResultsBehindTheFirstAreReadAndDropped) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Done(5);
        AnswerLines(answer, 2);
        answer.Done(2);
        AnswerLines(answer, kSeveralPackets);
        answer.Done(kSeveralPackets);
        answer.Done(1);
    });
    EXPECT_EQ(RowTexts(*mGateway, u"spX"_s), (QStringList{u"1"_s, u"2"_s}));
    EXPECT_EQ(RowTexts(*mGateway, u"spX"_s).size(), 2) << "the connection is free for the next command";
}

TEST_F(OdbcGatewayTest, MessagesOfTheServerAreNoFailure) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Info(0, u"printed"_s);
        AnswerLines(answer, 1);
        answer.Info(3621, u"The statement has been terminated."_s);
        answer.Done(1);
    });
    EXPECT_EQ(RowTexts(*mGateway, u"spX"_s), QStringList{u"1"_s});
}

TEST_F(OdbcGatewayTest, CommandThatTouchedNoRowIsNoFailure) {
    AnswerWith([](const QString&, TdsAnswer& answer) { answer.Done(0); });
    EXPECT_EQ(mGateway->Execute(u"delete x"_s).State(), RowSet::Status::Closed);
}

TEST_F(OdbcGatewayTest, AHundredThousandRowsComeWhole) {
    constexpr int kRows = 100000;
    AnswerWith([](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, kRows);
        answer.Done(kRows);
    });
    const auto rows = mGateway->Execute(u"spX"_s).Data();
    ASSERT_EQ(rows->RowCount(), size_t(kRows));
    for (size_t row = 0; row < rows->RowCount(); ++row)
        ASSERT_EQ(rows->Cell(row, 0), Value(qint64(row) + 1));
}

// Failures.

TEST_F(OdbcGatewayTest, ErrorHasTheServersNumberAndText) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Error(50001, u"[HC] La Niña's slip is closed. [SQL Server]"_s);
    });
    const RaisedError failure = FailureOfCommand();
    EXPECT_EQ(failure.number, 50001);
    EXPECT_EQ(failure.text, u"[HC] La Niña's slip is closed. [SQL Server]"_s);
    EXPECT_EQ(failure.state, u"42000"_s);
}

TEST_F(OdbcGatewayTest, MissingProcedureIsToldAsTheServerTellsIt) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Error(2812, u"Could not find stored procedure 'Clinical_Area..spNowhere'."_s);
    });
    const RaisedError failure = FailureOfCommand(u"Clinical_Area..spNowhere 'HC'"_s);
    EXPECT_EQ(failure.number, 2812);
    EXPECT_EQ(failure.text, u"Could not find stored procedure 'Clinical_Area..spNowhere'."_s);
    EXPECT_EQ(mServer.Batches(), QStringList{u"Clinical_Area..spNowhere 'HC'"_s});
}

TEST_F(OdbcGatewayTest, ErrorBehindMessagesIsToldAndNotTheMessages) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Info(0, u"printed"_s);
        answer.Error(547, u"The INSERT statement conflicted."_s);
        answer.Info(3621, u"The statement has been terminated."_s);
    });
    EXPECT_EQ(FailureOfCommand().number, 547);
    EXPECT_EQ(FailureOfCommand().text, u"The INSERT statement conflicted."_s);
}

TEST_F(OdbcGatewayTest, ErrorBehindTheRowsIsAFailure) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, 1);
        answer.Done(1);
        answer.Error(245, u"Conversion failed."_s);
    });
    EXPECT_EQ(FailureOfCommand().number, 245);
}

TEST_F(OdbcGatewayTest, ErrorInTheMiddleOfTheRowsIsAFailure) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, kSeveralPackets);
        answer.Error(8134, u"Divide by zero error encountered."_s);
    });
    EXPECT_EQ(FailureOfCommand().number, 8134);
}

TEST_F(OdbcGatewayTest, WorksOnAfterAnError) {
    AnswerWith([](const QString& batch, TdsAnswer& answer) {
        if (batch == u"bad"_s)
            answer.Error(102, u"Incorrect syntax near 'bad'."_s);
        AnswerLines(answer, 1);
        answer.Done(1);
    });
    EXPECT_EQ(FailureOfCommand(u"bad"_s).number, 102);
    EXPECT_EQ(RowTexts(*mGateway, u"good"_s), QStringList{u"1"_s});
}

TEST_F(OdbcGatewayTest, CommandThatTakesTooLongFailsAndTheNextOneWorks) {
    AnswerWith([](const QString& batch, TdsAnswer& answer) {
        if (batch == u"slow"_s)
            answer.WaitForCancel();
        AnswerLines(answer, 1);
        answer.Done(1);
    });
    mGateway->SetCommandTimeout(1);
    const RaisedError failure = FailureOfCommand(u"slow"_s);
    EXPECT_EQ(failure.text, u"Timeout expired"_s);
    EXPECT_EQ(failure.state, u"HYT00"_s);
    mGateway->SetCommandTimeout(kPatient);
    EXPECT_EQ(RowTexts(*mGateway, u"quick"_s), QStringList{u"1"_s});
}

TEST_F(OdbcGatewayTest, RowsThatStopComingAreATimeoutAndNotTheEnd) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, kSeveralPackets);
        answer.WaitForCancel();
    });
    mGateway->SetCommandTimeout(1);
    EXPECT_EQ(FailureOfCommand().state, u"HYT00"_s);
}

TEST_F(OdbcGatewayTest, ServerThatDoesNotEvenConfirmTheTimeoutIsLost) {
    AnswerWith([](const QString&, TdsAnswer& answer) { answer.FallSilent(); });
    mGateway->SetCommandTimeout(1);
    EXPECT_EQ(FailureOfCommand().text, u"Timeout expired"_s);
    EXPECT_EQ(FailureOfCommand().text, u"Communication link failure"_s);
}

TEST_F(OdbcGatewayTest, ACommandIsGivenUpFromAnotherThreadHoweverLongItMayTake) {
    std::promise<void> running;
    AnswerWith([&running](const QString&, TdsAnswer& answer) {
        running.set_value();
        answer.WaitForCancel();
    });
    mGateway->SetCommandTimeout(0);
    std::jthread canceller([this, &running] {
        running.get_future().wait();
        mGateway->Cancel();
    });
    const RaisedError failure = FailureOfCommand();
    EXPECT_EQ(failure.number, -2147217842);
    EXPECT_EQ(failure.text, u"Operation was canceled."_s);
    EXPECT_EQ(failure.state, u"HY008"_s);
}

TEST_F(OdbcGatewayTest, ACancellationInTheMiddleOfTheRowsIsAFailureAndNotTheirEnd) {
    std::promise<void> running;
    AnswerWith([&running](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, kSeveralPackets);
        answer.Send();
        running.set_value();
        answer.WaitForCancel();
    });
    mGateway->SetCommandTimeout(0);
    std::jthread canceller([this, &running] {
        running.get_future().wait();
        mGateway->Cancel();
    });
    EXPECT_EQ(FailureOfCommand().number, -2147217842);
}

TEST_F(OdbcGatewayTest, AConnectionThatWasGivenUpRunsNothingMore) {
    mGateway->Cancel();
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(FailureOfCommand().number, -2147217842);
    EXPECT_EQ(mServer.Batches(), QStringList());
    EXPECT_NO_THROW(Connect()->ExecuteNoResult(u"x"_s)) << "other connections go on";
}

TEST_F(OdbcGatewayTest, CutInTheMiddleOfTheRowsIsAFailureAndNotTheEnd) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, kSeveralPackets);
        answer.Cut();
    });
    EXPECT_EQ(FailureOfCommand().text, u"Unexpected EOF from the server"_s);
    EXPECT_EQ(FailureOfCommand().text, u"Communication link failure"_s);
}

TEST_F(OdbcGatewayTest, CutBehindTheRowsIsAFailure) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        AnswerLines(answer, 1);
        answer.Done(1);
        answer.Cut();
    });
    EXPECT_EQ(FailureOfCommand().text, u"Communication link failure"_s);
}

TEST_F(OdbcGatewayTest, CutBehindTheFirstOfSeveralResultsIsAFailure) {
    AnswerWith([](const QString& batch, TdsAnswer& answer) {
        answer.Done(5);
        if (batch != u"count"_s)
            AnswerLines(answer, batch == u"heading"_s ? 0 : 1);
        if (batch == u"message"_s) {
            answer.Done(1);
            answer.Info(0, u"printed"_s);
        }
        answer.Cut();
    });
    for (const QString& batch : {u"count"_s, u"heading"_s, u"message"_s}) {
        mGateway = Connect();
        EXPECT_EQ(FailureOfCommand(batch).text, u"Communication link failure"_s) << batch.toStdString();
    }
}

TEST_F(OdbcGatewayTest, CutBeforeTheAnswerIsAFailure) {
    AnswerWith([](const QString&, TdsAnswer& answer) { answer.Cut(); });
    EXPECT_EQ(FailureOfCommand().text, u"Unexpected EOF from the server"_s);
}

TEST_F(OdbcGatewayTest, ServerThatDiesBetweenCommandsIsNoticedByEveryCommandThatFollows) {
    mGateway->ExecuteNoResult(u"before"_s);
    mServer.Close();
    EXPECT_TRUE(mGateway->Connected());
    for (int i = 0; i < 3; ++i) {
        const RaisedError failure = FailureOfCommand();
        EXPECT_EQ(failure.text, u"Communication link failure"_s);
        EXPECT_EQ(failure.state, u"08S01"_s);
    }
}
