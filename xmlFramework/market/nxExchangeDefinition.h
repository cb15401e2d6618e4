// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// One trading venue or price venue known to the platform.
class XMLFRAMEWORK_API nxExchangeDefinition {
public:
    nxExchangeDefinition() = default; // no role, everything empty
    nxExchangeDefinition(const nxExchangeDefinition&) = default;
    nxExchangeDefinition& operator=(const nxExchangeDefinition&) = default;
    nxExchangeDefinition(nxExchangeDefinition&&) noexcept = default;
    nxExchangeDefinition& operator=(nxExchangeDefinition&&) noexcept = default;
    virtual ~nxExchangeDefinition();
    bool operator==(const nxExchangeDefinition&) const = default;

    // nxErrorEnum::InvalidData when the mnemonic is empty.
    virtual nxErrorEnum IsValid() const;

    const std::string& GetMnemonic() const { return _mnemonic; }      // the venue's short code
    const std::vector<std::string>& GetMICs() const { return _mics; } // ISO 10383
    const std::string& GetDescription() const { return _description; }
    bool IsExchange() const { return _isExchange; }
    bool IsPriceSource() const { return _isPriceSource; }
    bool IsOrderDestination() const { return _isOrderDestination; }
    const std::vector<std::string>& GetPriceStreams() const { return _priceStreams; } // names

    void SetMnemonic(const std::string& mnemonic) { _mnemonic = mnemonic; }
    void SetMICs(const std::vector<std::string>& mics) { _mics = mics; }
    void SetDescription(const std::string& description) { _description = description; }
    void SetIsExchange(bool isExchange) { _isExchange = isExchange; }
    void SetIsPriceSource(bool isPriceSource) { _isPriceSource = isPriceSource; }
    void SetIsOrderDestination(bool isOrderDestination) { _isOrderDestination = isOrderDestination; }
    void SetPriceStreams(const std::vector<std::string>& names) { _priceStreams = names; }

    // The record as child elements of `element`, the item element of the list. Reading takes each child into
    // the field of its name, and leaves a field without a well-formed child as it was; a "MICs" or
    // "PriceStreams" child replaces the whole list. Lists stand as one text, separated by commas: an item
    // that holds a comma, or blanks at its ends, does not come back the same. Always OK; the second argument
    // is ignored.
    nxErrorEnum ConvertFromXML(nxXMLElement& element, const std::string& logPrefix);
    nxErrorEnum ConvertToXML(nxXMLElement& element, const std::string& logPrefix) const;

    std::string GetAsLogString() const;

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    std::string _mnemonic;
    std::vector<std::string> _mics;
    std::string _description;
    bool _isExchange = false;
    bool _isPriceSource = false;
    bool _isOrderDestination = false;
    std::vector<std::string> _priceStreams;
};
