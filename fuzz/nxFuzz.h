// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogManager.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// The entry point of a fuzzer, which libFuzzer calls with each input, and replay.cpp where there is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace nxFuzz {
    inline const bool Silent = [] {
        nxLogManager::SetDevices({}); // nobody reads what is wrong with a million inputs
        return true;
    }();

    // A property that must hold for every input. Says where it was asked for when it does not.
    inline void Require(bool condition, const char* file = __builtin_FILE(),
                        unsigned int line = __builtin_LINE()) {
        if (condition)
            return;
        std::fprintf(stderr, "%s:%u: what is required does not hold\n", file, line);
        std::abort();
    }
} // namespace nxFuzz
