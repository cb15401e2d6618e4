// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <algorithm>
#include <functional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticSpreadOrderSpec_XML";

    // The legs, with a message about one that could not be read: those before it are there.
    template <class Legs>
    class LegsField {
    public:
        static constexpr bool IsList = true;

        explicit LegsField(Legs& legs) : _legs(legs) {}

        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& context) {
            const std::size_t before = _legs.size();
            const nxErrorEnum result = GetList().ReadFrom(node, context);
            if (!result.IsOK())
                nxWriteLog({nxLogLevels::Error, SourceFile}, context.logPrefix,
                           "Failed to convert XML data to spread spec. Failed to convert leg #",
                           static_cast<unsigned int>(_legs.size() - before), " from XML element");
            return result;
        }
        void WriteTo(nxXMLSink& sink, std::string_view name) const { GetList().WriteTo(sink, name); }
        auto GetList() const { return nxXMLFields::ListOf<nxXMLFields::ByNumber>("Leg-", _legs); }

    private:
        Legs& _legs;
    };

    // Users may leave null pointers among the legs.
    template <class IsWanted>
    auto CountLegs(const nxSyntheticSpreadOrderSpec_XML::Legs& legs, IsWanted isWanted) {
        return std::ranges::count_if(legs, [isWanted](const auto& leg) { return leg && isWanted(*leg); });
    }
} // namespace

struct nxSyntheticSpreadOrderSpec_XML::Fields {
    static constexpr const char* Root = "SyntheticSpreadSpec";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("SpecName", record._specName);
        field("Legs", LegsField(record._legs));
        field("ScratchIfLegged", record._scratchIfLegged);
        field("ExchDest", record._exchangeDestinationOverride);
    }
};

const bool nxSyntheticSpreadOrderSpec_XML::_registered =
    nxXMLDataObject::_Register(new nxSyntheticSpreadOrderSpec_XML);

nxSyntheticSpreadOrderSpec_XML::nxSyntheticSpreadOrderSpec_XML(const nxSyntheticSpreadOrderSpec_XML& other)
    : nxXMLDataObject(other) {
    *this = other;
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): a spec that is assigned to itself loses its legs
nxSyntheticSpreadOrderSpec_XML&
nxSyntheticSpreadOrderSpec_XML::operator=(const nxSyntheticSpreadOrderSpec_XML& other) {
    _specName = other._specName;
    _scratchIfLegged = other._scratchIfLegged;
    _exchangeDestinationOverride = other._exchangeDestinationOverride;
    _legs.clear();
    for (const auto& leg : other._legs)
        _legs.push_back(leg ? std::make_unique<nxSyntheticSpreadOrderSpecLeg_XML>(*leg) : nullptr);
    return *this;
}

bool nxSyntheticSpreadOrderSpec_XML::operator==(const nxSyntheticSpreadOrderSpec_XML& other) const {
    const auto areSame = [](const auto& leg, const auto& otherLeg) {
        return leg && otherLeg ? *leg == *otherLeg : leg == otherLeg;
    };
    return _specName == other._specName && std::ranges::equal(_legs, other._legs, areSame) &&
           _scratchIfLegged == other._scratchIfLegged &&
           _exchangeDestinationOverride == other._exchangeDestinationOverride;
}

nxErrorEnum nxSyntheticSpreadOrderSpec_XML::ConvertFromXML(const std::string& xml,
                                                           const std::string& logPrefix) {
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

nxErrorEnum nxSyntheticSpreadOrderSpec_XML::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxSyntheticSpreadOrderSpec_XML::GetDocumentDescription() {
    const nxSyntheticSpreadOrderSpec_XML none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxSyntheticSpreadOrderSpec_XML::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::SyntheticSpreadOrderSpec;
}

nxXMLDataObject* nxSyntheticSpreadOrderSpec_XML::CreateInstance() const {
    return new nxSyntheticSpreadOrderSpec_XML;
}

nxSyntheticSpreadOrderSpec_XML* nxSyntheticSpreadOrderSpec_XML::CopyInstance() const {
    return new nxSyntheticSpreadOrderSpec_XML(*this);
}

nxErrorEnum nxSyntheticSpreadOrderSpec_XML::IsValid(const std::string& logPrefix) const {
    if (_legs.size() < 2) {
        nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix, "Spec must contain at least 2 legs");
        return nxErrorEnum::InvalidData;
    }
    for (const auto& leg : _legs) {
        if (!leg)
            nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix, "A leg is missing");
        if (!leg || !leg->IsValid(logPrefix))
            return nxErrorEnum::InvalidData;
    }
    return nxErrorEnum::OK;
}

unsigned int nxSyntheticSpreadOrderSpec_XML::GetWorkingLegCount() const {
    return static_cast<unsigned int>(
        CountLegs(_legs, std::mem_fn(&nxSyntheticSpreadOrderSpecLeg_XML::GetWorkingLeg)));
}

bool nxSyntheticSpreadOrderSpec_XML::ContainsAuctionModeLegs() const {
    return CountLegs(_legs, std::mem_fn(&nxSyntheticSpreadOrderSpecLeg_XML::GetIsAuctionModeLeg)) > 0;
}

std::string nxSyntheticSpreadOrderSpec_XML::GetAsLogString() const {
    std::string legs;
    std::size_t count = 0;
    for (const auto& leg : _legs) {
        if (leg)
            legs += ", Leg #: " + std::to_string(count++) + leg->GetAsLogString();
    }
    std::string text = "Leg count: " + std::to_string(count) + legs;
    text += ", Scratch if legged: " + nxStringHelper::GetAsString(_scratchIfLegged);
    text += ", Exchange destination override: " + _exchangeDestinationOverride;
    return text;
}
