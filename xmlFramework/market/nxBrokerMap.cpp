// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxBrokerMap.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxBrokerMap";

    // The name is a view of the document, or of the map.
    struct Broker {
        unsigned int id = 0;
        std::string_view name;

        // By name, as the parser keeps attributes: documents have always had them in this order.
        template <class Visitor>
        void Visit(Visitor&& field) {
            field("id", nxXMLFields::Required(nxXMLFields::Attribute(id)));
            field("name", nxXMLFields::Attribute(name));
        }
        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context) {
            nxXMLFields::Reader reader(node, context);
            Visit(reader);
            return reader.GetResult();
        }
        void _Write(nxXMLSink& sink) { Visit(nxXMLFields::Writer(sink)); }
    };
} // namespace

// The map as a list of brokers.
class nxBrokerMap::Brokers {
public:
    using Holder = Broker;

    explicit Brokers(nxBrokerMap& map) : _map(map) {}

    void Reserve(std::size_t count) { _map._idsByName.reserve(_map._idsByName.size() + count); }
    // As SetBrokerIDAndName does; documents mostly have their brokers in order.
    void Add(const Broker& broker) {
        std::string name(broker.name);
        _map._namesByID.insert_or_assign(_map._namesByID.end(), broker.id, name);
        _map._idsByName.insert_or_assign(std::move(name), broker.id);
    }
    auto Range() const {
        return nxXMLFields::MadeFrom(_map._namesByID, [](const auto& entry) {
            return Broker{entry.first, entry.second};
        });
    }

private:
    nxBrokerMap& _map;
};

struct nxBrokerMap::Fields {
    template <class Visitor>
    static void Visit(nxBrokerMap& record, Visitor&& field) {
        field("Broker", nxXMLFields::Items<nxXMLFields::Any>(Brokers(record)));
    }
};

const bool nxBrokerMap::_registered = nxXMLDataObject::_Register(new nxBrokerMap);

nxErrorEnum nxBrokerMap::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    constexpr const char* Failure =
        "Failed to convert XML data to broker map. Unable to create XML document from XML string";
    nxXMLTree tree;
    const nxErrorEnum loaded =
        nxXMLConversion::Load(tree, xml, {nxLogLevels::Error, SourceFile}, logPrefix, Failure);
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxXMLReadContext context{logPrefix};
    nxXMLFields::Reader reader(tree.GetRoot(), context);
    Fields::Visit(*this, reader);
    if (reader.GetResult().IsOK())
        return nxErrorEnum::OK;
    // The same message, whatever went wrong.
    nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix, Failure);
    return nxErrorEnum::InvalidData;
}

nxErrorEnum nxBrokerMap::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        "BrokerMap", xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
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
