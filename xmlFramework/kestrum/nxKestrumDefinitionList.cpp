// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumDefinitionList.h"

#include <utility>

nxKestrumDefinitionList::nxKestrumDefinitionList(const nxKestrumDefinitionList& other) {
    for (const auto& definition : other.Get())
        Add(std::unique_ptr<nxKestrumParameterDefinition>(definition->CopyInstance()));
}

nxKestrumDefinitionList& nxKestrumDefinitionList::operator=(const nxKestrumDefinitionList& other) {
    return *this = nxKestrumDefinitionList(other);
}

nxKestrumParameterDefinition* nxKestrumDefinitionList::Find(const std::string& name) const {
    const auto entry = _byName.find(name);
    return entry != _byName.end() ? entry->second : nullptr;
}

void nxKestrumDefinitionList::Add(std::unique_ptr<nxKestrumParameterDefinition> definition) {
    nxKestrumParameterDefinition& added = _definitions.Add(std::move(definition));
    _byName[added.GetName()] = &added;
}

void nxKestrumDefinitionList::Clear() {
    _byName.clear();
    _definitions.Clear();
}
