// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxMutexGuard.h"
#include "include/nxSpinLockGuard.h"
#include "tests/support/nxInThreads.h"

#include <gtest/gtest.h>

#include <utility>

template <class LockAndGuard>
class nxLock : public testing::Test {};
using Locks = testing::Types<std::pair<nxMutex, nxMutexGuard>, std::pair<nxSpinLock, nxSpinLockGuard>>;
TYPED_TEST_SUITE(nxLock, Locks);

TYPED_TEST(nxLock, LetsOneThreadInAtATimeAndTheNextOneSeeWhatItDid) {
    using Guard = typename TypeParam::second_type;
    constexpr int ThreadCount = 3;
    constexpr int RoundCount = 200'000;

    typename TypeParam::first_type lock;
    int count = 0;
    nxInThreads(ThreadCount, RoundCount, [&](int, int) {
        const Guard guard(lock);
        ++count;
    });
    EXPECT_EQ(count, ThreadCount * RoundCount);
    lock.Lock(); // the guards let go of it
    lock.Unlock();
}
