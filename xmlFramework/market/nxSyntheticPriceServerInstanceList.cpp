// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticPriceServerInstanceList";

    // A child without a text is no instance.
    template <class Texts>
    class InstanceTexts {
    public:
        using Holder = std::string;

        explicit InstanceTexts(Texts& texts) : _texts(texts) {}

        const char* Add(std::string text) {
            if (text.empty())
                return "it has no text";
            _texts.push_back(std::move(text));
            return nullptr;
        }
        const Texts& Range() const { return _texts; }

    private:
        Texts& _texts;
    };

    // Every child with a text is an instance, whatever its name. One that cannot be written is logged.
    template <class Instances>
    class InstancesField {
    public:
        static constexpr bool IsList = true;

        explicit InstancesField(Instances& instances) : _instances(instances) {}

        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& context) {
            return GetList().ReadFrom(node, context);
        }
        void WriteTo(nxXMLSink& sink, std::string_view name) const {
            sink.Start(name);
            for (const std::string& instance : _instances.Range()) {
                sink.Field(ItemName, instance);
                if (!sink.IsOK())
                    return nxWriteLog(
                        {nxLogLevels::Error, SourceFile},
                        "Failed to add synthetic price server instance as child element to XML document. "
                        "Synthetic price server instance: ",
                        instance);
            }
            sink.End();
        }
        auto GetList() { return nxXMLFields::ListOf<nxXMLFields::Any>(ItemName, _instances); }
        auto GetList() const { return nxXMLFields::ListOf<nxXMLFields::Any>(ItemName, _instances); }

    private:
        static constexpr const char* ItemName = "Instance";

        InstanceTexts<Instances> _instances;
    };
} // namespace

struct nxSyntheticPriceServerInstanceList::Fields {
    static constexpr const char* Root = "SyntheticPriceServerInstanceList";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("SyntheticPriceServerInstances", InstancesField(record._instances));
    }
};

const bool nxSyntheticPriceServerInstanceList::_registered =
    nxXMLDataObject::_Register(new nxSyntheticPriceServerInstanceList);

nxErrorEnum nxSyntheticPriceServerInstanceList::ConvertFromXML(const std::string& xml,
                                                               const std::string& logPrefix) {
    // The message names another record; log monitoring matches it as it stands.
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         logPrefix,
         "Failed to convert XML data to spread spec. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& context) {
            return nxXMLFields::ReadInDocumentOrder(root, context,
                                                    [this](auto& field) { Fields::Visit(*this, field); });
        });
}

nxErrorEnum nxSyntheticPriceServerInstanceList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxSyntheticPriceServerInstanceList::GetDocumentDescription() {
    const nxSyntheticPriceServerInstanceList none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxSyntheticPriceServerInstanceList::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::SyntheticPriceServerInstanceList;
}

nxXMLDataObject* nxSyntheticPriceServerInstanceList::CreateInstance() const {
    return new nxSyntheticPriceServerInstanceList;
}

nxSyntheticPriceServerInstanceList* nxSyntheticPriceServerInstanceList::CopyInstance() const {
    return new nxSyntheticPriceServerInstanceList(*this);
}

nxErrorEnum nxSyntheticPriceServerInstanceList::IsValid() const {
    return nxErrorEnum::OK;
}
