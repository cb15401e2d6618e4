// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxLogDevice.h"

#include <cstddef>
#include <memory>

// Writes each record as one line to standard error: time (UTC), level, source file and line, text. Control
// characters in the text are shown as "\n", "\r", "\t" or "\x1B", and so is each byte of what is no UTF-8, of
// control characters beyond ASCII, of line separators, and of characters that turn the direction of writing
// ("\xE2\x80\xAE"). Of a longer text than is wanted the beginning is shown, up to a whole character, and how
// much more there is: "... (104849408 more bytes)". Copies write to the same place.
class NXCORE_API nxConsoleLogDevice : public nxLogDevice {
public:
    static constexpr std::size_t LongestText = 8192; // bytes
    static constexpr std::size_t AnyLength = 0;

    nxConsoleLogDevice(); // LongestText
    // `longestText`: in bytes, before any of them is shown as an escape. With AnyLength nothing is left out.
    explicit nxConsoleLogDevice(std::size_t longestText);

    void Write(const nxLog& record) override;

private:
    struct Sink;
    std::shared_ptr<Sink> _sink;
};
