// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/nearest.h"

#include "core/nxNearestName.h"

std::string tool::SuggestName(std::string_view name, const std::vector<std::string>& names) {
    nxNearestName nearest(name);
    for (const std::string& known : names)
        nearest.Try(known);
    return nearest.Get().empty() ? std::string() : ": did you mean '" + std::string(nearest.Get()) + "'?";
}
