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

        void Add(Holder product) {
            const std::string& productID = product.GetProductID();
            _products.insert_or_assign(productID, std::move(product));
        }
        const Products& Range() const { return _products; }

    private:
        Products& _products;
    };
} // namespace

struct nxOrvalenPriceUsageStatistics::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("userID", record._userID);
        field("ProductStatistic", nxXMLFields::Items(ProductList(record._products)));
    }
};

nxErrorEnum nxOrvalenPriceUsageStatistics::ConvertFromXML(const std::string& xml,
                                                          const std::string& logPrefix) {
    nxXMLTree tree;
    // The message names another record; log monitoring matches it as it stands.
    const nxErrorEnum loaded =
        nxXMLConversion::Load(tree, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
                              "Failed to convert XML data to exchange trading horus definition "
                              "list. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxXMLReadContext context{logPrefix};
    Fields::Visit(*this, nxXMLFields::Reader(tree.GetRoot(), context));
    return nxErrorEnum::OK;
}

nxErrorEnum nxOrvalenPriceUsageStatistics::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("OrvalenPriceStatistics", xmlOut, [this](nxXMLSink& sink) {
        Fields::Visit(*this, nxXMLFields::Writer(sink));
    });
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
