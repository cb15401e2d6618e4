// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxOwnedItems.h"
#include "xmlFramework/kestrum/nxKestrumParameterDefinition.h"
#include "xmlFramework/nxXMLFrameworkExport.h"

#include <map>
#include <string>

// Parameter definitions in order of insertion, with an index by name. A copy shares nothing with its
// original.
class XMLFRAMEWORK_API nxKestrumDefinitionList {
public:
    using Definitions = nxOwnedItems<nxKestrumParameterDefinition>::Items;

    nxKestrumDefinitionList() = default;
    nxKestrumDefinitionList(const nxKestrumDefinitionList& other);
    nxKestrumDefinitionList(nxKestrumDefinitionList&&) noexcept = default; // items stay where they are
    nxKestrumDefinitionList& operator=(const nxKestrumDefinitionList& other);
    nxKestrumDefinitionList& operator=(nxKestrumDefinitionList&&) noexcept = default;
    ~nxKestrumDefinitionList() = default;

    const Definitions& Get() const { return _definitions.Get(); }
    // To change the list itself. From then on until Clear or an assignment the index is not used.
    Definitions& Get();
    // The last definition of that name, or null. While the index is used, names count as they were when the
    // definition was added.
    nxKestrumParameterDefinition* Find(const std::string& name) const;
    // Adds at the end. An earlier definition of that name stays in the list, but is not found any more.
    void Add(std::unique_ptr<nxKestrumParameterDefinition> definition);
    void Clear();

private:
    nxOwnedItems<nxKestrumParameterDefinition> _definitions;
    std::map<std::string, nxKestrumParameterDefinition*> _byName; // into _definitions
    bool _isIndexed = true; // else the list may have been changed by others
};
