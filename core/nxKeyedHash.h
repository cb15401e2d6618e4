// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The hash for tables of texts that come from outside: SipHash-2-4 with a key that this process drew, so that
// nobody can choose texts that all meet in one place. Differs from process to process. May be called from any
// thread.
class NXCORE_API nxKeyedHash {
public:
    using Key = std::array<std::uint64_t, 2>;

    // Not noexcept, so that the standard library's tables keep each hash beside its text.
    std::size_t operator()(std::string_view text) const;
    static std::uint64_t Get(std::string_view text, const Key& key) noexcept;
};
