// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLTree.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace {
    constexpr std::size_t BlockSize = 1024; // items

    constexpr bool IsContinuation(char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    }
} // namespace

nxXMLNode nxXMLNode::FindChild(std::string_view name) const {
    const nxXMLNode first = GetFirstChild();
    return !first.IsValid() || first.HasName(name) ? first : first.FindNext(name);
}

nxXMLNode nxXMLNode::FindNext(std::string_view name) const {
    nxXMLNode node = GetNext();
    while (node.IsValid() && !node.HasName(name))
        node = node.GetNext();
    return node;
}

std::string_view nxXMLNode::GetAttribute(std::string_view name) const {
    const Attribute* attribute = _element ? _element->attributes : nullptr;
    while (attribute && !_AreSame(attribute->name, name))
        attribute = attribute->next;
    return attribute ? attribute->value : std::string_view();
}

nxXMLTree::nxXMLTree() = default;

nxXMLTree::~nxXMLTree() = default;

void nxXMLTree::Clear() {
    _root = nullptr;
    _source = {};
    _elements.Clear();
    _attributes.Clear();
    _memory.release();
}

template <class Item, std::size_t FirstSize>
void nxXMLTree::Blocks<Item, FirstSize>::_AddBlock() {
    _next = _blocks.emplace_back(std::make_unique_for_overwrite<Item[]>(BlockSize)).get();
    _end = _next + BlockSize;
}

template void nxXMLTree::Blocks<nxXMLTree::Element, 64>::_AddBlock();
template void nxXMLTree::Blocks<nxXMLTree::Attribute, 8>::_AddBlock();

char* nxXMLTree::Allocate(std::size_t size) {
    return static_cast<char*>(_memory.allocate(size, 1));
}

std::string_view nxXMLTree::Keep(std::string_view text) {
    char* const kept = Allocate(text.size());
    std::memcpy(kept, text.data(), text.size());
    return {kept, text.size()};
}

nxXMLPlace nxXMLTree::GetPlace(nxXMLNode node) const {
    if (!node.IsValid())
        return {};
    // The name stands behind the "<" of its element.
    const char* const end = node._element->name - 1;
    const bool isInSource =
        std::less_equal<>()(_source.data(), end) && std::less<>()(end, _source.data() + _source.size());
    if (!isInSource)
        return {};

    const std::string_view before(_source.data(), static_cast<std::size_t>(end - _source.data()));
    const std::size_t lineStart = before.rfind('\n') + 1; // npos + 1 is 0
    const auto lines = std::ranges::count(before, '\n');
    const auto column = std::ranges::count_if(before.substr(lineStart), std::not_fn(IsContinuation));
    return {static_cast<std::size_t>(lines) + 1, static_cast<std::size_t>(column) + 1};
}
