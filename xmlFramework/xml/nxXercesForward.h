// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// The few names of Xerces-C that public headers mention, so that no user of the library needs the parser's
// headers. nxXercesCheck.cpp fails to compile where they are not the parser's own.
//
// The parser's namespace has its version in it. Where that is not 3.2, the library's CMake package and its
// pkg-config file bring the definition.
#ifndef XMLFRAMEWORK_XERCES_NAMESPACE
#define XMLFRAMEWORK_XERCES_NAMESPACE xercesc_3_2
#endif

namespace XMLFRAMEWORK_XERCES_NAMESPACE {
    class DOMElement;
    class DOMNode;
} // namespace XMLFRAMEWORK_XERCES_NAMESPACE

namespace nxXerces {
    using DOMElement = XMLFRAMEWORK_XERCES_NAMESPACE::DOMElement;
    using DOMNode = XMLFRAMEWORK_XERCES_NAMESPACE::DOMNode;
} // namespace nxXerces
