// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/kestrum/nxKestrumParameterDefinition.h"
#include "xmlFramework/nxXMLFrameworkExport.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

// Parameter definitions in order, found by name, whoever changes the list or the definitions in it, and when.
// A copy shares nothing with its original. Null pointers are kept in their places, in copies too, and never
// followed.
//
// Const operations may come from several threads while nobody changes the list.
class XMLFRAMEWORK_API nxKestrumDefinitionList {
public:
    using Definitions = std::vector<std::unique_ptr<nxKestrumParameterDefinition>>;

    nxKestrumDefinitionList() = default;
    nxKestrumDefinitionList(const nxKestrumDefinitionList& other);
    nxKestrumDefinitionList(nxKestrumDefinitionList&&) noexcept = default;
    nxKestrumDefinitionList& operator=(const nxKestrumDefinitionList& other);
    nxKestrumDefinitionList& operator=(nxKestrumDefinitionList&&) noexcept = default;
    ~nxKestrumDefinitionList() = default;
    // By the definitions' values, in order; a null pointer equals a null pointer.
    bool operator==(const nxKestrumDefinitionList& other) const;

    const Definitions& Get() const { return _definitions; }
    // For changing the list itself, also later by a reference that was kept.
    Definitions& Get() { return _definitions; }
    // The last definition of that name, or null. The first call after a change indexes the names; nobody
    // waits for that: who comes meanwhile, or in a child that was forked meanwhile, looks through the list.
    nxKestrumParameterDefinition* Find(const std::string& name) const;
    class LookUp;
    // Adds at the end. An earlier definition of that name stays in the list, but is not found any more.
    void Add(std::unique_ptr<nxKestrumParameterDefinition> definition);
    void Clear() { _definitions.clear(); }

private:
    struct Index;

    // The index of the list that it is asked for, remade when that has changed. It therefore needs no part in
    // what happens to the list, and stays where it is when lists are copied, moved and assigned.
    class CachedIndex {
    public:
        CachedIndex() noexcept;
        CachedIndex(const CachedIndex& /*other*/) noexcept : CachedIndex() {}
        CachedIndex& operator=(const CachedIndex& /*other*/) noexcept { return *this; }
        ~CachedIndex();

        // Null while another thread remakes it.
        const Index* Of(const Definitions& definitions);
        // To be called before the definition is added to the list. An outdated index stays outdated.
        void Add(const Definitions& definitions, nxKestrumParameterDefinition* definition);

    private:
        std::atomic_flag _isBeingRemade;
        std::unique_ptr<Index> _index;
        std::unique_ptr<Index> _previous;
        std::atomic<const Index*> _current = nullptr; // _index, for those who do not remake it
    };

    Definitions _definitions;
    mutable CachedIndex _index;
};

// For many look-ups in a row while nobody changes the list: whether it has changed is looked at once.
class XMLFRAMEWORK_API nxKestrumDefinitionList::LookUp {
public:
    explicit LookUp(const nxKestrumDefinitionList& list) : _list(list) {}

    nxKestrumParameterDefinition* Find(const std::string& name);

private:
    const nxKestrumDefinitionList& _list;
    const Index* _index = nullptr; // null as long as another thread makes it
};
