#include "odbc/OdbcServer.h"

#include <cstdlib>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPlenty = -1;
/// How many more pieces of memory this thread gets until one is refused.
thread_local int piecesLeft = kPlenty;

} // namespace

// The test program's own way to memory, as the language lets it have one.

void* operator new(std::size_t size) {
    const bool isRefused = piecesLeft != kPlenty && piecesLeft-- == 0;
    void* memory = isRefused ? nullptr : std::malloc(size ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

class OdbcMemoryTest : public OdbcServer {};

TEST_F(OdbcMemoryTest, WhereverACommandRunsOutOfMemoryItIsTheServersErrorForItAndTheNextOneWorks) {
    AnswerWith([](const QString&, TdsAnswer& answer) {
        answer.Columns({{.name = u"n"_s, .type = TdsType::Int}});
        answer.Row({Value(7)});
        answer.Done(1);
    });
    int refused = 0;
    for (;; ++refused) {
        piecesLeft = refused;
        const RaisedError failure = FailureOfCommand();
        // Nothing was refused any more: the command needs no more than that.
        if (std::exchange(piecesLeft, kPlenty) != kPlenty)
            break;
        EXPECT_EQ(failure.number, 701) << refused;
        EXPECT_EQ(RowTexts(*mGateway, u"the next one"_s), QStringList{u"7"_s});
    }
    EXPECT_GT(refused, 2) << "the command, its columns, its rows";
}
