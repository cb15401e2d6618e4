// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLFields.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// Lists as fields of records. For records: see nxXMLRecord.h.
//
//     field("Limits", ListOf("Limit", record._limits)); // an element "Limits", with a "Limit" for each item
//     field("UT", Items(record._texts));                // a "UT" for each item, among the record's own
//
// Items are texts, or records that read and write themselves (nxXMLItem). An item that cannot be read is left
// out and ends the list; its failure is the list's.
namespace nxXMLFields {
    // ---- Which children are items

    // Those of the items' name, whatever stands between them.
    struct Named {
        static constexpr auto ItemNames = nxXMLFieldDescription::ItemNames::Fixed;
        static constexpr bool EndsAtOthers = false;
        static bool IsItem(const nxXMLNode& child, std::string_view name) { return child.HasName(name); }
    };
    // Those of the items' name from the first child on; the first child of another name ends them.
    struct Leading : Named {
        static constexpr bool EndsAtOthers = true;
    };
    // All, whatever their names. They are written with the items' name.
    struct Any {
        static constexpr auto ItemNames = nxXMLFieldDescription::ItemNames::Any;
        static constexpr bool EndsAtOthers = false;
        static bool IsItem(const nxXMLNode& /*child*/, std::string_view /*name*/) { return true; }
    };
    // Those whose name is the items' name and a key: "MICDefinition-XOSL". The first child of another name
    // ends them. Reading takes the key from the item, whatever stands in the name.
    struct ByKey {
        static constexpr auto ItemNames = nxXMLFieldDescription::ItemNames::WithKey;
        static constexpr bool EndsAtOthers = true;
        static bool IsItem(const nxXMLNode& child, std::string_view name) {
            return child.GetName().size() > name.size() && child.GetName().starts_with(name);
        }
    };
    // Those whose name is the items' name and a number, counted from 0: "Leg-0". They are read in the order
    // of their numbers; the first number that is missing ends them.
    struct ByNumber {
        static constexpr auto ItemNames = nxXMLFieldDescription::ItemNames::WithNumber;
        static constexpr bool EndsAtOthers = false;
    };

    // ---- How containers take and give items

    // A container holds its items, or pointers to them, which may be null.
    template <class Holder>
    concept IsPointer = requires {
        typename Holder::element_type;
    };

    template <class Holder>
    auto* ItemOf(Holder& held) {
        if constexpr (IsPointer<std::remove_const_t<Holder>>)
            return held.get();
        else
            return &held;
    }

    template <class Holder>
    Holder NewItem() {
        if constexpr (!IsPointer<Holder>)
            return Holder();
        else if constexpr (std::copyable<Holder>)
            return std::make_shared<typename Holder::element_type>();
        else
            return std::make_unique<typename Holder::element_type>();
    }

    // The holder in an entry of a container.
    template <class Key, class Holder>
    const Holder& HolderOf(const std::pair<const Key, Holder>& entry) {
        return entry.second;
    }
    template <class Holder>
    Holder& HolderOf(Holder& held) {
        return held;
    }

    // A container of items as a list sees it: Holder, Add, and a range of holders. A record's own class may
    // stand in for one. Add may give a reason why the item, or another one for it, is not in the container
    // now; null for none.
    template <class Container>
    struct Access {
        using Holder = typename Container::Holder;
        static auto Add(Container& items, Holder item) { return items.Add(std::move(item)); }
        static decltype(auto) Range(const Container& items) { return items.Range(); }
    };
    template <class T>
    struct Access<std::vector<T>> {
        using Holder = T;
        static void Add(std::vector<T>& items, T item) { items.push_back(std::move(item)); }
        static const std::vector<T>& Range(const std::vector<T>& items) { return items; }
    };
    // Those that own items of their own.
    template <class Container>
    requires requires(const Container& items) {
        items.Get().front().get();
    }
    struct Access<Container> {
        using Holder =
            typename std::remove_cvref_t<decltype(std::declval<const Container&>().Get())>::value_type;
        static void Add(Container& items, Holder item) { items.Add(std::move(item)); }
        static const auto& Range(const Container& items) { return items.Get(); }
    };

    // The entries of a container as items that are made of them one by one. (As std::views::transform, which
    // clang 14 does not compile with GCC's library.)
    template <class Container, class Make>
    class MadeFrom {
    public:
        class Iterator {
        public:
            Iterator(typename Container::const_iterator entry, const Make& make)
                : _entry(entry), _make(make) {}

            auto operator*() const { return _make(*_entry); }
            Iterator& operator++() {
                ++_entry;
                return *this;
            }
            bool operator!=(const Iterator& other) const { return _entry != other._entry; }

        private:
            typename Container::const_iterator _entry;
            const Make& _make;
        };

        MadeFrom(const Container& container, Make make) : _container(container), _make(make) {}

        Iterator begin() const { return {_container.begin(), _make}; }
        Iterator end() const { return {_container.end(), _make}; }

    private:
        const Container& _container;
        Make _make;
    };

    // A map as a container of its items. `keyOf` gives the key under which an item is entered. Of several
    // items of one key the first stays.
    template <class Map, class KeyOf>
    class KeyedBy {
    public:
        using Holder = typename Map::mapped_type;

        KeyedBy(KeyOf keyOf, Map& map) : _keyOf(keyOf), _map(map) {}

        const char* Add(Holder item) {
            const auto& key = std::invoke(_keyOf, *ItemOf(item));
            const std::size_t before = _map.size();
            // Documents mostly have their items in order.
            _map.try_emplace(_map.end(), key, std::move(item));
            return _map.size() == before ? "left out, as there is one of the same key before it" : nullptr;
        }
        const Map& Range() const { return _map; }

    private:
        KeyOf _keyOf;
        Map& _map;
    };

    // ---- Items

    inline nxErrorEnum ReadItem(std::string& item, const nxXMLNode& node,
                                const nxXMLReadContext& /*context*/) {
        item = node.GetText();
        return nxErrorEnum::OK;
    }
    template <class Item>
    nxErrorEnum ReadItem(Item& item, const nxXMLNode& node, const nxXMLReadContext& context) {
        return nxXMLItem::Read(item, node, context);
    }

    inline void WriteItem(const std::string& item, nxXMLSink& sink, std::string_view name) {
        sink.Field(name, item);
    }
    template <class Item>
    void WriteItem(Item& item, nxXMLSink& sink, std::string_view name) {
        sink.Start(name);
        nxXMLItem::Write(item, sink);
        sink.End();
    }

    struct DoNothing {
        template <class... Arguments>
        void operator()(const Arguments&... /*arguments*/) const {}
    };

    // Items among the children of the element that the list is handed.
    template <class Container, class Children, class OnWrite>
    class ItemsOf {
    public:
        ItemsOf(Container& items, OnWrite onWrite) : _items(items), _onWrite(onWrite) {}

        nxErrorEnum Read(const nxXMLNode& parent, std::string_view name, const nxXMLReadContext& context) {
            if (context.notes) [[unlikely]]
                context.notes->Asks(
                    parent, {std::string(name), nxXMLNotes::Kind::Items, Children::ItemNames, false, {}});
            if constexpr (std::same_as<Children, ByNumber>)
                return ReadByNumber(parent, name, context);
            else
                return ReadInOrder(parent, name, context);
        }

        void Write(nxXMLSink& sink, std::string_view name, AfterFailure afterFailure) const {
            std::string itemName(name);
            std::size_t number = 0;
            for (auto&& entry : Access<Mutable>::Range(_items)) {
                if (afterFailure == AfterFailure::Stop && !sink.IsOK())
                    return;
                auto* const item = ItemOf(HolderOf(entry));
                if (!item)
                    continue;
                if constexpr (std::same_as<Children, ByKey>)
                    itemName.replace(name.size(), std::string::npos, entry.first);
                if constexpr (std::same_as<Children, ByNumber>) {
                    itemName.resize(name.size());
                    nxStringHelper::AppendAsString(itemName, number++);
                }
                _onWrite(itemName);
                WriteItem(*item, sink, itemName);
            }
        }

    private:
        using Mutable = std::remove_const_t<Container>;
        using Holder = typename Access<Mutable>::Holder;

        nxErrorEnum ReadOne(const nxXMLNode& node, const nxXMLNode& parent, std::string_view name,
                            const nxXMLReadContext& context) {
            auto item = NewItem<Holder>();
            const nxErrorEnum result = ReadItem(*ItemOf(item), node, context);
            const char* problem = nullptr;
            if (result.IsOK())
                problem = Add(std::move(item));
            if (context.notes) [[unlikely]]
                NoteItem(node, parent, name, *context.notes, result, problem);
            return result;
        }

        const char* Add(Holder item) {
            if constexpr (std::same_as<decltype(Access<Mutable>::Add(_items, std::move(item))), const char*>)
                return Access<Mutable>::Add(_items, std::move(item));
            else {
                Access<Mutable>::Add(_items, std::move(item));
                return nullptr;
            }
        }

        [[gnu::noinline]] static void NoteItem(const nxXMLNode& node, const nxXMLNode& parent,
                                               std::string_view name, nxXMLNotes& notes,
                                               const nxErrorEnum& result, const char* problem) {
            notes.Takes(parent, name, node, std::same_as<Holder, std::string>);
            if (result.IsOK() && !problem)
                return;
            notes.IsLeftOut(
                node, problem ? problem : "left out, as it cannot be read: " + result.GetShortDescription());
            if (!result.IsOK())
                notes.Ends(parent, "left out, as one before it cannot be read");
        }
        [[gnu::noinline]] static void NoteEnd(const nxXMLNode& parent, std::string_view name,
                                              const nxXMLReadContext& context, const char* what) {
            if (context.notes)
                context.notes->Ends(parent, "left out, as '" + std::string(name) + "' before it " + what);
        }

        nxErrorEnum ReadInOrder(const nxXMLNode& parent, std::string_view name,
                                const nxXMLReadContext& context) {
            for (nxXMLNode child = parent.GetFirstChild(); child.IsValid(); child = child.GetNext()) {
                if (!Children::IsItem(child, name)) {
                    if (!Children::EndsAtOthers)
                        continue;
                    NoteEnd(parent, child.GetName(), context, "is none, which ends the items");
                    break;
                }
                const nxErrorEnum result = ReadOne(child, parent, name, context);
                if (!result.IsOK())
                    return result;
            }
            return nxErrorEnum::OK;
        }

        nxErrorEnum ReadByNumber(const nxXMLNode& parent, std::string_view name,
                                 const nxXMLReadContext& context) {
            std::string wanted(name);
            nxXMLNode child = parent.GetFirstChild();
            std::map<std::string_view, nxXMLNode> others; // the first of each name, once one is out of order
            for (std::size_t number = 0;; ++number) {
                wanted.resize(name.size());
                nxStringHelper::AppendAsString(wanted, number);
                if (others.empty() && !child.HasName(wanted)) {
                    for (nxXMLNode other = parent.GetFirstChild(); other.IsValid(); other = other.GetNext())
                        others.try_emplace(other.GetName(), other);
                }
                if (!others.empty()) {
                    const auto found = others.find(wanted);
                    child = found != others.end() ? found->second : nxXMLNode();
                }
                if (!child.IsValid()) {
                    NoteEnd(parent, wanted, context, "is missing, which ends the items");
                    return nxErrorEnum::OK;
                }
                const nxErrorEnum result = ReadOne(child, parent, name, context);
                if (!result.IsOK())
                    return result;
                child = child.GetNext();
            }
        }

        Container& _items;
        OnWrite _onWrite;
    };

    // ---- Fields

    // What lists say of themselves to a visitor that describes a record: an instance without data is enough.
    //
    // Item: a text, or a record; Kind: which children are items, as above.
    template <class Container, class Children>
    struct ListTraits {
        using Item = std::remove_cvref_t<decltype(*ItemOf(
            std::declval<typename Access<std::remove_const_t<Container>>::Holder&>()))>;
        using Kind = Children;
    };

    // An element with the items in it, always written.
    template <class Container, class Children, class OnWrite>
    class List : public ListTraits<Container, Children> {
    public:
        static constexpr bool IsList = true;
        static constexpr bool IsInline = false;

        List(std::string_view itemName, Container& items, OnWrite onWrite)
            : _itemName(itemName), _items(items, onWrite) {}

        std::string_view GetItemName() const { return _itemName; }

        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& context) {
            return _items.Read(node, _itemName, context);
        }
        void WriteTo(nxXMLSink& sink, std::string_view name,
                     AfterFailure afterFailure = AfterFailure::GoOn) const {
            sink.Start(name);
            _items.Write(sink, _itemName, afterFailure);
            sink.End();
        }

    private:
        std::string_view _itemName;
        ItemsOf<Container, Children, OnWrite> _items;
    };

    // Items that stand among the record's own elements, under the field's name.
    template <class Container, class Children>
    class InlineList : public ListTraits<Container, Children> {
    public:
        static constexpr bool IsList = true;
        static constexpr bool IsInline = true;

        explicit InlineList(Container& items) : _items(items, {}) {}

        nxErrorEnum ReadFrom(const nxXMLNode& parent, std::string_view name,
                             const nxXMLReadContext& context) {
            return _items.Read(parent, name, context);
        }
        void WriteTo(nxXMLSink& sink, std::string_view name,
                     AfterFailure afterFailure = AfterFailure::GoOn) const {
            _items.Write(sink, name, afterFailure);
        }

    private:
        ItemsOf<Container, Children, DoNothing> _items;
    };

    // `onWrite` is told each item element's name before the item is written.
    template <class Children = Named, class Container, class OnWrite = DoNothing>
    auto ListOf(std::string_view itemName, Container&& items, OnWrite onWrite = {}) {
        return List<std::remove_reference_t<Container>, Children, OnWrite>(itemName, items, onWrite);
    }
    template <class Children = Named, class Container>
    auto Items(Container&& items) {
        return InlineList<std::remove_reference_t<Container>, Children>(items);
    }
} // namespace nxXMLFields
