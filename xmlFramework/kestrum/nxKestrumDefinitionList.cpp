// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumDefinitionList.h"

#include <algorithm>
#include <utility>

nxKestrumDefinitionList::nxKestrumDefinitionList(const nxKestrumDefinitionList& other) {
    for (const auto& definition : other.Get())
        Add(std::unique_ptr<nxKestrumParameterDefinition>(definition->CopyInstance()));
}

nxKestrumDefinitionList& nxKestrumDefinitionList::operator=(const nxKestrumDefinitionList& other) {
    return *this = nxKestrumDefinitionList(other);
}

nxKestrumDefinitionList::Definitions& nxKestrumDefinitionList::Get() {
    _byName.clear();
    _isIndexed = false;
    return _definitions.Get();
}

nxKestrumParameterDefinition* nxKestrumDefinitionList::Find(const std::string& name) const {
    if (!_isIndexed) {
        const auto last = std::find_if(Get().rbegin(), Get().rend(), [&name](const auto& definition) {
            return definition->GetName() == name;
        });
        return last != Get().rend() ? last->get() : nullptr;
    }
    const auto entry = _byName.find(name);
    return entry != _byName.end() ? entry->second : nullptr;
}

void nxKestrumDefinitionList::Add(std::unique_ptr<nxKestrumParameterDefinition> definition) {
    nxKestrumParameterDefinition& added = _definitions.Add(std::move(definition));
    if (_isIndexed)
        _byName[added.GetName()] = &added;
}

void nxKestrumDefinitionList::Clear() {
    _byName.clear();
    _isIndexed = true;
    _definitions.Clear();
}
