// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <algorithm>
#include <ctime> // clock_gettime

// The least processor time of several runs: other programs do not count.
template <class Run>
double nxMilliseconds(const Run& run) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    double least = 1e9;
    for (int i = 0; i < 5; ++i) {
        const double start = now();
        run();
        least = std::min(least, now() - start);
    }
    return least;
}
