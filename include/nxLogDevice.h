// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

class nxLog;

// A destination of log records. Give one to nxLogManager to receive what is logged.
class NXCORE_API nxLogDevice {
public:
    virtual ~nxLogDevice();

    // Called for each record, by the thread that logs and by one thread at a time. Anything that it throws is
    // swallowed, and what it logs itself is dropped. It must not change the manager's devices.
    virtual void Write(const nxLog& record) = 0;

protected:
    nxLogDevice() = default;
    nxLogDevice(const nxLogDevice&) = default;
    nxLogDevice(nxLogDevice&&) = default;
    nxLogDevice& operator=(const nxLogDevice&) = default;
    nxLogDevice& operator=(nxLogDevice&&) = default;
};
