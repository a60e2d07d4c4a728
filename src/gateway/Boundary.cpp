#include "gateway/Boundary.h"

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOutOfMemory = 701;
constexpr int kInternal = 8624;

} // namespace

RunTimeError FailureInHand() {
    const auto state = u"HY000"_s;
    const auto outOfMemory = [&] {
        return RunTimeError(
            kOutOfMemory,
            u"There is insufficient system memory in resource pool 'default' to run this query."_s, state);
    };
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return outOfMemory();
    } catch (const std::length_error&) {
        // What a container throws that was asked for more than any memory holds.
        return outOfMemory();
    } catch (...) {
        return RunTimeError(
            kInternal,
            u"Internal Query Processor Error: The query processor could not produce a query plan."_s, state);
    }
}
