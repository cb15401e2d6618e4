// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

// What the lists have in common that keep items under a key and write each as an element "<prefix><key>".
// Private to the library.
//
// Items are held by shared ownership: assigning a list shares its items, and neither list can destroy what
// the other still uses.
template <class Item>
struct nxKeyedItems {
    using Map = std::map<std::string, std::shared_ptr<Item>>; // in byte order of the keys

    static Map Copy(const Map& items) {
        Map copies;
        for (const auto& [key, item] : items)
            copies.emplace_hint(copies.end(), key, std::make_shared<Item>(*item));
        return copies;
    }

    // The first result in key order that is not OK.
    static nxErrorEnum Validate(const Map& items) {
        for (const auto& [key, item] : items) {
            const nxErrorEnum result = item->IsValid();
            if (!result.IsOK())
                return result;
        }
        return nxErrorEnum::OK;
    }

    // Writes the container, always, and in it the items. `onItem` is told each item element's name before the
    // item is written into it.
    template <class OnItem>
    static void Write(const Map& items, nxXMLElement& root, std::string_view container,
                      const std::string& prefix, OnItem onItem) {
        nxXMLElement list = root.AddChildElement(container);
        for (const auto& [key, item] : items) {
            const std::string name = prefix + key;
            nxXMLElement element = nxXMLConversion::AddNamedByData(list, name);
            onItem(name);
            item->ConvertToXML(element, std::string());
        }
    }

    // Adds the items of every container of that name, each under the key that it gives itself, whatever
    // stands in its element's name; an item held already stays. The first child that is no item element ends
    // its container. A failure of an item is returned, with the items before it added.
    template <class KeyOf>
    static nxErrorEnum Read(Map& items, const nxXMLElement& root, std::string_view container,
                            std::string_view prefix, const std::string& logPrefix, KeyOf keyOf) {
        nxErrorEnum result;
        nxXMLFields::ForEachChild(root, container, [&](const nxXMLElement& child) {
            if (result.IsOK())
                result = ReadContainer(items, child, prefix, logPrefix, keyOf);
        });
        return result;
    }

private:
    template <class KeyOf>
    static nxErrorEnum ReadContainer(Map& items, nxXMLElement container, std::string_view prefix,
                                     const std::string& logPrefix, KeyOf keyOf) {
        for (nxXMLElement child = container.GetNextChildElement(); IsItem(child, prefix);
             child = container.GetNextChildElement()) {
            auto item = std::make_shared<Item>();
            const nxErrorEnum result = item->ConvertFromXML(child, logPrefix);
            if (!result.IsOK())
                return result;
            const std::string& key = keyOf(*item);
            items.try_emplace(key, std::move(item));
        }
        return nxErrorEnum::OK;
    }

    static bool IsItem(const nxXMLElement& element, std::string_view prefix) {
        const std::string name = element.GetName();
        return name.size() > prefix.size() && name.starts_with(prefix);
    }
};
