// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXercesForward.h"

#include <xercesc/dom/DOM.hpp>

#include <type_traits>

static_assert(std::is_same_v<nxXerces::DOMElement, xercesc::DOMElement>);
static_assert(std::is_same_v<nxXerces::DOMNode, xercesc::DOMNode>);
static_assert(std::is_same_v<XMLCh, char16_t>, "text is handed to the parser as char16_t");
