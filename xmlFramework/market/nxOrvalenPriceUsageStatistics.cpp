// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxOrvalenPriceUsageStatistics";

    // Of several products of one ID the later stays.
    template <class Products>
    class ProductList {
    public:
        using Holder = nxOrvalenPriceUsageStatisticsForProduct;

        explicit ProductList(Products& products) : _products(products) {}

        const char* Add(Holder product) {
            const std::string& productID = product.GetProductID();
            return _products.insert_or_assign(productID, std::move(product)).second
                       ? nullptr
                       : "read in place of one of the same ID before it";
        }
        const Products& Range() const { return _products; }

    private:
        Products& _products;
    };
} // namespace

struct nxOrvalenPriceUsageStatistics::Fields {
    static constexpr const char* Root = "OrvalenPriceStatistics";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("userID", record._userID);
        field("ProductStatistic", nxXMLFields::Items(ProductList(record._products)));
    }
};

nxErrorEnum nxOrvalenPriceUsageStatistics::ConvertFromXML(const std::string& xml,
                                                          const std::string& logPrefix) {
    // The message names another record; log monitoring matches it as it stands.
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         logPrefix,
         "Failed to convert XML data to exchange trading horus definition "
         "list. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& context) {
            nxXMLFields::ReadFirst(root, context, [this](auto& field) { Fields::Visit(*this, field); });
            return nxErrorEnum::OK;
        });
}

nxErrorEnum nxOrvalenPriceUsageStatistics::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

nxXMLDescription nxOrvalenPriceUsageStatistics::GetDocumentDescription() {
    const nxOrvalenPriceUsageStatistics none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
}

nxUnsignedValueWrapper nxOrvalenPriceUsageStatistics::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::OrvalenPriceUsageStatistics;
}

nxXMLDataObject* nxOrvalenPriceUsageStatistics::CreateInstance() const {
    return new nxOrvalenPriceUsageStatistics;
}

nxOrvalenPriceUsageStatistics* nxOrvalenPriceUsageStatistics::CopyInstance() const {
    return new nxOrvalenPriceUsageStatistics(*this);
}

nxErrorEnum nxOrvalenPriceUsageStatistics::IsValid() const {
    return _userID.IsValid() ? nxErrorEnum::OK : nxErrorEnum::InvalidRecord;
}

void nxOrvalenPriceUsageStatistics::AddStatisticForProduct(const std::string& productID,
                                                           unsigned long long noOfUpdates, bool observed) {
    const auto [entry, isNew] = _products.try_emplace(productID);
    nxOrvalenPriceUsageStatisticsForProduct& product = entry->second;
    if (isNew)
        product.SetProductID(productID);
    product.SetNoOfPriceDataObjects(product.GetNoOfPriceDataObjects() + 1);
    product.SetNoOfPriceUpdates(product.GetNoOfPriceUpdates() + noOfUpdates);
    if (observed)
        return;
    product.SetNoOfUnobservedPriceDataObjects(product.GetNoOfUnobservedPriceDataObjects() + 1);
    product.SetNoOfPriceUpdatesForUnobservedProducts(product.GetNoOfPriceUpdatesForUnobservedProducts() +
                                                     noOfUpdates);
}

void nxOrvalenPriceUsageStatistics::Dump(const nxLogLevelEnum& level) const {
    nxWriteLog({level, SourceFile}, "Usage statistics for userID: ", _userID);
    for (const auto& [productID, product] : _products)
        nxWriteLog(
            {nxLogLevels::Debug, SourceFile}, productID, " objectCount: ", product.GetNoOfPriceDataObjects(),
            " noPriceUpdates: ", product.GetNoOfPriceUpdates(),
            " unobservedObjectCount: ", product.GetNoOfUnobservedPriceDataObjects(),
            " noUpdatesForUnobservedDataObjects: ", product.GetNoOfPriceUpdatesForUnobservedProducts());
}
