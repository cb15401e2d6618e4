// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLTree.h"

#include <algorithm>
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
    _lostTexts.clear();
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
    std::ranges::copy(text, kept); // there may be none
    return {kept, text.size()};
}

nxXMLPlaces::nxXMLPlaces(std::string_view text) : _at(text.data()) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(ByteOrderMark))
        _at += ByteOrderMark.size();
}

nxXMLPlace nxXMLPlaces::Of(const char* position) {
    for (; _at < position; ++_at) {
        if (*_at == '\n' || (*_at == '\r' && _at[1] != '\n')) { // as lines end in XML 1.0
            ++_place.line;
            _place.column = 1;
        } else if (!IsContinuation(_at[1]))
            ++_place.column;
    }
    return _place;
}

const char* nxXMLTree::GetPosition(std::string_view text) const {
    const bool isInSource = std::less_equal<>()(_source.data(), text.data()) &&
                            std::less<>()(text.data(), _source.data() + _source.size());
    return isInSource ? text.data() : nullptr;
}

const char* nxXMLTree::GetPosition(nxXMLNode node) const {
    const char* const name = node.IsValid() ? GetPosition(node.GetName()) : nullptr;
    return name ? name - 1 : nullptr; // the "<" of its tag
}
