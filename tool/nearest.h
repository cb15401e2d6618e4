// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // ": did you mean 'check'?" where one of the names was probably meant by `name`; else nothing.
    std::string SuggestName(std::string_view name, const std::vector<std::string>& names);
} // namespace tool
