// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxOrvalenPriceUsageStatistics";
    constexpr char UserID[] = "userID";
    constexpr char Item[] = "ProductStatistic";
} // namespace

nxErrorEnum nxOrvalenPriceUsageStatistics::ConvertFromXML(const std::string& xml,
                                                          const std::string& logPrefix) {
    nxXMLDocument document;
    // The message names another record; log monitoring matches it as it stands.
    const nxErrorEnum loaded =
        nxXMLConversion::Load(document, xml, {nxLogLevels::Error, SourceFile}, logPrefix,
                              "Failed to convert XML data to exchange trading horus definition "
                              "list. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxXMLElement root = document.GetRootElement();
    nxXMLFields::ReadChild(root, UserID, _userID);
    nxXMLFields::ForEachChild(root, Item, [this](nxXMLElement& child) {
        nxOrvalenPriceUsageStatisticsForProduct product;
        product.LoadFromXML(child);
        _products.insert_or_assign(product.GetProductID(), product);
    });
    return nxErrorEnum::OK;
}

nxErrorEnum nxOrvalenPriceUsageStatistics::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("OrvalenPriceStatistics", xmlOut, [this](nxXMLElement& root) {
        nxXMLFields::WriteChild(root, UserID, _userID);
        for (const auto& [productID, product] : _products) {
            nxXMLElement element = root.AddChildElement(Item);
            product.SaveToXML(element);
        }
        return nxErrorEnum::OK;
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
