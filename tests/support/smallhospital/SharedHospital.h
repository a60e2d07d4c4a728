#pragma once

#include "support/FixedClock.h"
#include "support/smallhospital/GatewayTexts.h"
#include "support/smallhospital/SmallHospital.h"

#include <gtest/gtest.h>

/// Values as the answers of commands hold them.
inline Value Exact(const char16_t* text) {
    return Value(Decimal{QString::fromUtf16(text)});
}
inline Value Text(const char16_t* text) {
    return Value(QString::fromUtf16(text));
}
inline Value MomentOf(const DateTime::Fields& fields) {
    return Value(*DateTime::FromFields(fields));
}

/// The small hospital for tests that change nothing in it, made once for a test program; the clock stands at
/// 21 November 2026, 14:02:03.456.
class SharedHospital : public testing::Test {
  protected:
    const Seam<DateTime()>::Replacement clock = FixedClock(Moment());

    static DateTime Moment() { return *DateTime::FromFields({2026, 11, 21, 14, 2, 3, 456}); }

    static EmbeddedGateway& Gateway() {
        static SmallHospital hospital;
        return hospital.Gateway();
    }
};
