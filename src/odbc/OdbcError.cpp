#include "odbc/OdbcError.h"

#include <array>
#include <optional>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

using namespace Qt::StringLiterals;

namespace {

/// One record of what a call left behind.
struct Diagnostic {
    QString state;
    int number = 0;
    QString text;

    bool IsWarning() const { return state.startsWith("01"_L1); }
};

std::optional<Diagnostic> ReadDiagnostic(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record) {
    // The server's texts have at most 2,048 characters, and the layers put their names in front.
    constexpr SQLSMALLINT kLongest = 4096;
    std::array<SQLWCHAR, SQL_SQLSTATE_SIZE + 1> state{};
    std::array<SQLWCHAR, kLongest> text{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(
            SQLGetDiagRecW(kind, handle, record, state.data(), &number, text.data(), kLongest, &length)))
        return std::nullopt;
    return Diagnostic{.state = QString::fromUtf16(reinterpret_cast<const char16_t*>(state.data())),
                      .number = number,
                      .text = QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()))};
}

} // namespace

RunTimeError OdbcErrorOf(SQLSMALLINT handleKind, SQLHANDLE handle) {
    std::optional<Diagnostic> found = ReadDiagnostic(handleKind, handle, 1);
    if (!found)
        return RunTimeError(kOdbcFailure, u"The driver gives no reason."_s, u"HY000"_s);
    // Messages of the server may stand before its error. A failure that left warnings alone, as the loss of
    // the connection may, is told by the first of them.
    for (SQLSMALLINT record = 2; found->IsWarning(); ++record) {
        const auto next = ReadDiagnostic(handleKind, handle, record);
        if (!next) {
            found = ReadDiagnostic(handleKind, handle, 1);
            break;
        }
        found = next;
    }
    return RunTimeError(found->number != 0 ? found->number : kOdbcFailure, WithoutLayerNames(found->text),
                        found->state);
}

QString WithoutLayerNames(const QString& text) {
    qsizetype at = 0;
    while (at < text.size() && text[at] == u'[') {
        const qsizetype end = text.indexOf(u']', at);
        if (end < 0)
            break;
        const bool isServer = QStringView(text).mid(at, end + 1 - at) == "[SQL Server]"_L1;
        at = end + 1;
        if (isServer)
            break;
    }
    return text.mid(at);
}
