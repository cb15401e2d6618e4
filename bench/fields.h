// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "bench/values.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

// How a plain record stands in a document, said once: a tuple `Fields` of the kinds below in the order in
// which they are written. Reading and writing follow from it for every stack, through a class `Node` of the
// stack's:
//
//   node.ForEachChild(visit)           calls visit(child, name) for each child element
//   node.GetText(), GetAttribute(name)
//   node.Append(name)                  adds a child element, and returns it
//   node.SetText(text), SetAttribute(name, text)
namespace bench {
    // An attribute.
    template <class Record, class Value>
    struct Attribute {
        const char* name;
        Value Record::*member;
    };

    // A child element: text, or a record of its own.
    template <class Record, class Value>
    struct Field {
        const char* name;
        Value Record::*member;
    };

    // A child element an item. A name that ends in a dash goes on with the item's key in a map, and with its
    // number elsewhere. A map's items say by `Key` which of their members that is; the first of a key stays.
    template <class Record, class Container>
    struct Items {
        const char* name;
        Container Record::*member;

        bool IsNamePrefix() const { return std::string_view(name).ends_with('-'); }
    };

    // Items in a child element.
    template <class Record, class Container>
    struct List {
        const char* name;
        Items<Record, Container> items;
    };

    template <class Record, class Value>
    Attribute(const char*, Value Record::*) -> Attribute<Record, Value>;
    template <class Record, class Value>
    Field(const char*, Value Record::*) -> Field<Record, Value>;
    template <class Record, class Container>
    Items(const char*, Container Record::*) -> Items<Record, Container>;
    template <class Record, class Container>
    List(const char*, Items<Record, Container>) -> List<Record, Container>;

    template <class Value>
    concept IsRecord = requires {
        Value::Fields;
    };

    // ---- Reading

    template <class Item>
    void Insert(std::vector<Item>& items, Item item) {
        items.push_back(std::move(item));
    }

    template <class Key, class Item>
    void Insert(std::map<Key, Item>& items, Item item) {
        Key key = item.*Item::Key;
        items.try_emplace(std::move(key), std::move(item));
    }

    template <class Item>
    Item ItemType(const std::vector<Item>&);
    template <class Key, class Item>
    Item ItemType(const std::map<Key, Item>&);

    template <class Node, class Value>
    void ReadValue(const Node& element, Value& value);

    template <class Node, class Record, class Value>
    void ReadAttribute(const Attribute<Record, Value>& attribute, const Node& element, Record& record) {
        FromText(element.GetAttribute(attribute.name), record.*attribute.member);
    }
    template <class Node, class Record, class Other>
    void ReadAttribute(const Other&, const Node&, Record&) {}

    // Take the child if it is theirs, and say so.
    template <class Node, class Name, class Record, class Value>
    bool TakeChild(const Attribute<Record, Value>&, const Node&, const Name&, Record&) {
        return false;
    }
    template <class Node, class Name, class Record, class Value>
    bool TakeChild(const Field<Record, Value>& field, const Node& child, const Name& name, Record& record) {
        if (name != field.name)
            return false;
        ReadValue(child, record.*field.member);
        return true;
    }
    template <class Node, class Name, class Record, class Container>
    bool TakeChild(const Items<Record, Container>& items, const Node& child, const Name& name,
                   Record& record) {
        const bool isItem = items.IsNamePrefix() ? name.starts_with(items.name) : name == items.name;
        if (!isItem)
            return false;
        decltype(ItemType(record.*items.member)) item;
        ReadValue(child, item);
        Insert(record.*items.member, std::move(item));
        return true;
    }
    template <class Node, class Name, class Record, class Container>
    bool TakeChild(const List<Record, Container>& list, const Node& child, const Name& name, Record& record) {
        if (name != list.name)
            return false;
        child.ForEachChild(
            [&](const Node& item, const Name& itemName) { TakeChild(list.items, item, itemName, record); });
        return true;
    }

    template <class Node, class Value>
    void ReadValue(const Node& element, Value& value) {
        if constexpr (IsRecord<Value>) {
            std::apply([&](const auto&... field) { (ReadAttribute(field, element, value), ...); },
                       Value::Fields);
            element.ForEachChild([&](const Node& child, const auto& name) {
                std::apply([&](const auto&... field) { (TakeChild(field, child, name, value) || ...); },
                           Value::Fields);
            });
        } else
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

    template <class Node, class Record, class Value>
    void WriteField(const Attribute<Record, Value>& attribute, Node& element, const Record& record) {
        element.SetAttribute(attribute.name, ToText(record.*attribute.member));
    }
    template <class Node, class Record, class Value>
    void WriteField(const Field<Record, Value>& field, Node& element, const Record& record) {
        WriteValue(element.Append(field.name), record.*field.member);
    }
    template <class Node, class Record, class Container>
    void WriteField(const Items<Record, Container>& items, Node& element, const Record& record) {
        std::size_t number = 0;
        for (const auto& entry : record.*items.member) {
            if (items.IsNamePrefix())
                WriteValue(element.Append((items.name + KeyText(entry, number)).c_str()), ItemOf(entry));
            else
                WriteValue(element.Append(items.name), ItemOf(entry));
            ++number;
        }
    }
    template <class Node, class Record, class Container>
    void WriteField(const List<Record, Container>& list, Node& element, const Record& record) {
        auto container = element.Append(list.name);
        WriteField(list.items, container, record);
    }

    template <class Node, class Value>
    void WriteValue(Node&& element, const Value& value) {
        if constexpr (IsRecord<Value>)
            std::apply([&](const auto&... field) { (WriteField(field, element, value), ...); },
                       Value::Fields);
        else
            element.SetText(ToText(value));
    }
} // namespace bench
