// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxTimeStamp.h"

namespace {
    constexpr std::int64_t NanosecondsPerSecond = 1'000'000'000;

    struct Split {
        std::chrono::sys_seconds seconds;
        std::chrono::nanoseconds fraction;
    };

    // Rounds towards the past, so that the fraction is never negative. The whole seconds before the smallest
    // time stamp are more than 64 bits of nanoseconds can hold, so std::chrono::floor does not serve here.
    Split SplitSeconds(std::int64_t value) {
        std::int64_t seconds = value / NanosecondsPerSecond;
        std::int64_t fraction = value % NanosecondsPerSecond;
        if (fraction < 0) {
            --seconds;
            fraction += NanosecondsPerSecond;
        }
        return {std::chrono::sys_seconds(std::chrono::seconds(seconds)), std::chrono::nanoseconds(fraction)};
    }
} // namespace

nxTimeStamp nxTimeStamp::Now() {
    const auto now = std::chrono::time_point_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now());
    return nxTimeStamp(now.time_since_epoch().count());
}

nxDateTime nxTimeStamp::GetAsDateTime() const {
    const Split split = SplitSeconds(_value);
    return nxDateTime(split.seconds, split.fraction);
}

unsigned int nxTimeStamp::_FractionPart(unsigned int unit) const {
    return static_cast<unsigned int>(SplitSeconds(_value).fraction.count() / unit % 1000);
}
