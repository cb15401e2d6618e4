// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLElement.h"

#include "core/nxStringHelper.h"
#include "xmlFramework/xml/nxXMLException.h"
#include "xmlFramework/xml/nxXMLMemory.h"
#include "xmlFramework/xml/nxXMLNotCarried.h"
#include "xmlFramework/xml/nxXMLText.h"

#include <xercesc/dom/DOM.hpp>

using namespace xercesc;

namespace {
    // The first child node, when it is of the given type (text or CDATA section).
    template <class Node>
    Node* FirstChildOfType(const DOMElement* element, DOMNode::NodeType type) {
        DOMNode* const first = element ? element->getFirstChild() : nullptr;
        return first && first->getNodeType() == type ? static_cast<Node*>(first) : nullptr;
    }

    DOMText* TextNode(const DOMElement* element) {
        return FirstChildOfType<DOMText>(element, DOMNode::TEXT_NODE);
    }

    DOMCDATASection* CDATANode(const DOMElement* element) {
        return FirstChildOfType<DOMCDATASection>(element, DOMNode::CDATA_SECTION_NODE);
    }

    template <class String>
    nxErrorEnum ReadNode(const DOMCharacterData* node, String& value) {
        const bool read = node && nxXMLTextOut::Convert({node->getData(), node->getLength()}, value);
        return read ? nxErrorEnum::OK : nxErrorEnum::ValueNotFound;
    }

    template <class String>
    nxErrorEnum ReadAttribute(const DOMElement* element, std::string_view name, String& value) {
        const nxXMLText attribute(name);
        if (!element || attribute.GetProblem())
            return nxErrorEnum::ValueNotFound;
        return nxXMLTextOut::Convert(element->getAttribute(attribute.Get()), value)
                   ? nxErrorEnum::OK
                   : nxErrorEnum::ValueNotFound;
    }

    // The first element among `node` and the siblings behind it. The DOM's own element traversal also looks
    // for the parent each time, which costs as much as parsing the element.
    DOMElement* ElementFrom(DOMNode* node) {
        while (node && node->getNodeType() != DOMNode::ELEMENT_NODE)
            node = node->getNextSibling();
        return static_cast<DOMElement*>(node);
    }

    DOMElement* ElementNamedFrom(DOMNode* node, std::string_view name) {
        DOMElement* element = ElementFrom(node);
        while (element && !nxXMLTextOut::Equals(element->getTagName(), name))
            element = ElementFrom(element->getNextSibling());
        return element;
    }

    // What leaves for a name that is none: for users of the library, and for users of the parser.
    class BadName final : public nxXMLException, public DOMException {
    public:
        BadName(std::string_view name, const DOMException& error)
            : nxXMLException("'" + std::string(name) + "' is no XML name"), DOMException(error) {}
    };

    // What `make` makes with the name.
    template <class Make>
    auto Named(std::string_view name, const Make& make) {
        try {
            return make();
        } catch (const DOMException& error) {
            throw BadName(name, error);
        }
    }

    // Hands back a node that is no longer in its document. Where there is no memory for that it stays with
    // the document's own.
    void Release(DOMNode& node) {
        try {
            node.release();
        } catch (const OutOfMemoryException&) { // NOLINT(bugprone-empty-catch)
        }
    }

    // What follows first makes all that is new and then puts it into the document, which takes no memory: so
    // a failure changes nothing.

    // A section cannot hold "]]>", so a text with it takes several, which are read as one. The serialiser
    // would split sections, too, but it drops the "]]>".
    DOMNode* CreateSections(DOMDocument& document, std::string_view value) {
        DOMNode* const sections = document.createDocumentFragment();
        for (;;) {
            const std::size_t found = value.find("]]>");
            const std::string_view piece =
                value.substr(0, found == std::string_view::npos ? found : found + 2);
            sections->appendChild(document.createCDATASection(nxXMLText(piece).Get()));
            if (found == std::string_view::npos)
                return sections;
            value.remove_prefix(piece.size());
        }
    }

    void ReplaceSections(DOMElement& element, std::string_view value) {
        DOMNode* const sections = CreateSections(*element.getOwnerDocument(), value);
        DOMNode* place = nullptr; // behind the last child
        while (DOMCDATASection* const section = CDATANode(&element)) {
            place = section->getNextSibling();
            Release(*element.removeChild(section));
        }
        element.insertBefore(sections, place);
        Release(*sections);
    }

    void ReplaceText(DOMElement& element, const char16_t* value) {
        DOMText* const text = element.getOwnerDocument()->createTextNode(value);
        if (DOMText* const before = TextNode(&element))
            Release(*element.replaceChild(text, before));
        else
            element.appendChild(text);
    }

    void ReplaceAttribute(DOMElement& element, DOMAttr* attribute, const char16_t* value) {
        attribute->setValue(value);
        if (DOMAttr* const before = element.setAttributeNode(attribute))
            Release(*before);
    }
} // namespace

nxXMLException::~nxXMLException() = default;

nxXMLElement::~nxXMLElement() = default;

nxXMLElement nxXMLElement::GetFirstChildElement() {
    if (!_element)
        return {};

    if (DOMElement* const first = ElementFrom(_element->getFirstChild()))
        _currentChild = first;
    return nxXMLElement(static_cast<DOMElement*>(_currentChild));
}

nxXMLElement nxXMLElement::GetNextChildElement() {
    if (!_element)
        return {};

    DOMElement* const next =
        ElementFrom(_currentChild ? _currentChild->getNextSibling() : _element->getFirstChild());
    _currentChild = next;
    return nxXMLElement(next);
}

nxXMLElement nxXMLElement::GetFirstChildElement(std::string_view name) {
    const nxXMLElement child = GetFirstChildElement();
    return child.HasName(name) ? child : nxXMLElement();
}

nxXMLElement nxXMLElement::GetNextChildElement(std::string_view name) {
    const nxXMLElement child = GetNextChildElement();
    return child.HasName(name) ? child : nxXMLElement();
}

bool nxXMLElement::ResetCurrentChildElementImmediatelyPriorTo(std::string_view name) {
    DOMElement* const named = _element ? ElementNamedFrom(_element->getFirstChild(), name) : nullptr;
    _currentChild = named ? named->getPreviousElementSibling() : nullptr;
    return named != nullptr;
}

nxXMLElement nxXMLElement::FindChildElement(std::string_view name) const {
    return nxXMLElement(_element ? ElementNamedFrom(_element->getFirstChild(), name) : nullptr);
}

nxXMLElement nxXMLElement::FindNextChildElement(std::string_view name, const nxXMLElement& after) const {
    if (!IsValid() || !after.IsValid() || after._element->getParentNode() != _element)
        return {};
    return nxXMLElement(ElementNamedFrom(after._element->getNextSibling(), name));
}

// False, and the document will not be saved, for a text that it cannot carry.
bool nxXMLElement::_Accept(const nxXMLText& text, const char* what) {
    if (!text.GetProblem())
        return true;
    nxXMLNotCarried::Note(*_element, std::string(what) + " cannot be carried by XML: " + text.GetProblem());
    return false;
}

nxXMLElement nxXMLElement::_AddChild(std::string_view name, const nxXMLText* value) {
    if (!_element)
        return {};
    const nxXMLText childName(name);
    if (!_Accept(childName, "a name"))
        return {};

    return nxXMLMemory::Guarded([&]() -> nxXMLElement {
        DOMDocument* const document = _element->getOwnerDocument();
        DOMElement* const child = Named(name, [&] { return document->createElement(childName.Get()); });
        nxXMLElement handle(child);
        if (value && !handle._Accept(*value, "a text")) {
            Release(*child);
            return {};
        }
        // The text first: the DOM looks through all ancestors of the node that is appended to.
        if (value)
            child->appendChild(document->createTextNode(value->Get()));
        _element->appendChild(child);
        return handle;
    });
}

nxXMLElement nxXMLElement::AddChildElement(std::string_view name) {
    return _AddChild(name, nullptr);
}

nxXMLElement nxXMLElement::AddChildElement(std::string_view name, std::string_view value) {
    const nxXMLText text(value);
    return _AddChild(name, &text);
}

nxXMLElement nxXMLElement::AddChildElement(std::string_view name, const std::wstring& value) {
    const nxXMLText text(value);
    return _AddChild(name, &text);
}

nxErrorEnum nxXMLElement::_AddChildValue(std::string_view name, const nxXMLText& value) {
    if (!_element)
        return nxErrorEnum::ValueNotFound;
    return _AddChild(name, &value).IsValid() ? nxErrorEnum::OK : nxErrorEnum::XMLTextNotCarried;
}

nxErrorEnum nxXMLElement::AddChildValue(std::string_view name, std::string_view value) {
    return _AddChildValue(name, nxXMLText(value));
}

nxErrorEnum nxXMLElement::AddChildValue(std::string_view name, const char* value) {
    return AddChildValue(name, std::string_view(value));
}

nxErrorEnum nxXMLElement::AddChildValue(std::string_view name, const std::wstring& value) {
    return _AddChildValue(name, nxXMLText(value));
}

nxErrorEnum nxXMLElement::AddChildValue(std::string_view name, long value) {
    return AddChildValue(name, std::string_view(nxStringHelper::GetAsString(value)));
}

nxErrorEnum nxXMLElement::AddChildValue(std::string_view name, const nxDecimal& value) {
    return AddChildValue(name, std::string_view(value.GetAsString('.')));
}

nxErrorEnum nxXMLElement::_SetText(const nxXMLText& value) {
    if (!_element)
        return nxErrorEnum::ValueNotFound;
    if (!_Accept(value, "a text"))
        return nxErrorEnum::XMLTextNotCarried;

    nxXMLMemory::Guarded([&] { ReplaceText(*_element, value.Get()); });
    return nxErrorEnum::OK;
}

nxErrorEnum nxXMLElement::_SetValue(std::string_view value) {
    return _SetText(nxXMLText(value));
}

nxErrorEnum nxXMLElement::SetValue(std::string_view value) {
    return _SetValue(value);
}

nxErrorEnum nxXMLElement::SetValue(const char* value) {
    return _SetValue(value);
}

nxErrorEnum nxXMLElement::SetValue(const std::wstring& value) {
    return _SetText(nxXMLText(value));
}

nxErrorEnum nxXMLElement::SetValue(const nxDecimal& value) {
    return _SetValue(value.GetAsString('.'));
}

nxErrorEnum nxXMLElement::_GetValue(std::string& value) const {
    return ReadNode(TextNode(_element), value);
}

nxErrorEnum nxXMLElement::_GetValue(std::wstring& value) const {
    return ReadNode(TextNode(_element), value);
}

nxErrorEnum nxXMLElement::GetText(std::string& value) const {
    return _GetValue(value);
}

nxErrorEnum nxXMLElement::GetValue(std::wstring& value) const {
    value.clear();
    return _GetValue(value);
}

std::string nxXMLElement::GetTextValue() const {
    std::string value;
    _GetValue(value);
    return value;
}

std::wstring nxXMLElement::GetWideTextValue() const {
    std::wstring value;
    _GetValue(value);
    return value;
}

nxErrorEnum nxXMLElement::SetCDATAValue(std::string_view value) {
    if (!_element)
        return nxErrorEnum::ValueNotFound;
    if (!_Accept(nxXMLText(value), "a CDATA section"))
        return nxErrorEnum::XMLTextNotCarried;
    if (value.find('\r') != std::string_view::npos) {
        nxXMLNotCarried::Note(*_element,
                              "a CDATA section cannot be carried by XML: it holds a carriage return, "
                              "which would be read as a line feed");
        return nxErrorEnum::XMLTextNotCarried;
    }

    nxXMLMemory::Guarded([&] { ReplaceSections(*_element, value); });
    return nxErrorEnum::OK;
}

nxErrorEnum nxXMLElement::GetCDATAValue(std::string& value) const {
    const DOMNode* node = CDATANode(_element);
    if (!node)
        return nxErrorEnum::ValueNotFound;

    std::u16string text;
    for (; node && node->getNodeType() == DOMNode::CDATA_SECTION_NODE; node = node->getNextSibling())
        text += node->getNodeValue();
    return nxXMLTextOut::Convert(text, value) ? nxErrorEnum::OK : nxErrorEnum::ValueNotFound;
}

nxErrorEnum nxXMLElement::_SetAttributeText(std::string_view name, const nxXMLText& value) {
    if (!_element)
        return nxErrorEnum::ValueNotFound;
    const nxXMLText attribute(name);
    if (!_Accept(attribute, "an attribute's name") || !_Accept(value, "an attribute's value"))
        return nxErrorEnum::XMLTextNotCarried;

    nxXMLMemory::Guarded([&] {
        DOMDocument* const document = _element->getOwnerDocument();
        ReplaceAttribute(*_element, Named(name, [&] { return document->createAttribute(attribute.Get()); }),
                         value.Get());
    });
    return nxErrorEnum::OK;
}

nxErrorEnum nxXMLElement::_SetAttribute(std::string_view name, std::string_view value) {
    return _SetAttributeText(name, nxXMLText(value));
}

nxErrorEnum nxXMLElement::SetAttribute(std::string_view name, std::string_view value) {
    return _SetAttribute(name, value);
}

nxErrorEnum nxXMLElement::SetAttribute(std::string_view name, const char* value) {
    return _SetAttribute(name, value);
}

nxErrorEnum nxXMLElement::SetAttribute(std::string_view name, const std::wstring& value) {
    return _SetAttributeText(name, nxXMLText(value));
}

nxErrorEnum nxXMLElement::SetAttribute(std::string_view name, const nxDecimal& value) {
    return _SetAttribute(name, value.GetAsString('.'));
}

nxErrorEnum nxXMLElement::_GetAttribute(std::string_view name, std::string& value) const {
    return ReadAttribute(_element, name, value);
}

nxErrorEnum nxXMLElement::GetAttribute(std::string_view name, std::string& value) const {
    return _GetAttribute(name, value);
}

nxErrorEnum nxXMLElement::GetAttribute(std::string_view name, std::wstring& value) const {
    return ReadAttribute(_element, name, value);
}

bool nxXMLElement::HasAttribute(std::string_view name) const {
    const nxXMLText attribute(name);
    return _element && !attribute.GetProblem() && _element->hasAttribute(attribute.Get());
}

unsigned int nxXMLElement::GetNumberOfAttributes() const {
    const DOMNamedNodeMap* const attributes = _element ? _element->getAttributes() : nullptr;
    return attributes ? static_cast<unsigned int>(attributes->getLength()) : 0;
}

std::string nxXMLElement::GetName() const {
    std::string name;
    if (_element)
        nxXMLTextOut::Convert(_element->getTagName(), name);
    return name;
}

bool nxXMLElement::HasName(std::string_view name) const {
    return _element && nxXMLTextOut::Equals(_element->getTagName(), name);
}
