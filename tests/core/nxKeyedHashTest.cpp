// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxKeyedHash.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

TEST(nxKeyedHash, IsThePublishedFunctionUnderAKeyOfThisProcess) {
    std::string text; // 00, 01, 02 ..., as the key: the values are those of the function's authors
    for (char byte = 0; byte < 15; ++byte)
        text += byte;
    constexpr nxKeyedHash::Key Key = {0x0706050403020100, 0x0F0E0D0C0B0A0908};
    const struct {
        std::size_t size;
        std::uint64_t hash;
    } cases[] = {
        {0, 0x726FDB47DD0E0E31}, {1, 0x74F839C593DC67FD}, {8, 0x93F5F5799A932462}, {15, 0xA129CA6149BE45E5}};
    for (const auto& [size, hash] : cases) {
        const std::string start = text.substr(0, size);
        EXPECT_EQ(nxKeyedHash::Get(start, Key), hash) << size;
        EXPECT_NE(nxKeyedHash()(start), nxKeyedHash::Get(start, {})) << "no key was drawn";
        EXPECT_EQ(nxKeyedHash()(start), nxKeyedHash()(start));
    }
}
