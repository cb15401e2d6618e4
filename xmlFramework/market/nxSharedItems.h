// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"

#include <algorithm>
#include <memory>

// What the lists have in common that hold items under keys by shared ownership: assigning a list shares its
// items, and neither list can destroy what the other still uses. A null pointer is no item, but has its
// place. Private to the library.
namespace nxSharedItems {
    template <class Map>
    Map Copy(const Map& items) {
        using Item = typename Map::mapped_type::element_type;
        Map copies;
        for (const auto& [key, item] : items)
            copies.emplace_hint(copies.end(), key, item ? std::make_shared<Item>(*item) : nullptr);
        return copies;
    }

    // The first result in key order that is not OK. A null pointer is not valid.
    template <class Map>
    nxErrorEnum Validate(const Map& items) {
        for (const auto& [key, item] : items) {
            const nxErrorEnum result = item ? item->IsValid() : nxErrorEnum(nxErrorEnum::InvalidData);
            if (!result.IsOK())
                return result;
        }
        return nxErrorEnum::OK;
    }

    // Whether the maps have the same keys with items of the same values.
    template <class Map>
    bool AreEqual(const Map& left, const Map& right) {
        return std::ranges::equal(left, right, [](const auto& one, const auto& other) {
            const auto& item = one.second;
            const auto& otherItem = other.second;
            return one.first == other.first && (item && otherItem ? *item == *otherItem : item == otherItem);
        });
    }
} // namespace nxSharedItems
