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
            field("id", nxXMLFields::Required(nxXMLFields::Attribute(id)), nxXMLFields::Key());
            field("name", nxXMLFields::Attribute(name));
        }
        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context) {
            return nxXMLFields::ReadFirst(node, context, [this](auto& field) { Visit(field); }).GetResult();
        }
        void _Write(nxXMLSink& sink) { Visit(nxXMLFields::Writer(sink)); }
        static std::vector<nxXMLFieldDescription> _Describe() {
            return nxXMLFields::Describe([none = Broker()](auto& field) mutable { none.Visit(field); });
        }
    };
} // namespace

// The map as a list of brokers.
class nxBrokerMap::Brokers {
public:
    using Holder = Broker;

    explicit Brokers(nxBrokerMap& map) : _map(map) {}

    // As SetBrokerIDAndName does; documents mostly have their brokers in order.
    const char* Add(const Broker& broker) {
        const IsNew isNew = _map._Set(broker.id, std::string(broker.name));
        if (!isNew.id)
            return "read in place of one of the same ID before it";
        return isNew.name ? nullptr : "its name is found under this ID, not under one before it";
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
    static constexpr const char* Root = "BrokerMap";

    template <class Visitor>
    static void Visit(nxBrokerMap& record, Visitor&& field) {
        field("Broker", nxXMLFields::Items<nxXMLFields::Any>(Brokers(record)));
    }
};

const bool nxBrokerMap::_registered = nxXMLDataObject::_Register(new nxBrokerMap);

nxErrorEnum nxBrokerMap::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    static constexpr const char* Failure =
        "Failed to convert XML data to broker map. Unable to create XML document from XML string";
    return nxXMLConversion::ReadDocument(
        xml, {Fields::Root, {nxLogLevels::Error, SourceFile}, logPrefix, Failure},
        [this, &logPrefix](const nxXMLNode& root, const nxXMLReadContext& context) {
            if (nxXMLFields::ReadFirst(root, context, [this](auto& field) { Fields::Visit(*this, field); })
                    .GetResult()
                    .IsOK())
                return nxErrorEnum::OK;
            // The same message, whatever went wrong.
            nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix, Failure);
            return nxErrorEnum::InvalidData;
        });
}

nxErrorEnum nxBrokerMap::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxBrokerMap::GetDocumentDescription() {
    nxBrokerMap none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
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
    _Set(id, name);
}

// In both maps or in none: what asks for memory comes before what changes them.
nxBrokerMap::IsNew nxBrokerMap::_Set(const nxUnsignedValueWrapper& id, std::string name) {
    BrokerIDMap made;
    made.emplace(id, name);
    const bool isNewName = _idsByName.insert_or_assign(std::move(name), id).second;
    const std::size_t countBefore = _namesByID.size();
    auto node = made.extract(made.begin());
    const auto entry = _namesByID.insert(_namesByID.end(), std::move(node));
    const bool isNewID = _namesByID.size() != countBefore;
    if (!isNewID)
        entry->second = std::move(node.mapped()); // NOLINT(bugprone-use-after-move): the map did not take it
    return {isNewID, isNewName};
}
