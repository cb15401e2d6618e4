// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/spread/nxSyntheticSpreadOrderSpecLeg_XML.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <memory>
#include <string>
#include <vector>

// A synthetic spread order: a named set of legs. Category SPRD, document "SyntheticSpreadSpec".
class XMLFRAMEWORK_API nxSyntheticSpreadOrderSpec_XML : public nxXMLDataObject {
public:
    using Legs = std::vector<std::unique_ptr<nxSyntheticSpreadOrderSpecLeg_XML>>;

    nxSyntheticSpreadOrderSpec_XML() = default;
    nxSyntheticSpreadOrderSpec_XML(const nxSyntheticSpreadOrderSpec_XML& other);
    // Copies the legs, too. A spec that is assigned to itself loses its legs.
    nxSyntheticSpreadOrderSpec_XML& operator=(const nxSyntheticSpreadOrderSpec_XML& other);
    nxSyntheticSpreadOrderSpec_XML(nxSyntheticSpreadOrderSpec_XML&&) noexcept = default;
    nxSyntheticSpreadOrderSpec_XML& operator=(nxSyntheticSpreadOrderSpec_XML&&) noexcept = default;

    // Adds to the legs held; other fields that are missing keep their values. Legs are found by their number,
    // whatever their order in the document; the first number that is missing ends them. Malformed settings of
    // a leg are left as they were: IsValid is a step of its own.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxSyntheticSpreadOrderSpec_XML* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxSyntheticSpreadOrderSpec_XML& other) const; // in the settings of the legs, too

    // nxErrorEnum::InvalidData, with the reason in the log after `logPrefix`, for fewer than two legs and at
    // the first leg that is not valid. Whether there is a working leg is not looked at: see
    // GetWorkingLegCount.
    nxErrorEnum IsValid(const std::string& logPrefix) const;

    const std::string& GetSpecName() const { return _specName; }
    void SetSpecName(const std::string& name) { _specName = name; }
    // A null pointer among the legs is not valid; it is no leg to everything else, and is not written.
    const Legs& GetLegs() const { return _legs; }
    Legs& GetLegs() { return _legs; }
    bool GetScratchIfLegged() const { return _scratchIfLegged; }
    void SetScratchIfLegged(bool scratchIfLegged) { _scratchIfLegged = scratchIfLegged; }
    const std::string& GetExchangeDestinationOverride() const { return _exchangeDestinationOverride; }
    void SetExchangeDestinationOverride(const std::string& destination) {
        _exchangeDestinationOverride = destination;
    }

    unsigned int GetWorkingLegCount() const;
    bool ContainsAuctionModeLegs() const;

    std::string GetAsLogString() const;

private:
    struct Fields;

    static const bool _registered;

    std::string _specName;
    Legs _legs;
    bool _scratchIfLegged = false;
    std::string _exchangeDestinationOverride;
};
