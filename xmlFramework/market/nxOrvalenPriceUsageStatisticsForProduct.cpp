// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxOrvalenPriceUsageStatisticsForProduct.h"

#include "xmlFramework/xml/nxXMLFields.h"

struct nxOrvalenPriceUsageStatisticsForProduct::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("productID", record._productID);
        field("noOfPriceUpdates", record._noOfPriceUpdates);
        field("noOfPriceDataObjects", record._noOfPriceDataObjects);
        field("noOfUnobservedPriceDataObjects", record._noOfUnobservedPriceDataObjects);
        field("noOfPriceUpdatesForUnobservedProducts", record._noOfPriceUpdatesForUnobservedProducts);
    }
};

void nxOrvalenPriceUsageStatisticsForProduct::SaveToXML(nxXMLElement& element) const {
    Fields::Visit(*this, nxXMLFields::Writer(element));
}

void nxOrvalenPriceUsageStatisticsForProduct::LoadFromXML(nxXMLElement& element) {
    Fields::Visit(*this, nxXMLFields::Reader(element));
}
