// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxOrvalenPriceUsageStatisticsForProduct.h"

#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

struct nxOrvalenPriceUsageStatisticsForProduct::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("productID", record._productID, nxXMLFields::Key());
        field("noOfPriceUpdates", record._noOfPriceUpdates);
        field("noOfPriceDataObjects", record._noOfPriceDataObjects);
        field("noOfUnobservedPriceDataObjects", record._noOfUnobservedPriceDataObjects);
        field("noOfPriceUpdatesForUnobservedProducts", record._noOfPriceUpdatesForUnobservedProducts);
    }
};

nxErrorEnum nxOrvalenPriceUsageStatisticsForProduct::_Read(const nxXMLNode& node,
                                                           const nxXMLReadContext& context) {
    return nxXMLFields::ReadFirst(node, context, [this](auto& field) { Fields::Visit(*this, field); })
        .GetResult();
}

void nxOrvalenPriceUsageStatisticsForProduct::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxOrvalenPriceUsageStatisticsForProduct::_Describe() {
    const nxOrvalenPriceUsageStatisticsForProduct none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

void nxOrvalenPriceUsageStatisticsForProduct::SaveToXML(nxXMLElement& element) const {
    nxXMLConversion::WriteElement(*this, element); // whose document remembers what it could not carry
}

void nxOrvalenPriceUsageStatisticsForProduct::LoadFromXML(nxXMLElement& element) {
    nxXMLConversion::ReadElement(*this, element, std::string());
}
