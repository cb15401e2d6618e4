// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxMutexGuard.h"
#include "include/nxSpinLockGuard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <latch>
#include <thread>
#include <utility>
#include <vector>

template <class LockAndGuard>
class nxLock : public testing::Test {};
using Locks = testing::Types<std::pair<nxMutex, nxMutexGuard>, std::pair<nxSpinLock, nxSpinLockGuard>>;
TYPED_TEST_SUITE(nxLock, Locks);

TYPED_TEST(nxLock, LetsOneThreadInAtATimeAndTheNextOneSeeWhatItDid) {
    using Lock = typename TypeParam::first_type;
    using Guard = typename TypeParam::second_type;
    constexpr int ThreadCount = 3;
    constexpr int RoundCount = 200'000;

    Lock lock;
    std::latch start(ThreadCount);
    int inside = 0;
    int most = 0;
    int count = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < ThreadCount; ++i)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < RoundCount; ++round) {
                const Guard guard(lock);
                most = std::max(most, ++inside);
                ++count;
                --inside;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(count, ThreadCount * RoundCount);
    EXPECT_EQ(most, 1);
    lock.Lock(); // the guards let go of it
    lock.Unlock();
}
