// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// The few names of Xerces-C that public headers mention, so that no user of the library needs the parser's
// headers. nxXercesCheck.cpp fails to compile where they are not the parser's own.
namespace xercesc_3_2 {
    class DOMElement;
    class DOMNode;
} // namespace xercesc_3_2

namespace nxXerces {
    using DOMElement = xercesc_3_2::DOMElement;
    using DOMNode = xercesc_3_2::DOMNode;
} // namespace nxXerces
