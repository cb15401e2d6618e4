// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/nxXMLFrameworkExport.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <memory_resource>
#include <string_view>
#include <vector>

// Where something stands in a text: line and column, in characters, counted from 1. Zeros where it is not
// known.
struct nxXMLPlace {
    std::size_t line = 0;
    std::size_t column = 0;
};

// Tells places in a text, one after the other.
class XMLFRAMEWORK_API nxXMLPlaces {
public:
    explicit nxXMLPlaces(std::string_view text);

    // `position` is in the text, and not before the last one.
    nxXMLPlace Of(const char* position);

private:
    const char* _at;
    nxXMLPlace _place{1, 1}; // of `_at`
};

// A handle on one element of an nxXMLTree, to read from; ends with the tree. Every operation may be called on
// an invalid handle: there is nothing in it.
class nxXMLNode {
public:
    nxXMLNode() = default; // invalid

    bool IsValid() const { return _element != nullptr; }
    bool operator==(const nxXMLNode&) const = default; // whether both are the same element
    const void* GetIdentity() const { return _element; }

    std::string_view GetName() const;
    bool HasName(std::string_view name) const { return IsValid() && _AreSame(GetName(), name); }

    // The first child node, when that is text: behind anything else, a comment or a CDATA section included,
    // there is none.
    bool HasText() const;
    std::string_view GetText() const; // empty where there is none

    // Child elements, in order.
    nxXMLNode GetFirstChild() const;
    nxXMLNode GetNext() const; // the sibling behind this element
    XMLFRAMEWORK_API nxXMLNode FindChild(std::string_view name) const;
    XMLFRAMEWORK_API nxXMLNode FindNext(std::string_view name) const; // among the siblings behind

    // The empty text for an attribute that is not there.
    XMLFRAMEWORK_API std::string_view GetAttribute(std::string_view name) const;
    // Calls take(name, value) for each attribute, in order.
    template <class Take>
    void ForEachAttribute(Take&& take) const;

private:
    friend class nxXMLTree;
    struct Attribute;
    struct Element;

    explicit nxXMLNode(const Element* element) : _element(element) {}

    static bool _AreSame(std::string_view name, std::string_view other);

    const Element* _element = nullptr;
};

struct nxXMLNode::Attribute {
    std::string_view name;
    std::string_view value;
    Attribute* next;
};

// Sizes in 32 bits keep an element within one line of the cache.
struct nxXMLNode::Element {
    const char* name;
    const char* text; // null: none
    std::uint32_t nameSize;
    std::uint32_t textSize;
    Element* firstChild;
    Element* next;
    Attribute* attributes;
};

// A document's elements, attributes and texts in UTF-8, as records read them. Records get nodes of it;
// what makes and fills trees is the library's.
//
// Whoever fills a tree adds elements from the root down, in the order of the document. Names and texts are
// views: into an input that outlives the tree, or into memory of the tree's own, see Keep. None may have 4
// GiB.
class nxXMLTree {
public:
    using Attribute = nxXMLNode::Attribute;
    using Element = nxXMLNode::Element;

    XMLFRAMEWORK_API nxXMLTree();
    XMLFRAMEWORK_API ~nxXMLTree();
    nxXMLTree(const nxXMLTree&) = delete;
    nxXMLTree& operator=(const nxXMLTree&) = delete;

    nxXMLNode GetRoot() const { return nxXMLNode(_root); } // invalid while the tree is empty

    // The place in the source of an element, or of a name or a text in the tree; null when it is not known.
    const char* GetPosition(nxXMLNode node) const;
    const char* GetPosition(std::string_view text) const;
    std::string_view GetSource() const { return _source; }

    // A text in an element behind its first child node, or in a CDATA section. `text` may still have its
    // references.
    struct LostText {
        nxXMLNode node;
        std::string_view text;
    };
    const std::vector<LostText>& GetLostTexts() const { return _lostTexts; } // those of blanks, too

    // ---- Filling

    // The text in which all names are found, so that their places in it are those of their elements.
    void SetSource(std::string_view source) { _source = source; }
    // From now on texts that no node has are kept, too.
    void WatchLostTexts() { _watchesLostTexts = true; }
    bool WatchesLostTexts() const { return _watchesLostTexts; }
    void AddLostText(const Element& element, std::string_view text) {
        _lostTexts.push_back({nxXMLNode(&element), text});
    }
    // Empties the tree.
    void Clear();
    // Appends an element as the last child of `parent`, or as the root. `previous` is the parent's last child
    // so far, or null.
    Element* AddElement(Element* parent, Element* previous, std::string_view name);
    static void SetText(Element& element, std::string_view text);
    // Behind those that the element has; `last` is the last of them, or null.
    Attribute* AddAttribute(Element& element, Attribute* last, std::string_view name, std::string_view value);
    // Memory that lives as long as the tree.
    char* Allocate(std::size_t size);
    // A copy of a text in such memory.
    std::string_view Keep(std::string_view text);

private:
    // Items of one kind, which stay where they are. A small document's need no memory of the allocator's.
    template <class Item, std::size_t FirstSize>
    class Blocks {
    public:
        Blocks() = default;
        Blocks(const Blocks&) = delete;
        Blocks& operator=(const Blocks&) = delete;

        Item* Add(const Item& item) {
            if (_next == _end)
                _AddBlock();
            *_next = item;
            return _next++;
        }
        void Clear() {
            _blocks.clear();
            _next = _first.data();
            _end = _next + _first.size();
        }

    private:
        void _AddBlock();

        std::array<Item, FirstSize> _first;
        std::vector<std::unique_ptr<Item[]>> _blocks; // behind the first
        Item* _next = _first.data();                  // the place for the next item in the last block
        Item* _end = _next + _first.size();           // of the last block
    };

    Element* _root = nullptr;
    std::string_view _source;
    Blocks<Element, 64> _elements;
    Blocks<Attribute, 8> _attributes;
    std::pmr::monotonic_buffer_resource _memory; // kept texts
    bool _watchesLostTexts = false;
    std::vector<LostText> _lostTexts;
};

// ---- What is small and called for every element

inline std::string_view nxXMLNode::GetName() const {
    return _element ? std::string_view(_element->name, _element->nameSize) : std::string_view();
}

// Names are short: a call would take longer than all of it. The last bytes may be compared twice.
inline bool nxXMLNode::_AreSame(std::string_view name, std::string_view other) {
    if (name.size() != other.size())
        return false;
    const auto differ = [&](std::size_t place, auto piece) {
        auto otherPiece = piece;
        std::memcpy(&piece, name.data() + place, sizeof piece);
        std::memcpy(&otherPiece, other.data() + place, sizeof piece);
        return piece ^ otherPiece;
    };
    const std::size_t size = name.size();
    if (size >= sizeof(std::uint64_t)) {
        const std::size_t last = size - sizeof(std::uint64_t);
        std::uint64_t difference = differ(last, std::uint64_t());
        for (std::size_t place = 0; place < last; place += sizeof(std::uint64_t))
            difference |= differ(place, std::uint64_t());
        return difference == 0;
    }
    if (size >= sizeof(std::uint32_t))
        return (differ(0, std::uint32_t()) | differ(size - sizeof(std::uint32_t), std::uint32_t())) == 0;
    return name == other;
}

inline bool nxXMLNode::HasText() const {
    return _element && _element->text;
}

inline std::string_view nxXMLNode::GetText() const {
    return HasText() ? std::string_view(_element->text, _element->textSize) : std::string_view();
}

template <class Take>
void nxXMLNode::ForEachAttribute(Take&& take) const {
    for (const Attribute* it = _element ? _element->attributes : nullptr; it; it = it->next)
        take(it->name, it->value);
}

inline nxXMLNode nxXMLNode::GetFirstChild() const {
    return nxXMLNode(_element ? _element->firstChild : nullptr);
}

inline nxXMLNode nxXMLNode::GetNext() const {
    return nxXMLNode(_element ? _element->next : nullptr);
}

inline nxXMLTree::Element* nxXMLTree::AddElement(Element* parent, Element* previous, std::string_view name) {
    Element* const element = _elements.Add(
        {name.data(), nullptr, static_cast<std::uint32_t>(name.size()), 0, nullptr, nullptr, nullptr});
    (previous ? previous->next : parent ? parent->firstChild : _root) = element;
    return element;
}

inline nxXMLTree::Attribute* nxXMLTree::AddAttribute(Element& element, Attribute* last, std::string_view name,
                                                     std::string_view value) {
    Attribute* const attribute = _attributes.Add({name, value, nullptr});
    (last ? last->next : element.attributes) = attribute;
    return attribute;
}

inline void nxXMLTree::SetText(Element& element, std::string_view text) {
    element.text = text.data();
    element.textSize = static_cast<std::uint32_t>(text.size());
}
