// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxBrokerMap.h"

#include "core/nxDataCategoryEnum.h"
#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxBrokerMap";

    // Any child is a broker, whatever its name.
    nxErrorEnum ReadBrokers(nxXMLElement root, nxBrokerMap& brokers) {
        for (nxXMLElement child = root.GetNextChildElement(); child.IsValid();
             child = root.GetNextChildElement()) {
            std::string name;
            std::string idText;
            unsigned int id = 0;
            child.GetAttribute("name", name);
            child.GetAttribute("id", idText);
            const nxErrorEnum result = nxStringHelper::SetFromString(idText, id);
            if (!result.IsOK())
                return result;
            brokers.SetBrokerIDAndName(id, name);
        }
        return nxErrorEnum::OK;
    }
} // namespace

const bool nxBrokerMap::_registered = nxXMLDataObject::_Register(new nxBrokerMap);

nxErrorEnum nxBrokerMap::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    nxXMLDocument document;
    nxErrorEnum result = document.LoadFromString(xml);
    if (result.IsOK())
        result = ReadBrokers(document.GetRootElement(), *this);
    if (result.IsOK())
        return result;

    // The same message, whatever went wrong.
    nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix,
               "Failed to convert XML data to broker map. Unable to create XML document from XML string");
    return nxErrorEnum::InvalidData;
}

nxErrorEnum nxBrokerMap::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("BrokerMap", xmlOut, [this](nxXMLElement& root) {
        for (const auto& [id, name] : _namesByID) {
            nxXMLElement broker = root.AddChildElement("Broker");
            broker.SetAttribute("name", std::string_view(name));
            broker.SetAttribute("id",
                                std::string_view(nxStringHelper::GetAsString(static_cast<unsigned int>(id))));
        }
        return nxErrorEnum::OK;
    });
}

nxUnsignedValueWrapper nxBrokerMap::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::BrokerMap;
}

nxXMLDataObject* nxBrokerMap::CreateInstance() const {
    return new nxBrokerMap;
}

nxBrokerMap* nxBrokerMap::CopyInstance() const {
    return new nxBrokerMap(*this);
}

nxUnsignedValueWrapper nxBrokerMap::GetBrokerID(const std::string& name) const {
    const auto entry = _idsByName.find(name);
    return entry != _idsByName.end() ? entry->second : nxUnsignedValueWrapper();
}

std::string nxBrokerMap::GetBroker(const nxUnsignedValueWrapper& id) const {
    const auto entry = _namesByID.find(id);
    return entry != _namesByID.end() ? entry->second : std::string();
}

void nxBrokerMap::SetBrokerIDAndName(const nxUnsignedValueWrapper& id, const std::string& name) {
    _idsByName[name] = id;
    _namesByID[id] = name;
}
