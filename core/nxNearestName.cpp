// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxNearestName.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {
    constexpr std::size_t LongestName = 64; // what is longer is no slip of the fingers

    char Lower(char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }

    // How many characters have to be inserted, left out, replaced or exchanged with their neighbours; letters
    // are the same in both cases. (Optimal string alignment, row by row.)
    std::size_t Distance(std::string_view from, std::string_view to) {
        std::vector<std::size_t> beforeLast(to.size() + 1), last(to.size() + 1), row(to.size() + 1);
        std::iota(last.begin(), last.end(), std::size_t());
        for (std::size_t i = 1; i <= from.size(); ++i) {
            row[0] = i;
            for (std::size_t j = 1; j <= to.size(); ++j) {
                const bool isSame = Lower(from[i - 1]) == Lower(to[j - 1]);
                row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (isSame ? 0U : 1U)});
                const bool isExchanged = i > 1 && j > 1 && Lower(from[i - 1]) == Lower(to[j - 2]) &&
                                         Lower(from[i - 2]) == Lower(to[j - 1]);
                if (isExchanged)
                    row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
            beforeLast.swap(last);
            last.swap(row);
        }
        return last[to.size()];
    }
} // namespace

nxNearestName::nxNearestName(std::string_view name) : _name(name), _best(name.size() / 3 + 2) {}

void nxNearestName::Try(std::string_view known) {
    if (_name.size() > LongestName || known.empty())
        return;
    const std::size_t distance = Distance(_name, known);
    if (distance >= _best || distance >= known.size())
        return;
    _best = distance;
    _nearest = known;
}
