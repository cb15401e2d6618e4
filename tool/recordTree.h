// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tool/recordKinds.h"

#include <nlohmann/json_fwd.hpp>

namespace tool {
    // A record as a tree: objects of fields, arrays of items, and texts as its document has them. The shape
    // depends on the class of the record only, never on how many items there are.
    nlohmann::ordered_json MakeTree(Record& record, const RecordKind& kind);

    // Who an item is among the items of the list `listName`: by the field that identifies it where the class
    // has one, else by its place.
    std::string ItemKey(const RecordKind& kind, std::string_view listName, const nlohmann::ordered_json& item,
                        std::size_t place);
} // namespace tool
