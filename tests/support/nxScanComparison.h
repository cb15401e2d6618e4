// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLScanner.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

// What the scanner makes of a text, held against what the parser makes of it. Without log devices, please:
// the parser says why it refuses.
namespace nxScanComparison {
    enum class Verdict {
        BothTake,
        OnlyParserTakes,
        NeitherTakes,
        Wrong, // the scanner takes what the parser refuses, or sees something else in it
    };

    inline void PrintTo(Verdict verdict, std::ostream* stream) {
        constexpr const char* Names[] = {"both take it", "only the parser takes it", "neither takes it",
                                         "wrong"};
        *stream << Names[static_cast<std::size_t>(verdict)];
    }

    // Names, texts and attributes.
    inline bool IsSame(nxXMLNode node, const nxXMLElement& element) {
        std::string expected;
        if (node.GetName() != element.GetName() || node.HasText() != element.GetText(expected).IsOK() ||
            node.GetText() != expected)
            return false;

        // The parser lets no name stand twice, so that no attribute of its own is missed.
        unsigned int count = 0;
        bool same = true;
        node.ForEachAttribute([&](std::string_view name, std::string_view value) {
            ++count;
            same = same && element.HasAttribute(name) && element.GetAttribute(name, expected).IsOK() &&
                   value == expected;
        });
        return same && count == element.GetNumberOfAttributes();
    }

    // An element with all that is in it, at any depth.
    inline bool IsSameTree(nxXMLNode root, const nxXMLElement& rootElement) {
        std::vector<std::pair<nxXMLNode, nxXMLElement>> open; // the child that comes next, and its parent
        if (!IsSame(root, rootElement))
            return false;
        open.emplace_back(root.GetFirstChild(), rootElement);
        while (!open.empty()) {
            auto& [next, parent] = open.back();
            const nxXMLNode child = next;
            const nxXMLElement element = parent.GetNextChildElement();
            if (child.IsValid() != element.IsValid() || (child.IsValid() && !IsSame(child, element)))
                return false;
            next = child.GetNext();
            if (child.IsValid())
                open.emplace_back(child.GetFirstChild(), element);
            else
                open.pop_back();
        }
        return true;
    }

    inline Verdict Compare(const std::string& xml) {
        nxXMLTree tree;
        const bool scanned = nxXMLScanner::Fill(tree, xml);
        nxXMLDocument document;
        const bool parsed = document.LoadFromString(xml).IsOK();
        if (scanned)
            return parsed && IsSameTree(tree.GetRoot(), document.GetRootElement()) ? Verdict::BothTake
                                                                                   : Verdict::Wrong;
        if (tree.GetRoot().IsValid())
            return Verdict::Wrong;
        return parsed ? Verdict::OnlyParserTakes : Verdict::NeitherTakes;
    }
} // namespace nxScanComparison
