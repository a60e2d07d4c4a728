#include "fuzz/Fuzz.h"
#include "gateway/SqlLexer.h"
#include "gateway/SqlText.h"
#include "tsql/CommandParser.h"
#include "tsql/CommandShape.h"
#include "tsql/ScriptParser.h"

// Command texts and scripts as far as they are read: their pieces, their shape, their trees.

namespace {

void CheckPieces(const QString& text) {
    qsizetype end = 0;
    for (const Token& token : LexSql(text)) {
        Require(token.position >= end && token.position <= text.size(), "pieces follow each other");
        end = token.position + token.written.size();
        Require(end <= text.size(), "a piece lies within its text");
        token.Content();
    }
}

void ReadCommand(const QString& text) {
    const CommandShape shape(text);
    Require(shape.Key() == CommandShape(text).Key(), "a text has one shape");
    TokenCursor cursor(shape.Tokens());
    CommandParser(cursor).ParseCommand();
}

void ReadScript(const QString& text) {
    for (const Batch& batch : SplitBatches(text)) {
        Allowing([&] {
            TokenCursor cursor(batch.text);
            ScriptParser parser(cursor);
            while (!parser.AtEnd())
                parser.ParseNext();
        });
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(BytesOf(data, size));
    CheckPieces(text);
    BaseTableOf(text);
    Allowing([&] { ReadCommand(text); });
    ReadScript(text);
    return 0;
}
