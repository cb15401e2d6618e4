// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxKeyedHash.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <string>
#include <unordered_map>

// The platform's brokers: numeric IDs and names, looked up both ways. Category BROK, document "BrokerMap".
class XMLFRAMEWORK_API nxBrokerMap : public nxXMLDataObject {
public:
    using BrokerIDMap = std::map<nxUnsignedValueWrapper, std::string>; // in order of the IDs

    nxBrokerMap() = default;
    nxBrokerMap(const nxBrokerMap&) = default;
    nxBrokerMap(nxBrokerMap&&) noexcept = default;
    nxBrokerMap& operator=(const nxBrokerMap& other) {
        return *this = nxBrokerMap(other);
    } // both maps or none
    nxBrokerMap& operator=(nxBrokerMap&&) noexcept = default;
    ~nxBrokerMap() override = default;

    // Adds to what the map holds, as SetBrokerIDAndName does. nxErrorEnum::InvalidData also for a broker
    // without a valid ID: it ends the reading, and those before it stay.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxBrokerMap* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxBrokerMap& other) const {
        return _idsByName == other._idsByName && _namesByID == other._namesByID;
    }

    const BrokerIDMap& GetBrokerIDMap() const { return _namesByID; }
    nxUnsignedValueWrapper GetBrokerID(const std::string& name) const; // null for an unknown name
    std::string GetBroker(const nxUnsignedValueWrapper& id) const;     // empty for an unknown ID
    // Stores each under the other. Nothing is ever removed: a name or an ID that another one took over is
    // still found under its own key.
    void SetBrokerIDAndName(const nxUnsignedValueWrapper& id, const std::string& name);

private:
    struct Fields;
    class Brokers;

    struct IsNew {
        bool id;
        bool name;
    };
    IsNew _Set(const nxUnsignedValueWrapper& id, std::string name);

    static const bool _registered;

    std::unordered_map<std::string, nxUnsignedValueWrapper, nxKeyedHash> _idsByName;
    BrokerIDMap _namesByID;
};
