// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumDefinitionList.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

// What stood in a list, and under which names. Names are copies: those of the definitions may be gone.
struct nxKestrumDefinitionList::Index {
    explicit Index(const Definitions& list) {
        definitions.reserve(list.size());
        for (const auto& definition : list)
            Add(definition.get());
    }

    void Add(nxKestrumParameterDefinition* definition) {
        if (definition) {
            definition->_nameWatch.Start(isOutdated);
            byName[definition->GetName()] = definition;
        }
        definitions.push_back(definition);
    }

    // Whether the list holds these definitions still, and they their names.
    bool IsOf(const Definitions& list) const {
        if (definitions.size() != list.size() || isOutdated->load(std::memory_order_relaxed))
            return false;
        // The larger part of a look-up in a long list: as bytes, the pointers are compared the fastest.
        static_assert(sizeof(Definitions::value_type) == sizeof(void*));
        const void* const pointers = list.data();
        return list.empty() || std::memcmp(definitions.data(), pointers, list.size() * sizeof(void*)) == 0;
    }

    std::vector<nxKestrumParameterDefinition*> definitions;      // in order; some may be gone
    std::map<std::string, nxKestrumParameterDefinition*> byName; // names could be made for any hash
    std::shared_ptr<nxKestrumParameterDefinition::NameWatch::Flag> isOutdated =
        std::make_shared<nxKestrumParameterDefinition::NameWatch::Flag>(false);
};

nxKestrumDefinitionList::CachedIndex::CachedIndex() noexcept = default;

nxKestrumDefinitionList::CachedIndex::~CachedIndex() = default;

const nxKestrumDefinitionList::Index*
nxKestrumDefinitionList::CachedIndex::Of(const Definitions& definitions) {
    const Index* const current = _current.load(std::memory_order_acquire);
    if (current && current->IsOf(definitions))
        return current;

    if (_isBeingRemade.test_and_set(std::memory_order_acquire))
        return nullptr;
    const auto end = [](std::atomic_flag* flag) { flag->clear(std::memory_order_release); };
    const std::unique_ptr<std::atomic_flag, decltype(end)> remaking(&_isBeingRemade, end);
    if (!_index || !_index->IsOf(definitions)) {
        // Other threads may be comparing the outdated index, too, and nothing says when they have done. It is
        // kept for one more remaking: the list changes before that, and no look-up goes on through a change.
        auto index = std::make_unique<Index>(definitions);
        _previous = std::exchange(_index, std::move(index));
        _current.store(_index.get(), std::memory_order_release);
    }
    return _index.get();
}

void nxKestrumDefinitionList::CachedIndex::Add(const Definitions& definitions,
                                               nxKestrumParameterDefinition* definition) {
    if (_index && _index->definitions.size() == definitions.size())
        _index->Add(definition);
}

nxKestrumDefinitionList::nxKestrumDefinitionList(const nxKestrumDefinitionList& other) {
    _definitions.reserve(other._definitions.size());
    for (const auto& definition : other._definitions)
        _definitions.emplace_back(definition ? definition->CopyInstance() : nullptr);
}

nxKestrumDefinitionList& nxKestrumDefinitionList::operator=(const nxKestrumDefinitionList& other) {
    return *this = nxKestrumDefinitionList(other);
}

bool nxKestrumDefinitionList::operator==(const nxKestrumDefinitionList& other) const {
    return std::ranges::equal(_definitions, other._definitions, [](const auto& left, const auto& right) {
        return left && right ? *left == *right : left == right;
    });
}

nxKestrumParameterDefinition* nxKestrumDefinitionList::Find(const std::string& name) const {
    return LookUp(*this).Find(name);
}

nxKestrumParameterDefinition* nxKestrumDefinitionList::LookUp::Find(const std::string& name) {
    const Definitions& definitions = _list._definitions;
    if (!_index)
        _index = _list._index.Of(definitions);
    if (_index) {
        const auto entry = _index->byName.find(name);
        return entry != _index->byName.end() ? entry->second : nullptr;
    }
    const auto isNamed = [&name](const auto& item) { return item && item->GetName() == name; };
    const auto last = std::find_if(definitions.rbegin(), definitions.rend(), isNamed);
    return last != definitions.rend() ? last->get() : nullptr;
}

void nxKestrumDefinitionList::Add(std::unique_ptr<nxKestrumParameterDefinition> definition) {
    _index.Add(_definitions, definition.get());
    _definitions.push_back(std::move(definition));
}
