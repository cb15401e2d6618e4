// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxKeyedHash.h"

#include <sys/auxv.h>
#include <unistd.h>

#include <bit>
#include <cstring>

namespace {
    nxKeyedHash::Key DrawKey() {
        nxKeyedHash::Key key{};
        if (::getentropy(key.data(), sizeof key) == 0)
            return key;
        // What the system drew when it started the process.
        // NOLINTNEXTLINE(performance-no-int-to-ptr): as the system hands it out
        std::memcpy(key.data(), reinterpret_cast<const void*>(::getauxval(AT_RANDOM)), sizeof key);
        return key;
    }

    // The same from the first use on, be it from static objects that are made before this library's.
    const nxKeyedHash::Key& TheKey() {
        static const nxKeyedHash::Key key = DrawKey();
        return key;
    }
    [[maybe_unused]] const nxKeyedHash::Key& drawnAtLoad = TheKey(); // so that no thread waits for another

    // The state of the function, mixed in rounds.
    struct State {
        explicit State(const nxKeyedHash::Key& key) {
            v0 ^= key[0];
            v1 ^= key[1];
            v2 ^= key[0];
            v3 ^= key[1];
        }

        void Add(std::uint64_t word) {
            v3 ^= word;
            Mix();
            Mix();
            v0 ^= word;
        }
        std::uint64_t Finish() {
            v2 ^= 0xFF;
            for (int round = 0; round < 4; ++round)
                Mix();
            return v0 ^ v1 ^ v2 ^ v3;
        }

    private:
        void Mix() {
            v0 += v1;
            v2 += v3;
            v1 = std::rotl(v1, 13) ^ v0;
            v3 = std::rotl(v3, 16) ^ v2;
            v0 = std::rotl(v0, 32) + v3;
            v2 += v1;
            v1 = std::rotl(v1, 17) ^ v2;
            v3 = std::rotl(v3, 21) ^ v0;
            v2 = std::rotl(v2, 32);
        }

        std::uint64_t v0 = 0x736F6D6570736575;
        std::uint64_t v1 = 0x646F72616E646F6D;
        std::uint64_t v2 = 0x6C7967656E657261;
        std::uint64_t v3 = 0x7465646279746573;
    };
} // namespace

std::size_t nxKeyedHash::operator()(std::string_view text) const {
    return Get(text, TheKey());
}

std::uint64_t nxKeyedHash::Get(std::string_view text, const Key& key) noexcept {
    constexpr std::size_t WordSize = sizeof(std::uint64_t);
    State state(key);
    const std::uint64_t size = text.size();
    std::uint64_t word = 0;
    for (; text.size() >= WordSize; text.remove_prefix(WordSize)) {
        std::memcpy(&word, text.data(), WordSize);
        state.Add(word);
    }
    word = size << 56;
    text.copy(reinterpret_cast<char*>(&word), WordSize); // what is left, below the size
    state.Add(word);
    return state.Finish();
}
