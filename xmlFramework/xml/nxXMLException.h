// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/nxXMLFrameworkExport.h"

#include <stdexcept>

// What nxXMLElement throws for the name of a child or an attribute that is no XML name, such as "Leg 1":
// what() says the name. Nothing else of the library throws it. The object thrown is the parser's own
// exception as well, for programs that catch that.
class XMLFRAMEWORK_API nxXMLException : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
    nxXMLException(const nxXMLException&) = default;
    nxXMLException& operator=(const nxXMLException&) = default;
    ~nxXMLException() override;
};
