// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/xml/nxXMLTree.h"

#include <xercesc/parsers/DOMLSParserImpl.hpp>

#include <string>
#include <vector>

// The platform's parser, in every word and verdict, filling a tree instead of building its DOM, whose making
// takes most of the time that parsing takes.
//
// A text is the element's first child node as in the DOM: character data and references run together,
// comments, instructions and CDATA sections stand apart.
class nxXMLTreeParser final : public xercesc::DOMLSParserImpl {
public:
    // The tree is empty. The text is the one that will be parsed, in UTF-8, and outlives the tree.
    nxXMLTreeParser(nxXMLTree& tree, std::string_view text);

    void startElement(const xercesc::XMLElementDecl& declaration, unsigned int urlID, const XMLCh* prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, XMLSize_t attributeCount,
                      bool isEmpty, bool isRoot) override;
    void endElement(const xercesc::XMLElementDecl& declaration, unsigned int urlID, bool isRoot,
                    const XMLCh* prefix) override;
    void docCharacters(const XMLCh* text, XMLSize_t length, bool isCDATA) override;
    void docComment(const XMLCh* comment) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;

private:
    // What the first child node of an element is, as far as has been read.
    enum class First { None, Text, Other };

    struct Open {
        nxXMLTree::Element* element;
        nxXMLTree::Element* lastChild;
        First first;
    };

    std::string_view _Name(const XMLCh* name);
    std::string_view _Kept(const XMLCh* text);
    void _EndFirstText();
    void _TakeOtherChild();

    nxXMLTree& _tree;
    std::string_view _text;
    std::vector<Open> _open; // the innermost last
    std::string _firstText;  // of the innermost element
    std::string _converted;
};
