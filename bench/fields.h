// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "bench/values.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Plain records: a list of fields in the order in which they stand in a document. Reading and writing follow
// from it for every stack, through a class `Node` of the stack's:
//
//   node.ForEachChild(visit)           calls visit(child, name) for each child element
//   node.GetText(), GetAttribute(name)
//   node.Append(name)                  adds a child element, and returns it
//   node.SetText(text), SetAttribute(name, text)
namespace bench {
    template <std::size_t Size>
    struct Name {
        char text[Size]{};

        consteval Name(const char (&literal)[Size]) { std::ranges::copy(literal, text); }
    };

    template <Name Text, class Value>
    struct Member {
        static constexpr const char* name = Text.text;
        Value value{};

        bool operator==(const Member&) const = default;
    };

    // ---- The kinds of fields

    template <Name Text, class Value>
    struct Attribute : Member<Text, Value> {};

    // A child element: text, or a record of its own.
    template <Name Text, class Value>
    struct Field : Member<Text, Value> {};

    // A child element an item. A name that ends in a dash goes on with the item's key in a map, and with its
    // number elsewhere. The key is the item's first field; the first item of a key stays.
    template <Name Text, class Container>
    struct Items : Member<Text, Container> {
        static constexpr bool IsNamePrefix = std::string_view(Text.text).ends_with('-');
    };

    // Items in a child element.
    template <Name Text, Name ItemText, class Container>
    struct List : Member<Text, Items<ItemText, Container>> {};

    template <class... Fields>
    struct Record : Fields... {
        bool operator==(const Record&) const = default;
    };

    // The record of a whole document, whose root element has that name.
    template <Name RootName, class... Fields>
    struct Document : Record<Fields...> {
        static constexpr const char* Root = RootName.text;
    };

    // ---- What is in a record

    template <Name Text, class Value>
    Value& Get(Member<Text, Value>& member) {
        return member.value;
    }
    template <Name Text, class Value>
    const Value& Get(const Member<Text, Value>& member) {
        return member.value;
    }
    // The items of a list.
    template <Name Text, Name ItemText, class Container>
    Container& Get(Member<Text, Items<ItemText, Container>>& list) {
        return list.value.value;
    }

    template <class First, class... Others>
    const auto& FirstOf(const Record<First, Others...>& record) {
        return static_cast<const First&>(record).value;
    }

    template <class... Fields, class Visit>
    void ForEachField(Record<Fields...>& record, Visit visit) {
        (visit(static_cast<Fields&>(record)), ...);
    }
    template <class... Fields, class Visit>
    void ForEachField(const Record<Fields...>& record, Visit visit) {
        (visit(static_cast<const Fields&>(record)), ...);
    }

    template <class Value>
    concept IsRecord = requires(const Value& value) {
        FirstOf(value);
    };

    // ---- Reading

    template <class Item>
    void Insert(std::vector<Item>& items, Item item) {
        items.push_back(std::move(item));
    }
    template <class Key, class Item>
    void Insert(std::map<Key, Item>& items, Item item) {
        Key key = FirstOf(item);
        items.try_emplace(std::move(key), std::move(item));
    }

    template <class Item>
    Item ItemType(const std::vector<Item>&);
    template <class Key, class Item>
    Item ItemType(const std::map<Key, Item>&);

    template <class Node, class Value>
    void ReadValue(const Node& element, Value& value);

    template <class Node, Name Text, class Value>
    void ReadAttribute(Attribute<Text, Value>& attribute, const Node& element) {
        FromText(element.GetAttribute(attribute.name), attribute.value);
    }
    template <class Node, class Other>
    void ReadAttribute(Other&, const Node&) {}

    // Take the child if it is theirs, and say so.
    template <class Node, class ChildName, Name Text, class Value>
    bool TakeChild(Attribute<Text, Value>&, const Node&, const ChildName&) {
        return false;
    }
    template <class Node, class ChildName, Name Text, class Value>
    bool TakeChild(Field<Text, Value>& field, const Node& child, const ChildName& name) {
        if (name != field.name)
            return false;
        ReadValue(child, field.value);
        return true;
    }
    template <class Node, class ChildName, Name Text, class Container>
    bool TakeChild(Items<Text, Container>& items, const Node& child, const ChildName& name) {
        const bool isItem = items.IsNamePrefix ? name.starts_with(items.name) : name == items.name;
        if (!isItem)
            return false;
        decltype(ItemType(items.value)) item;
        ReadValue(child, item);
        Insert(items.value, std::move(item));
        return true;
    }
    template <class Node, class ChildName, Name Text, Name ItemText, class Container>
    bool TakeChild(List<Text, ItemText, Container>& list, const Node& child, const ChildName& name) {
        if (name != list.name)
            return false;
        child.ForEachChild(
            [&](const Node& item, const auto& itemName) { TakeChild(list.value, item, itemName); });
        return true;
    }

    template <class Node, class... Fields>
    void ReadRecord(const Node& element, Record<Fields...>& record) {
        ForEachField(record, [&](auto& field) { ReadAttribute(field, element); });
        element.ForEachChild([&](const Node& child, const auto& name) {
            (TakeChild(static_cast<Fields&>(record), child, name) || ...);
        });
    }

    template <class Node, class Value>
    void ReadValue(const Node& element, Value& value) {
        if constexpr (IsRecord<Value>)
            ReadRecord(element, value);
        else
            FromText(element.GetText(), value);
    }

    // ---- Writing

    template <class Item>
    const Item& ItemOf(const Item& item) {
        return item;
    }
    template <class Key, class Item>
    const Item& ItemOf(const std::pair<const Key, Item>& entry) {
        return entry.second;
    }

    template <class Item>
    std::string KeyText(const Item&, std::size_t number) {
        return std::to_string(number);
    }
    template <class Key, class Item>
    std::string KeyText(const std::pair<const Key, Item>& entry, std::size_t) {
        return ToText(entry.first);
    }

    template <class Node, class Value>
    void WriteValue(Node&& element, const Value& value);

    template <class Node, Name Text, class Value>
    void WriteField(const Attribute<Text, Value>& attribute, Node& element) {
        element.SetAttribute(attribute.name, ToText(attribute.value));
    }
    template <class Node, Name Text, class Value>
    void WriteField(const Field<Text, Value>& field, Node& element) {
        WriteValue(element.Append(field.name), field.value);
    }
    template <class Node, Name Text, class Container>
    void WriteField(const Items<Text, Container>& items, Node& element) {
        std::size_t number = 0;
        for (const auto& entry : items.value) {
            if (items.IsNamePrefix)
                WriteValue(element.Append((items.name + KeyText(entry, number)).c_str()), ItemOf(entry));
            else
                WriteValue(element.Append(items.name), ItemOf(entry));
            ++number;
        }
    }
    template <class Node, Name Text, Name ItemText, class Container>
    void WriteField(const List<Text, ItemText, Container>& list, Node& element) {
        auto container = element.Append(list.name);
        WriteField(list.value, container);
    }

    template <class Node, class Value>
    void WriteValue(Node&& element, const Value& value) {
        if constexpr (IsRecord<Value>)
            ForEachField(value, [&element](const auto& field) { WriteField(field, element); });
        else
            element.SetText(ToText(value));
    }
} // namespace bench
