// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <mutex>

// A lock that one thread holds at a time; not recursive.
class nxMutex {
public:
    void Lock() { _mutex.lock(); }
    void Unlock() { _mutex.unlock(); }

private:
    std::mutex _mutex;
};
