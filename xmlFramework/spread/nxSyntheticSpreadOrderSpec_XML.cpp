// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <algorithm>
#include <unordered_map>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticSpreadOrderSpec_XML";

    using Legs = nxSyntheticSpreadOrderSpec_XML::Legs;

    std::string LegName(std::size_t index) {
        return "Leg-" + std::to_string(index);
    }

    // The legs as elements "Leg-0", "Leg-1" and so on. Keeps the failure of a leg that could not be read.
    class LegsField {
    public:
        LegsField(Legs& legs, const std::string& logPrefix) : _legs(legs), _logPrefix(logPrefix) {}

        const nxErrorEnum& GetResult() const { return _result; }

        nxErrorEnum ReadFrom(const nxXMLElement& element) {
            if (!_result.IsOK())
                return _result;
            std::unordered_map<std::string, nxXMLElement> elements; // the first of each name
            nxXMLFields::ForEachChild(element, [&elements](const nxXMLElement& child) {
                elements.try_emplace(child.GetName(), child);
            });
            for (std::size_t i = 0; _result.IsOK(); ++i) {
                const auto found = elements.find(LegName(i));
                if (found == elements.end())
                    break;
                _result = ReadLeg(found->second, i);
            }
            return _result;
        }

    private:
        nxErrorEnum ReadLeg(nxXMLElement& element, std::size_t index) {
            auto leg = std::make_unique<nxSyntheticSpreadOrderSpecLeg_XML>();
            const nxErrorEnum result = leg->ConvertFromXML(element, _logPrefix);
            if (result.IsOK())
                _legs.push_back(std::move(leg));
            else
                nxWriteLog({nxLogLevels::Error, SourceFile}, _logPrefix,
                           "Failed to convert XML data to spread spec. Failed to convert leg #",
                           static_cast<unsigned int>(index), " from XML element");
            return result;
        }

        Legs& _legs;
        const std::string& _logPrefix;
        nxErrorEnum _result;
    };
} // namespace

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
        _legs.push_back(std::make_unique<nxSyntheticSpreadOrderSpecLeg_XML>(*leg));
    return *this;
}

nxErrorEnum nxSyntheticSpreadOrderSpec_XML::ConvertFromXML(const std::string& xml,
                                                           const std::string& logPrefix) {
    nxXMLDocument document;
    const nxErrorEnum loaded = nxXMLConversion::Load(
        document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
        "Failed to convert XML data to spread spec. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    LegsField legs(_legs, logPrefix);
    nxXMLFields::ReadInDocumentOrder(document.GetRootElement(), [this, &legs](auto& field) {
        field("SpecName", _specName);
        field("Legs", legs);
        field("ScratchIfLegged", _scratchIfLegged);
        field("ExchDest", _exchangeDestinationOverride);
    });
    return legs.GetResult();
}

nxErrorEnum nxSyntheticSpreadOrderSpec_XML::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("SyntheticSpreadSpec", xmlOut, [this](nxXMLElement& root) {
        nxXMLFields::WriteChild(root, "SpecName", _specName);
        nxXMLElement legs = root.AddChildElement("Legs");
        for (std::size_t i = 0; i < _legs.size(); ++i) {
            nxXMLElement element = legs.AddChildElement(LegName(i));
            _legs[i]->ConvertToXML(element, std::string());
        }
        nxXMLFields::WriteChild(root, "ScratchIfLegged", _scratchIfLegged);
        nxXMLFields::WriteChild(root, "ExchDest", _exchangeDestinationOverride);
        return nxErrorEnum::OK;
    });
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
    const bool valid = std::ranges::all_of(_legs, [&](const auto& leg) { return leg->IsValid(logPrefix); });
    return valid ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
}

unsigned int nxSyntheticSpreadOrderSpec_XML::GetWorkingLegCount() const {
    return static_cast<unsigned int>(
        std::ranges::count_if(_legs, [](const auto& leg) { return leg->GetWorkingLeg(); }));
}

bool nxSyntheticSpreadOrderSpec_XML::ContainsAuctionModeLegs() const {
    return std::ranges::any_of(_legs, [](const auto& leg) { return leg->GetIsAuctionModeLeg(); });
}

std::string nxSyntheticSpreadOrderSpec_XML::GetAsLogString() const {
    std::string text = "Leg count: " + std::to_string(_legs.size());
    for (std::size_t i = 0; i < _legs.size(); ++i)
        text += ", Leg #: " + std::to_string(i) + _legs[i]->GetAsLogString();
    text += ", Scratch if legged: " + nxStringHelper::GetAsString(_scratchIfLegged);
    text += ", Exchange destination override: " + _exchangeDestinationOverride;
    return text;
}
