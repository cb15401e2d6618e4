// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

// Items in order, each allocated on its own, which live as long as this holds them. A copy has copies of the
// items, made by their CopyInstance, and comparison looks at the items, too. A null pointer among them is
// copied as one and equals its like only.
template <class Item>
class nxOwnedItems {
public:
    using Items = std::vector<std::unique_ptr<Item>>;

    nxOwnedItems() = default;
    nxOwnedItems(const nxOwnedItems& other) : _items(_Copy(other._items)) {}
    nxOwnedItems(nxOwnedItems&&) noexcept = default;
    nxOwnedItems& operator=(const nxOwnedItems& other) {
        _items = _Copy(other._items);
        return *this;
    }
    nxOwnedItems& operator=(nxOwnedItems&&) noexcept = default;
    ~nxOwnedItems() = default;

    const Items& Get() const { return _items; }
    Items& Get() { return _items; }
    // Not a null pointer.
    Item& Add(std::unique_ptr<Item> item) { return *_items.emplace_back(std::move(item)); }
    void Clear() { _items.clear(); }
    // Copies of `items`, which may be this object's own, but for null pointers, in place of those held.
    void Assign(const Items& items) {
        _items = _Copy(items);
        std::erase(_items, nullptr);
    }

    friend bool operator==(const nxOwnedItems& left, const nxOwnedItems& right) {
        return std::ranges::equal(left._items, right._items,
                                  [](const auto& a, const auto& b) { return a && b ? *a == *b : !a && !b; });
    }

private:
    static Items _Copy(const Items& items) {
        Items copies;
        copies.reserve(items.size());
        for (const auto& item : items)
            copies.emplace_back(item ? item->CopyInstance() : nullptr);
        return copies;
    }

    Items _items;
};
