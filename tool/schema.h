// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>

namespace tool {
    // An XML Schema (version 1.0) of a record's documents. What it accepts is read without a loss, but for
    // items that the record leaves out; names that hold a key or a number are beyond it.
    std::string MakeSchema(const nxXMLDescription& description);
} // namespace tool
