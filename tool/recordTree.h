// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tool/recordFile.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace tool {
    using Fields = std::vector<nxXMLFieldDescription>;

    // A record as a tree: objects of fields, arrays of items, and texts as its document has them. The shape
    // depends on the class of the record only, never on how many items there are. Nothing, said on standard
    // error, for a record without an XML form. `file.record` is there.
    std::optional<nlohmann::ordered_json> MakeTreeOrComplain(const std::string& path, const RecordFile& file);

    bool IsList(const nxXMLFieldDescription& field);
    // Under which name a field stands in a tree.
    const std::string& GetNameInTree(const nxXMLFieldDescription& field);
    // A record or an item whose one field is its items stands in a tree as their array: that field, else
    // null.
    const nxXMLFieldDescription* FindSoleItems(const Fields& fields);
} // namespace tool
