// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What a program may load and unload that knows nothing of the library; see unloadAndLoad.cpp.

#include "xmlFramework/market/nxMICDefinitionList.h"

#include <memory>
#include <string>

extern "C" __attribute__((visibility("default"))) bool nxPluginConvert();

extern "C" bool nxPluginConvert() {
    constexpr char Xml[] = "<MICDefinitionList><MICDefinitions/></MICDefinitionList>";
    nxMICDefinitionList list;
    std::string written;
    return list.ConvertFromXML(Xml, "").IsOK() && list.ConvertToXML(written, "").IsOK() && written == Xml;
}

extern "C" __attribute__((visibility("default"))) bool nxPluginCreate(unsigned int code);

extern "C" bool nxPluginCreate(unsigned int code) {
    const std::unique_ptr<nxXMLDataObject> record(nxXMLDataObject::CreateInstance(code));
    return record && record->GetDataCategoryTypeID() == code;
}
