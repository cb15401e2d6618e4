// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/nearest.h"

#include <algorithm>
#include <numeric>

namespace {
    constexpr std::size_t LongestName = 64; // what is longer is no slip of the fingers

    // How many characters have to be inserted, left out, replaced or exchanged with their neighbours.
    std::size_t Distance(std::string_view from, std::string_view to) {
        std::vector<std::size_t> beforeLast(to.size() + 1), last(to.size() + 1), row(to.size() + 1);
        std::iota(last.begin(), last.end(), std::size_t());
        for (std::size_t i = 1; i <= from.size(); ++i) {
            row[0] = i;
            for (std::size_t j = 1; j <= to.size(); ++j) {
                const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0U : 1U);
                row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
                if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1])
                    row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
            beforeLast.swap(last);
            last.swap(row);
        }
        return last[to.size()];
    }
} // namespace

std::string tool::SuggestName(std::string_view name, const std::vector<std::string>& names) {
    if (name.size() > LongestName)
        return {};
    const auto distance = [name](const std::string& known) { return Distance(name, known); };
    const auto nearest = std::ranges::min_element(names, {}, distance);
    if (nearest == names.end() || distance(*nearest) > name.size() / 3 + 1)
        return {};
    return ": did you mean '" + *nearest + "'?";
}
