// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringParser.h"

#include <gtest/gtest.h>

TEST(nxStringParserExtractAllSubstrings, GivesOnePartMoreThanSeparatorsAndNoneOfNothing) {
    using Parts = std::vector<std::string>;
    const struct {
        std::string text;
        std::size_t start;
        Parts expected;
    } cases[] = {
        {" a , b", 0, {" a ", " b"}},
        {",a,,b,", 0, {"", "a", "", "b", ""}},
        {"a,b", 2, {"b"}},
        {"", 0, {}},
        {"a,b", 3, {}},
        {"a,b", std::string::npos, {}},
        {std::string("a\0b,c", 5), 0, {std::string("a\0b", 3), "c"}},
    };
    for (const auto& [text, start, expected] : cases) {
        Parts parts{"from an earlier call"};
        nxStringParser::ExtractAllSubstrings(text, parts, start, ',');
        EXPECT_EQ(parts, expected) << text << " from " << start;
    }
}
