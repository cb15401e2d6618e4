// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxLogDevice.h"

#include <memory>

// Writes each record as one line to standard error: time (UTC), level, source file and line, text. Control
// characters in the text are shown as "\n", "\r", "\t" or "\x1B", and so is each byte of what is no UTF-8, of
// control characters beyond ASCII, of line separators, and of characters that turn the direction of writing
// ("\xE2\x80\xAE"). Copies write to the same place.
class NXCORE_API nxConsoleLogDevice : public nxLogDevice {
public:
    nxConsoleLogDevice();

    void Write(const nxLog& record) override;

private:
    struct Sink;
    std::shared_ptr<Sink> _sink;
};
