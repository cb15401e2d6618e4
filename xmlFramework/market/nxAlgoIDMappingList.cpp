// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxAlgoIDMappingList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <set>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxAlgoIDMappingList";

    // A path that is empty is there all the same.
    class PathField {
    public:
        PathField(std::string_view& path, bool& isThere) : _path(path), _isThere(isThere) {}

        void AppendText(std::string& text) const { text += _path; }
        static nxXMLValueDescription DescribeValue() { return {}; } // a text
        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& /*context*/) {
            _isThere = true;
            _path = node.GetText();
            return nxErrorEnum::OK;
        }

    private:
        std::string_view& _path;
        bool& _isThere;
    };

    // An ID without a text, or with a malformed one, is none.
    class IDField {
    public:
        explicit IDField(nxUnsignedValueWrapper& id) : _id(id) {}

        void AppendText(std::string& text) const { nxXMLFields::AppendText(text, _id); }
        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& /*context*/) {
            return nxXMLFields::NullIfMalformed(_id).FromText(node.GetText());
        }
        static nxXMLValueDescription DescribeValue() {
            return nxXMLFields::NullIfMalformed<nxUnsignedValueWrapper>::DescribeValue();
        }

    private:
        nxUnsignedValueWrapper& _id;
    };

    // One mapping as its document holds it. The path is a view of the document, or of the list.
    struct AlgoMapping {
        std::string_view path;
        bool hasPath = false;
        nxUnsignedValueWrapper id;

        template <class Visitor>
        void Visit(Visitor&& field) {
            field("AlgoPath", PathField(path, hasPath), nxXMLFields::Key());
            field("AlgoID", IDField(id));
        }
        nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context) {
            return nxXMLFields::ReadInDocumentOrder(node, context, [this](auto& field) { Visit(field); });
        }
        void _Write(nxXMLSink& sink) { Visit(nxXMLFields::Writer(sink)); }
        static std::vector<nxXMLFieldDescription> _Describe() {
            return nxXMLFields::Describe([none = AlgoMapping()](auto& field) mutable { none.Visit(field); });
        }
    };

    // Takes the mappings of a document one by one and leaves out those that break the one-to-one rule.
    class MappingList {
    public:
        using Holder = AlgoMapping;

        explicit MappingList(nxAlgoIDMappingList::Mappings& mappings) : _mappings(mappings) {}

        const char* Add(const AlgoMapping& mapping) {
            if (!mapping.hasPath)
                return Refuse({nxLogLevels::Error, SourceFile}, "Algo path element was not found");
            if (!mapping.id.IsValid())
                return Refuse({nxLogLevels::Error, SourceFile},
                              "Algo ID is not specified or is not a valid number");
            std::string path(mapping.path);
            if (_mappings.contains(path))
                return Refuse({nxLogLevels::Error, SourceFile}, "Algo path is duplicate",
                              ". Algo path: ", path);
            if (!_ids.insert(mapping.id).second)
                return Refuse({nxLogLevels::Error, SourceFile}, "Algo ID is duplicate",
                              ". Algo ID: ", mapping.id);
            _mappings.emplace(std::move(path), mapping.id);
            return nullptr;
        }
        auto Range() const {
            return nxXMLFields::MadeFrom(_mappings, [](const auto& entry) {
                return AlgoMapping{entry.first, true, entry.second};
            });
        }

    private:
        template <class... Pieces>
        static const char* Refuse(const nxLogSite& site, const char* reason, const Pieces&... pieces) {
            nxWriteLog(site, "Failed to create algo mapping from XML element. ", reason, pieces...);
            return reason;
        }

        nxAlgoIDMappingList::Mappings& _mappings;
        std::set<unsigned int> _ids; // of this document
    };

    struct Fields {
        static constexpr const char* Root = "AlgoIDMappingList";

        template <class Visitor>
        static void Visit(MappingList& mappings, Visitor&& field) {
            field("AlgoIDMappings", nxXMLFields::ListOf("AlgoMapping", mappings));
        }
    };
} // namespace

const bool nxAlgoIDMappingList::_registered = nxXMLDataObject::_Register(new nxAlgoIDMappingList);

nxErrorEnum nxAlgoIDMappingList::ConvertFromXML(const std::string& xml, const std::string& logPrefix) {
    _mappings.clear();

    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         logPrefix,
         "Failed to convert XML data to algo mapping list. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& context) {
            MappingList mappings(_mappings);
            return nxXMLFields::ReadInDocumentOrder(
                root, context, [&mappings](auto& field) { Fields::Visit(mappings, field); });
        });
}

nxErrorEnum nxAlgoIDMappingList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(Fields::Root, xmlOut, [this](nxXMLSink& sink) {
        MappingList mappings(_mappings);
        Fields::Visit(mappings, nxXMLFields::Writer(sink));
    });
}

nxXMLDescription nxAlgoIDMappingList::GetDocumentDescription() {
    Mappings none;
    MappingList mappings(none);
    return {Fields::Root,
            nxXMLFields::Describe([&mappings](auto& field) { Fields::Visit(mappings, field); })};
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
