#include "check/SignOnFault.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A part of a text that a sign-on may end with, and what is done about it.
struct Advice {
    QLatin1StringView text;
    QLatin1StringView toDo;
};

constexpr std::array kAdvice = {
    Advice{"Data source name not found"_L1, "name one that this machine has: "_L1},
    Advice{"Can't open lib"_L1, "install the driver that odbc.ini names for the data source"_L1},
    Advice{"nable to connect"_L1, "look at the server, its port and the net between, and at the lines of odbc.ini and freetds.conf"_L1},
    Advice{"The user or the password is wrong"_L1,
           "key them again; on a server, look at the login, which bears the user's EmployeeID"_L1},
    Advice{"may not sign on for department"_L1,
           "--department names another one; PASSWORD..tbPasswordDept has the user's"_L1},
    Advice{"tarvenaux.ini"_L1, "--department names the department where the file cannot be read"_L1},
    Advice{"There is no password"_L1, "give it by the keyboard, the input or --password-file"_L1}};

} // namespace

Finding SignOnFault(const RunTimeError& error, const QStringList& sources) {
    const QString& seen = error.Description();
    const auto* found =
        std::ranges::find_if(kAdvice, [&seen](const Advice& advice) { return seen.contains(advice.text); });
    QString toDo = found == kAdvice.end() ? u"docs/deployment.md has what a sign-on may tell"_s : found->toDo;
    if (toDo.endsWith(u' '))
        toDo += sources.join(u", "_s);
    return Fails(u"sign-on"_s, seen, toDo);
}
