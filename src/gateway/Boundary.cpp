#include "gateway/Boundary.h"

#include <exception>
#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

RunTimeError OutOfMemory() {
    constexpr int kNumber = 701;
    return RunTimeError(
        kNumber, u"There is insufficient system memory in resource pool 'default' to run this query."_s,
        u"HY000"_s);
}

RunTimeError FailureInHand() {
    constexpr int kInternalError = 8624;
    try {
        std::rethrow_exception(std::current_exception());
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return OutOfMemory();
    } catch (const std::length_error&) {
        // What a container throws that was asked for more than any memory holds.
        return OutOfMemory();
    } catch (...) {
        return RunTimeError(
            kInternalError,
            u"Internal Query Processor Error: The query processor could not produce a query plan."_s,
            u"HY000"_s);
    }
}
