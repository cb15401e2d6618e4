// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLTreeParser.h"

#include "xmlFramework/xml/nxXMLText.h"

#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>

#include <algorithm>

using namespace xercesc;

nxXMLTreeParser::nxXMLTreeParser(nxXMLTree& tree, std::string_view text) : _tree(tree), _text(text) {
    _tree.SetSource(text);
    setCalculateSrcOfs(true);
}

// Empty for what is no valid UTF-16, which a parser does not produce.
std::string_view nxXMLTreeParser::_Kept(const XMLCh* text) {
    return nxXMLTextOut::Convert(text, _converted) ? _tree.Keep(_converted) : std::string_view();
}

// The name of the element whose start tag has just been read: where it stands in the text, which tells its
// place, when the parser knows.
std::string_view nxXMLTreeParser::_Name(const XMLCh* name) {
    const auto behindTag = static_cast<std::size_t>(getSrcOffset());
    const std::size_t tag = behindTag == 0 ? std::string_view::npos : _text.rfind('<', behindTag - 1);
    if (tag != std::string_view::npos && nxXMLTextOut::Convert(name, _converted)) {
        const std::string_view found = _text.substr(tag + 1, _converted.size());
        if (found == _converted)
            return found;
    }
    return _Kept(name);
}

void nxXMLTreeParser::startElement(const XMLElementDecl& declaration, unsigned int urlID, const XMLCh* prefix,
                                   const RefVectorOf<XMLAttr>& attributes, XMLSize_t attributeCount,
                                   bool isEmpty, bool isRoot) {
    _TakeOtherChild();
    const std::string_view name = _Name(declaration.getFullName());
    nxXMLTree::Element* const element =
        _open.empty() ? _tree.AddElement(nullptr, nullptr, name)
                      : _tree.AddElement(_open.back().element, _open.back().lastChild, name);
    if (!_open.empty())
        _open.back().lastChild = element;

    nxXMLTree::Attribute* last = nullptr;
    for (XMLSize_t i = 0; i < attributeCount; ++i) {
        const XMLAttr& attribute = *attributes.elementAt(i);
        const std::string_view attributeName = _Kept(attribute.getQName());
        last = _tree.AddAttribute(*element, last, attributeName, _Kept(attribute.getValue()));
    }
    _open.push_back({element, nullptr, First::None});
    if (isEmpty)
        endElement(declaration, urlID, isRoot, prefix);
}

void nxXMLTreeParser::endElement(const XMLElementDecl& /*declaration*/, unsigned int /*urlID*/,
                                 bool /*isRoot*/, const XMLCh* /*prefix*/) {
    _EndFirstText();
    _open.pop_back();
}

void nxXMLTreeParser::docCharacters(const XMLCh* text, XMLSize_t length, bool isCDATA) {
    if (isCDATA)
        _TakeOtherChild();
    if (_open.empty())
        return;
    if (_open.back().first == First::Other) {
        if (_tree.WatchesLostTexts() && nxXMLTextOut::Convert({text, length}, _converted))
            _tree.AddLostText(*_open.back().element, _tree.Keep(_converted));
        return;
    }
    _open.back().first = First::Text;
    if (nxXMLTextOut::Convert({text, length}, _converted))
        _firstText += _converted;
}

void nxXMLTreeParser::docComment(const XMLCh* /*comment*/) {
    _TakeOtherChild();
}

void nxXMLTreeParser::docPI(const XMLCh* /*target*/, const XMLCh* /*data*/) {
    _TakeOtherChild();
}

void nxXMLTreeParser::_EndFirstText() {
    if (_open.empty() || _open.back().first != First::Text)
        return;
    nxXMLTree::SetText(*_open.back().element, _tree.Keep(_firstText));
    _firstText.clear();
}

void nxXMLTreeParser::_TakeOtherChild() {
    _EndFirstText();
    if (!_open.empty())
        _open.back().first = First::Other;
}
