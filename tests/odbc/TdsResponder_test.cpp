#include "odbc/OdbcServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using TdsResponderTest = OdbcServer;

/// What a socket may do with a loopback port.
bool Succeeds(int (*call)(int, const sockaddr*, socklen_t), int port) {
    const int tried = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(quint16(port));
    const bool done = call(tried, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(tried);
    return done;
}

} // namespace

TEST_F(TdsResponderTest, APortThatWasClosedIsNobodyElses) {
    EXPECT_TRUE(Succeeds(connect, mServer.Port()));
    mServer.Close();
    EXPECT_FALSE(Succeeds(connect, mServer.Port()));
    EXPECT_FALSE(Succeeds(bind, mServer.Port()));
}

TEST_F(TdsResponderTest, AnExceptionInASessionIsKept) {
    AnswerWith([](const QString&, TdsAnswer&) { throw std::runtime_error("the test's own mistake"); });
    EXPECT_NE(FailureOfCommand().number, 0);
    EXPECT_EQ(mServer.TakeProblems(), QStringList{u"the test's own mistake"_s});
}

TEST(TdsResponderDeathTest, AnExceptionThatNobodyTookEndsTheProgram) {
    const auto mistake = [] {
        const TdsResponder server([]() -> TdsResponder::Handler {
            return [](const QString&, TdsAnswer&) { throw std::runtime_error("the test's own mistake"); };
        });
        const QString source = TestDataSources::Instance().Add(server.Port());
        OdbcGateway gateway(source, u"u"_s, u"p"_s);
        EXPECT_NE(FailureOf(gateway, u"x"_s).number, 0);
    };
    EXPECT_DEATH(mistake(), "in a session of the responder: the test's own mistake");
}

TEST_F(TdsResponderTest, AValueThatAColumnCannotHoldIsNotCut) {
    const std::pair<TdsColumn, Value> cases[] = {
        {{.type = TdsType::Decimal, .scale = 2}, Decimal{u"0.125"_s}},
        {{.type = TdsType::Money}, Decimal{u"0.00001"_s}},
        {{.type = TdsType::Decimal, .scale = 4}, Decimal{u"1234567890123456.0000"_s}},
        {{.type = TdsType::VarChar}, u"漢"_s},
    };
    for (const auto& [column, value] : cases) {
        TdsBytes bytes;
        EXPECT_THROW(WriteCell(bytes, column, value), std::invalid_argument) << value.ToText().toStdString();
    }
}
