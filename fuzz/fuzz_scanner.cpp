// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The input as a document. What the scanner takes, the parser takes, and both see the same in it.

#include "fuzz/nxFuzz.h"
#include "tests/support/nxScanComparison.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nxScanComparison;
    nxFuzz::Require(Compare({reinterpret_cast<const char*>(data), size}) != Verdict::Wrong);
    return 0;
}
