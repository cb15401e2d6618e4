// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxSpinLock.h"

// Holds a spin lock for as long as it lives.
class nxSpinLockGuard {
public:
    explicit nxSpinLockGuard(nxSpinLock& lock) : _lock(lock) { _lock.Lock(); }
    ~nxSpinLockGuard() { _lock.Unlock(); }
    nxSpinLockGuard(const nxSpinLockGuard&) = delete;
    nxSpinLockGuard& operator=(const nxSpinLockGuard&) = delete;

private:
    nxSpinLock& _lock;
};
