// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxNearestName.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(nxNearestName, IsTheOneOfFewestSteps) {
    const std::string longest(64, 'x');
    const struct {
        std::string name;
        std::vector<std::string> known;
        std::string nearest;
    } cases[] = {
        {"check", {"", "chalk", "check"}, "check"},
        {"Check", {"chec", "cHECK", "check"}, "cHECK"}, // the first of several, whatever the case
        {"chekc", {"chekxy", "check"}, "check"},        // two exchanged are one step
        {"hceck", {"hceckxy", "check"}, "check"},       // at the beginning, too
        {"ab", {"abcd", "cd", "abc"}, "abc"},           // inserted
        {"abc", {"ab"}, "ab"},                          // left out
        {"ab", {"cd", "ba"}, "ba"},                     // two steps are too many for two characters,
        {"abc", {"axy"}, "axy"},                        // and none too many for three;
        {"abcdef", {"xyz", "uvwxef", "abuvwx"}, ""},    // four for six
        {"abcdef", {"abuvwf"}, "abuvwf"},
        {"abc", {"b", "xy"}, ""}, // nothing of the name would be left
        {longest, {longest + "y"}, longest + "y"},
        {longest + "x", {longest + "y"}, ""},
    };
    for (const auto& [name, known, nearest] : cases) {
        nxNearestName search(name);
        for (const std::string& one : known)
            search.Try(one);
        EXPECT_EQ(search.Get(), nearest) << name;
    }
}
