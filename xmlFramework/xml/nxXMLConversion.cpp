// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLConversion.h"

#include "xmlFramework/xml/nxXMLNotCarried.h"

#include <xercesc/dom/DOMException.hpp>

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
    nxErrorEnum result = document.CreateDocument(rootName);
    if (!result.IsOK())
        return result;

    nxXMLElement root = document.GetRootElement();
    result = fill(root);
    if (result.IsOK() || result == nxErrorEnum(nxErrorEnum::XMLTextNotCarried))
        return document.SaveToString(xmlOut); // which says what could not be carried
    return result;
}

nxXMLElement nxXMLConversion::AddNamedByData(nxXMLElement& parent, const std::string& name) {
    try {
        return parent.AddChildElement(name);
    } catch (const xercesc::DOMException&) {
        nxXMLNotCarried::Note(*parent.GetElement(), "the name '" + name + "' cannot be carried by XML");
        return {};
    }
}
