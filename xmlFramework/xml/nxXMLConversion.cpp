// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLConversion.h"

#include "include/nxLogLevels.h"
#include "xmlFramework/xml/StrX.h"
#include "xmlFramework/xml/nxXMLNotCarried.h"

#include <xercesc/dom/DOMException.hpp>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLConversion";
} // namespace

nxErrorEnum nxXMLConversion::Load(nxXMLDocument& document, const std::string& xml, const nxLogSite& site,
                                  const std::string& logPrefix, const char* message) {
    const nxErrorEnum result = document.LoadFromString(xml);
    if (!result.IsOK())
        nxWriteLog(site, logPrefix, message);
    return result;
}

nxErrorEnum nxXMLConversion::Save(const std::string& rootName, std::string& xmlOut,
                                  const std::function<nxErrorEnum(nxXMLElement& root)>& fill) {
    nxXMLDocument document;
    document.CreateDocument(rootName);
    nxXMLElement root = document.GetRootElement();
    if (!root.IsValid())
        return document.SaveToString(xmlOut); // says that there is no document
    try {
        const nxErrorEnum result = fill(root);
        if (!result.IsOK())
            return result;
    } catch (const xercesc::DOMException& error) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, "Error building document '", rootName,
                   "': a name cannot be carried by XML: ", StrX(error.getMessage()).Get());
        return nxErrorEnum::XMLTextNotCarried;
    }
    return document.SaveToString(xmlOut);
}

nxXMLElement nxXMLConversion::AddNamedByData(nxXMLElement& parent, const std::string& name) {
    try {
        return parent.AddChildElement(name);
    } catch (const xercesc::DOMException&) {
        nxXMLNotCarried::Note(*parent.GetElement(), "the name '" + name + "' cannot be carried by XML");
        return {};
    }
}
