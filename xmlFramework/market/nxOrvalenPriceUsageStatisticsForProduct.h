// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// Counts of one product's price data objects and price updates, and of those among them that nobody observed.
// Counters wrap.
class XMLFRAMEWORK_API nxOrvalenPriceUsageStatisticsForProduct {
public:
    const std::string& GetProductID() const { return _productID; }
    void SetProductID(const std::string& productID) { _productID = productID; }
    unsigned int GetNoOfPriceDataObjects() const { return _noOfPriceDataObjects; }
    void SetNoOfPriceDataObjects(unsigned int count) { _noOfPriceDataObjects = count; }
    unsigned int GetNoOfUnobservedPriceDataObjects() const { return _noOfUnobservedPriceDataObjects; }
    void SetNoOfUnobservedPriceDataObjects(unsigned int count) { _noOfUnobservedPriceDataObjects = count; }
    unsigned long long GetNoOfPriceUpdates() const { return _noOfPriceUpdates; }
    void SetNoOfPriceUpdates(unsigned long long count) { _noOfPriceUpdates = count; }
    unsigned long long GetNoOfPriceUpdatesForUnobservedProducts() const {
        return _noOfPriceUpdatesForUnobservedProducts;
    }
    void SetNoOfPriceUpdatesForUnobservedProducts(unsigned long long count) {
        _noOfPriceUpdatesForUnobservedProducts = count;
    }

    bool operator==(const nxOrvalenPriceUsageStatisticsForProduct&) const = default;

    // The counts as child elements of `element`. Reading leaves a count that is missing or malformed as it
    // was.
    void SaveToXML(nxXMLElement& element) const;
    void LoadFromXML(nxXMLElement& element);

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    std::string _productID;
    unsigned int _noOfPriceDataObjects = 0;
    unsigned int _noOfUnobservedPriceDataObjects = 0;
    unsigned long long _noOfPriceUpdates = 0;
    unsigned long long _noOfPriceUpdatesForUnobservedProducts = 0;
};
