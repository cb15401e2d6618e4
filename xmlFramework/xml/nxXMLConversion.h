// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <functional>
#include <string>

// What the whole-document conversions of all records have in common. Private to the library.
namespace nxXMLConversion {
    // Loads `xml` into the fresh `document`. On failure logs the prefix and the record's message, and returns
    // the document's result.
    nxErrorEnum Load(nxXMLDocument& document, const std::string& xml, const nxLogSite& site,
                     const std::string& logPrefix, const char* message);

    // Makes a document, lets `fill` add to its root element, and saves it to `xmlOut`, which is untouched on
    // failure. A failure of `fill` is returned and nothing is saved. Names made of data go through
    // AddNamedByData.
    nxErrorEnum Save(const std::string& rootName, std::string& xmlOut,
                     const std::function<nxErrorEnum(nxXMLElement& root)>& fill);

    // Appends an element whose name is made of data. A name that is no XML name gives an invalid handle, and
    // the document refuses to be saved.
    nxXMLElement AddNamedByData(nxXMLElement& parent, const std::string& name);
} // namespace nxXMLConversion
