// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <atomic>

// A lock for sections of a few instructions: waiting threads spin and do not sleep. Not recursive.
class nxSpinLock {
public:
    void Lock() {
        while (_held.test_and_set(std::memory_order_acquire)) {
            while (
                _held.test(std::memory_order_relaxed)) // read only, so that the waiters share the cache line
                ;
        }
    }
    void Unlock() { _held.clear(std::memory_order_release); }

private:
    std::atomic_flag _held;
};
