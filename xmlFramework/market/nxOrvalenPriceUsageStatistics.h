// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogLevelEnum.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatisticsForProduct.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <map>
#include <string>

// How one user uses prices, product by product. Category OPUS, document "OrvalenPriceStatistics". The
// category registry does not know this record: make it by its constructor.
class XMLFRAMEWORK_API nxOrvalenPriceUsageStatistics : public nxXMLDataObject {
public:
    using Products = std::map<std::string, nxOrvalenPriceUsageStatisticsForProduct>; // by product ID

    // Adds to the products held; of several of one product ID the later stays.
    [[nodiscard]] nxErrorEnum ConvertFromXML(const std::string& xml, const std::string& logPrefix) override;
    [[nodiscard]] nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) override;
    nxUnsignedValueWrapper GetDataCategoryTypeID() override;
    nxXMLDataObject* CreateInstance() const override;
    nxOrvalenPriceUsageStatistics* CopyInstance() const override;
    // What the documents look like.
    static nxXMLDescription GetDocumentDescription();
    using nxXMLDataObject::CreateInstance;

    bool operator==(const nxOrvalenPriceUsageStatistics& other) const {
        return _userID == other._userID && _products == other._products;
    }

    // nxErrorEnum::InvalidRecord when the user ID is null or no change. The products are not looked at.
    virtual nxErrorEnum IsValid() const;

    const nxUnsignedValueWrapper& GetUserID() const { return _userID; } // null unless set
    void SetUserID(const nxUnsignedValueWrapper& userID) { _userID = userID; }
    const Products& GetProducts() const { return _products; }
    Products& GetProducts() { return _products; }

    // Counts one price data object of the product, with its updates.
    void AddStatisticForProduct(const std::string& productID, unsigned long long noOfUpdates, bool observed);

    // Logs the user at `level`, and each product at nxLogLevelEnum::Debug, whatever `level` is.
    void Dump(const nxLogLevelEnum& level) const;

private:
    struct Fields;

    nxUnsignedValueWrapper _userID;
    Products _products;
};
