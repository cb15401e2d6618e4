// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticPriceServerInstanceList";

    // Every child with a text is an instance, whatever its name. One that cannot be written is logged.
    template <class Instances>
    class InstancesField {
    public:
        static constexpr bool IsList = true;

        explicit InstancesField(Instances& instances) : _instances(instances) {}

        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& /*context*/) {
            for (nxXMLNode child = node.GetFirstChild(); child.IsValid(); child = child.GetNext()) {
                if (child.HasText())
                    _instances.emplace_back(child.GetText());
            }
            return nxErrorEnum::OK;
        }
        void WriteTo(nxXMLSink& sink, std::string_view name) const {
            sink.Start(name);
            for (const std::string& instance : _instances) {
                sink.Field("Instance", instance);
                if (!sink.IsOK())
                    return nxWriteLog(
                        {nxLogLevels::Error, SourceFile},
                        "Failed to add synthetic price server instance as child element to XML document. "
                        "Synthetic price server instance: ",
                        instance);
            }
            sink.End();
        }

    private:
        Instances& _instances;
    };
} // namespace

struct nxSyntheticPriceServerInstanceList::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("SyntheticPriceServerInstances", InstancesField(record._instances));
    }
};

const bool nxSyntheticPriceServerInstanceList::_registered =
    nxXMLDataObject::_Register(new nxSyntheticPriceServerInstanceList);

nxErrorEnum nxSyntheticPriceServerInstanceList::ConvertFromXML(const std::string& xml,
                                                               const std::string& logPrefix) {
    nxXMLTree tree;
    // The message names another record; log monitoring matches it as it stands.
    const nxErrorEnum loaded = nxXMLConversion::Load(
        tree, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
        "Failed to convert XML data to spread spec. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    return nxXMLFields::ReadInDocumentOrder(tree.GetRoot(), {logPrefix},
                                            [this](auto& field) { Fields::Visit(*this, field); });
}

nxErrorEnum nxSyntheticPriceServerInstanceList::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("SyntheticPriceServerInstanceList", xmlOut, [this](nxXMLSink& sink) {
        Fields::Visit(*this, nxXMLFields::Writer(sink));
    });
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
