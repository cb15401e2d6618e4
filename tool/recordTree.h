// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tool/recordKinds.h"

#include <nlohmann/json_fwd.hpp>

namespace tool {
    using Fields = std::vector<nxXMLFieldDescription>;

    // A record as a tree: objects of fields, arrays of items, and texts as its document has them. The shape
    // depends on the class of the record only, never on how many items there are.
    nlohmann::ordered_json MakeTree(Record& record, const RecordKind& kind);

    bool IsList(const nxXMLFieldDescription& field);
    // Under which name a field stands in a tree.
    const std::string& GetNameInTree(const nxXMLFieldDescription& field);
    // A record or an item whose one field is its items stands in a tree as their array: that field, else
    // null.
    const nxXMLFieldDescription* FindSoleItems(const Fields& fields);
} // namespace tool
