// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxLogDevice.h"

#include <memory>

// Writes each record as one line to standard error: time (UTC), level, source file and line, text. Control
// characters in the text are shown as "\n", "\r", "\t" or "\x1B". Copies write to the same place.
class NXCORE_API nxConsoleLogDevice : public nxLogDevice {
public:
    nxConsoleLogDevice();

    void Write(const nxLog& record) override;

private:
    struct Sink;
    std::shared_ptr<Sink> _sink;
};
