#include "gateway/CommandTrace.h"

#include "gateway/SqlLexer.h"
#include "text/Clock.h"
#include "text/Format.h"
#include "text/RunTimeError.h"

#include <QFile>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

bool IsLiteral(const Token& token) {
    return token.kind == TokenKind::Text || token.kind == TokenKind::Number;
}

/// What the hospital's commands and templates have behind a text. Anything else was typed as a part of it: a
/// quote within has ended it early.
bool GoesOnAfterText(const Token& token) {
    constexpr std::array<QStringView, 16> known = {u",",    u")",    u"=",     u"+",     u"and",   u"or",
                                                   u"as",   u"from", u"where", u"order", u"group", u"union",
                                                   u"when", u"then", u"else",  u"end"};
    return std::ranges::any_of(known, [&token](QStringView word) {
        return token.kind == TokenKind::Operator ? token.written == word : token.Is(word);
    });
}

bool IsUnclosedQuote(const Token& token) {
    return token.kind == TokenKind::UnclosedQuote;
}

bool EndsWhatIsKnown(const Token& token) {
    return IsUnclosedQuote(token) || token.kind == TokenKind::UnclosedComment;
}

} // namespace

CommandTrace* CommandTrace::current = nullptr;

CommandTrace::CommandTrace(const QString& path, Texts texts)
    : mTexts(texts)
    , mFile(path) {}

std::unique_ptr<CommandTrace> CommandTrace::OfEnvironment() {
    const QString path = QFile::decodeName(qgetenv("TARVEN_TRACE"));
    if (path.isEmpty())
        return nullptr;
    return std::make_unique<CommandTrace>(path, qgetenv("TARVEN_TRACE_TEXTS") == "1" ? Texts::Whole
                                                                                     : Texts::Masked);
}

QString CommandTrace::Moment() {
    const DateTime now = Now();
    return Format(now, u"yyyy-mm-dd hh:mm:ss") + u".%1"_s.arg(now.ToFields().millisecond, 3, 10, QChar(u'0'));
}

void CommandTrace::Write(const QString& sent, Begin begin, qint64 rows, const QString& text) {
    WriteLine(sent, begin, u"rows %1"_s.arg(rows), text);
}

void CommandTrace::WriteFailure(const QString& sent, Begin begin, const std::exception_ptr& thrown,
                                const QString& text) {
    QString failure = u"failed"_s;
    try {
        std::rethrow_exception(thrown);
    } catch (const RunTimeError& error) {
        failure = u"error %1"_s.arg(error.Number());
        // The server's words may hold a patient's: "the varchar value 'DELA CRUZ'".
        if (mTexts == Texts::Whole)
            failure += u' ' + error.Description().simplified();
    } catch (...) {
    }
    WriteLine(sent, begin, failure, text);
}

void CommandTrace::WriteLine(const QString& sent, Begin begin, const QString& outcome, const QString& text) {
    const double taken =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    QString told = mTexts == Texts::Whole ? text : MaskedCommand(text);
    const QByteArray line = u"%1  %2 ms  %3  %4\n"_s
                                .arg(sent, QString::number(taken, 'f', 3), outcome,
                                     told.replace(u'\r', u' ').replace(u'\n', u' '))
                                .toUtf8();
    // A full disk keeps nobody from his work.
    mFile.Write(line);
}

QString MaskedCommand(const QString& command) {
    QString masked;
    Token before;
    qsizetype end = 0;
    const auto tokens = LexSql(command);
    // With a quote too many, texts and what stands between them have changed places from some text on.
    const bool isOpen = std::ranges::any_of(tokens, IsUnclosedQuote);
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::End)
            break;
        const bool breaksOut = before.kind == TokenKind::Text && (isOpen || !GoesOnAfterText(token));
        if (token.position > end)
            masked += u' ';
        if (EndsWhatIsKnown(token) || breaksOut)
            return masked + u"..."_s;
        masked += IsLiteral(token) ? u"?"_s : token.written.toString();
        before = token;
        end = token.position + token.written.size();
    }
    return masked;
}
