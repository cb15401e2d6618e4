// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxAlgoIDMappingList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <set>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxAlgoIDMappingList";

    struct AlgoMapping {
        bool hasPath = false;
        std::string path;
        nxUnsignedValueWrapper id;
    };

    AlgoMapping ReadMapping(const nxXMLElement& element) {
        AlgoMapping mapping;
        nxXMLFields::ForEachChild(element, [&mapping](const nxXMLElement& child) {
            if (child.HasName("AlgoPath")) {
                mapping.hasPath = true;
                mapping.path = child.GetTextValue(); // an empty path is a path
            } else if (child.HasName("AlgoID")) {
                unsigned int id = nxUnsignedValueWrapper::NullValue;
                nxXMLFields::ReadValue(child, id);
                mapping.id = id;
            }
        });
        return mapping;
    }

    // Takes the mappings of a document one by one and leaves out those that break the one-to-one rule.
    class MappingCollector {
    public:
        explicit MappingCollector(nxAlgoIDMappingList::Mappings& mappings) : _mappings(mappings) {}

        void Add(const AlgoMapping& mapping) {
            constexpr const char* Failure = "Failed to create algo mapping from XML element. ";
            if (!mapping.hasPath)
                nxWriteLog({nxLogLevels::Error, SourceFile}, Failure, "Algo path element was not found");
            else if (!mapping.id.IsValid())
                nxWriteLog({nxLogLevels::Error, SourceFile}, Failure,
                           "Algo ID is not specified or is not a valid number");
            else if (_mappings.contains(mapping.path))
                nxWriteLog({nxLogLevels::Error, SourceFile}, Failure,
                           "Algo path is duplicate. Algo path: ", mapping.path);
            else if (!_ids.insert(mapping.id).second)
                nxWriteLog({nxLogLevels::Error, SourceFile}, Failure,
                           "Algo ID is duplicate. Algo ID: ", mapping.id);
            else
                _mappings.emplace(mapping.path, mapping.id);
        }

    private:
        nxAlgoIDMappingList::Mappings& _mappings;
        std::set<unsigned int> _ids;
    };
} // namespace

const bool nxAlgoIDMappingList::_registered = nxXMLDataObject::_Register(new nxAlgoIDMappingList);

nxErrorEnum nxAlgoIDMappingList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    _mappings.clear();

    nxXMLDocument document;
    const nxErrorEnum loaded = nxXMLConversion::Load(
        document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
        "Failed to convert XML data to algo mapping list. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    MappingCollector collector(_mappings);
    nxXMLFields::ForEachChild(document.GetRootElement(), "AlgoIDMappings", [&](const nxXMLElement& list) {
        nxXMLFields::ForEachChild(list, "AlgoMapping", [&collector](const nxXMLElement& mapping) {
            collector.Add(ReadMapping(mapping));
        });
    });
    return nxErrorEnum::OK;
}

nxErrorEnum nxAlgoIDMappingList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("AlgoIDMappingList", xmlOut, [this](nxXMLElement& root) {
        nxXMLElement container = root.AddChildElement("AlgoIDMappings");
        for (const auto& [path, id] : _mappings) {
            nxXMLElement mapping = container.AddChildElement("AlgoMapping");
            nxXMLFields::WriteChild(mapping, "AlgoPath", path);
            nxXMLFields::WriteChild(mapping, "AlgoID", id);
        }
        return nxErrorEnum::OK;
    });
}

nxUnsignedValueWrapper nxAlgoIDMappingList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::AlgoIDMappingList;
}

nxXMLDataObject* nxAlgoIDMappingList::CreateInstance() const {
    return new nxAlgoIDMappingList;
}

nxAlgoIDMappingList* nxAlgoIDMappingList::CopyInstance() const {
    return new nxAlgoIDMappingList(*this);
}

nxErrorEnum nxAlgoIDMappingList::IsValid() const {
    return nxErrorEnum::OK;
}
