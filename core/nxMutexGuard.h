// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxMutex.h"

// Holds a mutex for as long as it lives.
class nxMutexGuard {
public:
    explicit nxMutexGuard(nxMutex& mutex) : _mutex(mutex) { _mutex.Lock(); }
    ~nxMutexGuard() { _mutex.Unlock(); }
    nxMutexGuard(const nxMutexGuard&) = delete;
    nxMutexGuard& operator=(const nxMutexGuard&) = delete;

private:
    nxMutex& _mutex;
};
