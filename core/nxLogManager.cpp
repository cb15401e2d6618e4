// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxLogManager.h"

#include "core/nxMutexGuard.h"
#include "include/nxConsoleLogDevice.h"

#include <pthread.h>

#include <optional>
#include <utility>

std::atomic<unsigned int> nxLogManager::_threshold = nxLogLevelEnum::Warning;

namespace {
    struct DeviceList {
        // To be called by who holds the mutex.
        nxLogManager::Devices& Get() {
            if (!devices)
                devices = nxLogManager::Devices{std::make_shared<nxConsoleLogDevice>()};
            return *devices;
        }

        nxMutex mutex;
        std::optional<nxLogManager::Devices> devices;
    };

    // Never destroyed: records may come while the process winds down.
    DeviceList& TheDevices() {
        static auto& list = *new DeviceList;
        return list;
    }

    thread_local bool insideDevice = false;

    // The one thread of a forked child is in no device and may log at once: no thread of the parent's is in
    // one while the process forks. Made at load, so that no thread can be about to make the list either. The
    // system forgets the handlers when this library is unloaded.
    const bool forksBetweenRecords = [] {
        TheDevices();
        constexpr auto lock = [] {
            if (!insideDevice) // else it is a device that forks, and this very thread holds the lock
                TheDevices().mutex.Lock();
        };
        constexpr auto unlock = [] {
            if (!insideDevice)
                TheDevices().mutex.Unlock();
        };
        return ::pthread_atfork(lock, unlock, unlock) == 0;
    }();
} // namespace

void nxLogManager::SetThreshold(const nxLogLevelEnum& level) {
    _threshold.store(level.GetEnumValue(), std::memory_order_relaxed);
}

nxLogLevelEnum nxLogManager::GetThreshold() {
    return _threshold.load(std::memory_order_relaxed);
}

nxLogManager::Devices nxLogManager::SetDevices(Devices devices) {
    DeviceList& list = TheDevices();
    const nxMutexGuard guard(list.mutex);
    return std::exchange(list.Get(), std::move(devices));
}

void nxLogManager::AddDevice(std::shared_ptr<nxLogDevice> device) {
    DeviceList& list = TheDevices();
    const nxMutexGuard guard(list.mutex);
    list.Get().push_back(std::move(device));
}

void nxLogManager::Write(const nxLog& record) {
    if (insideDevice) // the lock is held by this very thread
        return;

    DeviceList& list = TheDevices();
    const nxMutexGuard guard(list.mutex);
    const nxLogManager::Devices& devices = list.Get();
    insideDevice = true;
    for (const auto& device : devices) {
        try {
            device->Write(record);
        } catch (...) // NOLINT(bugprone-empty-catch): a log that cannot be written must not break the work
        {
        }
    }
    insideDevice = false;
}
