// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDOMTree.h"

#include "xmlFramework/xml/nxXMLText.h"
#include "xmlFramework/xml/nxXMLTree.h"

#include <xercesc/dom/DOM.hpp>

#include <string>
#include <vector>

using namespace xercesc;

namespace {
    // Copies one element after another; elements may be nested more deeply than a stack could follow.
    class Filler {
    public:
        explicit Filler(nxXMLTree& tree) : _tree(tree) {}

        void Fill(const DOMElement& root) {
            AddElement(root);
            for (const DOMNode* node = root.getFirstChild(); !_open.empty();) {
                if (!node) {
                    node = _open.back().source->getNextSibling();
                    _open.pop_back();
                    if (_open.empty())
                        return;
                } else if (node->getNodeType() == DOMNode::ELEMENT_NODE) {
                    AddElement(static_cast<const DOMElement&>(*node));
                    node = node->getFirstChild();
                } else
                    node = node->getNextSibling();
            }
        }

    private:
        struct Open {
            const DOMElement* source;
            nxXMLTree::Element* element;
            nxXMLTree::Element* lastChild;
        };

        void AddElement(const DOMElement& source) {
            nxXMLTree::Element* const element =
                _open.empty() ? _tree.AddElement(nullptr, nullptr, Kept(source.getTagName()))
                              : _tree.AddElement(_open.back().element, _open.back().lastChild,
                                                 Kept(source.getTagName()));
            if (!_open.empty())
                _open.back().lastChild = element;
            AddText(*element, source.getFirstChild());
            if (source.hasAttributes())
                AddAttributes(*element, *source.getAttributes());
            _open.push_back({&source, element, nullptr});
        }

        void AddText(nxXMLTree::Element& element, const DOMNode* firstChild) {
            if (!firstChild || firstChild->getNodeType() != DOMNode::TEXT_NODE)
                return;
            const auto* const text = static_cast<const DOMText*>(firstChild);
            if (nxXMLTextOut::Convert({text->getData(), text->getLength()}, _converted))
                nxXMLTree::SetText(element, _tree.Keep(_converted));
        }

        void AddAttributes(nxXMLTree::Element& element, const DOMNamedNodeMap& attributes) {
            nxXMLTree::Attribute* last = nullptr;
            for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
                const DOMNode& attribute = *attributes.item(i);
                const std::string_view name = Kept(attribute.getNodeName());
                last = _tree.AddAttribute(element, last, name, Kept(attribute.getNodeValue()));
            }
        }

        // Empty for what is no valid UTF-16, which a parser does not produce.
        std::string_view Kept(const XMLCh* text) {
            return nxXMLTextOut::Convert(text, _converted) ? _tree.Keep(_converted) : std::string_view();
        }

        nxXMLTree& _tree;
        std::vector<Open> _open; // the innermost last
        std::string _converted;
    };
} // namespace

void nxXMLDOMTree::Fill(nxXMLTree& tree, const nxXerces::DOMElement* root) {
    tree.Clear();
    if (root)
        Filler(tree).Fill(*root);
}
