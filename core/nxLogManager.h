// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "core/nxLogLevelEnum.h"

#include <atomic>
#include <memory>
#include <vector>

class nxLog;
class nxLogDevice;

// Decides what is logged and hands it to the log devices. All functions may be called from any thread, also
// while libraries are loaded and unloaded.
class NXCORE_API nxLogManager {
public:
    using Devices = std::vector<std::shared_ptr<nxLogDevice>>;

    nxLogManager() = delete;

    // Whether records of this level are wanted now. Costs one relaxed atomic load.
    static bool ShouldLog(const nxLogLevelEnum& level) {
        return level.GetEnumValue() >= _threshold.load(std::memory_order_relaxed);
    }

    // Records below this level are refused. nxLogLevelEnum::Warning unless set; with an undefined level
    // nothing is refused.
    static void SetThreshold(const nxLogLevelEnum& level);
    static nxLogLevelEnum GetThreshold();

    // At first there is one device, an nxConsoleLogDevice. SetDevices replaces all devices and returns the
    // ones before; AddDevice adds one. No null pointers.
    static Devices SetDevices(Devices devices);
    static void AddDevice(std::shared_ptr<nxLogDevice> device);

    // Hands the record to each device in turn, whatever its level.
    static void Write(const nxLog& record);

private:
    static std::atomic<unsigned int> _threshold;
};
