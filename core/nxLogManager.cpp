// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxLogManager.h"

#include "core/nxMutexGuard.h"
#include "include/nxConsoleLogDevice.h"

#include <utility>

std::atomic<unsigned int> nxLogManager::_threshold = nxLogLevelEnum::Warning;

namespace {
    struct DeviceList {
        nxMutex mutex;
        nxLogManager::Devices devices{std::make_shared<nxConsoleLogDevice>()};
    };

    // Never destroyed: records may come while the process winds down.
    DeviceList& TheDevices() {
        static auto& list = *new DeviceList;
        return list;
    }

    thread_local bool insideDevice = false;
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
    return std::exchange(list.devices, std::move(devices));
}

void nxLogManager::AddDevice(std::shared_ptr<nxLogDevice> device) {
    DeviceList& list = TheDevices();
    const nxMutexGuard guard(list.mutex);
    list.devices.push_back(std::move(device));
}

void nxLogManager::Write(const nxLog& record) {
    if (insideDevice) // the lock is held by this very thread
        return;

    DeviceList& list = TheDevices();
    const nxMutexGuard guard(list.mutex);
    insideDevice = true;
    for (const auto& device : list.devices) {
        try {
            device->Write(record);
        } catch (...) // NOLINT(bugprone-empty-catch): a log that cannot be written must not break the work
        {
        }
    }
    insideDevice = false;
}
