// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"

#include "tests/support/nxRecordText.h"

#include <limits>
#include <vector>

namespace {
    using namespace nxRecordText;
    using Strings = std::vector<std::string>;

    // A product with its updates, its objects and those that nobody observes, and the latter's updates.
    std::string Product(const std::string& id, const std::string& updates, const std::string& objects,
                        const std::string& unobserved, const std::string& updatesOfUnobserved) {
        return Element("ProductStatistic",
                       Element("productID", id) +
                           Elements("noOfPriceUpdates=" + updates + " noOfPriceDataObjects=" + objects +
                                    " noOfUnobservedPriceDataObjects=" + unobserved +
                                    " noOfPriceUpdatesForUnobservedProducts=" + updatesOfUnobserved));
    }
    std::string Document(const std::string& userID, const std::string& products) {
        return Element("OrvalenPriceStatistics", Element("userID", userID) + products);
    }
} // namespace

TEST(nxOrvalenPriceUsageStatisticsAddStatisticForProduct, CountsPerProductAndWraps) {
    nxOrvalenPriceUsageStatistics statistics;
    statistics.AddStatisticForProduct("b", 7, false);
    statistics.AddStatisticForProduct("A", 5, true);
    statistics.AddStatisticForProduct("A", 3, false);
    statistics.AddStatisticForProduct("", 0, true);
    const std::string others = Product("", "0", "1", "0", "0") + Product("A", "8", "2", "1", "3");
    EXPECT_EQ(Written(statistics), Document("4294967295", others + Product("b", "7", "1", "1", "7")));

    auto& product = statistics.GetProducts()["b"];
    product.SetNoOfPriceDataObjects(std::numeric_limits<unsigned int>::max());
    product.SetNoOfUnobservedPriceDataObjects(std::numeric_limits<unsigned int>::max());
    product.SetNoOfPriceUpdatesForUnobservedProducts(2);
    statistics.AddStatisticForProduct("b", std::numeric_limits<unsigned long long>::max(), false);
    EXPECT_EQ(Written(statistics), Document("4294967295", others + Product("b", "6", "0", "0", "1")));
}

TEST(nxOrvalenPriceUsageStatisticsIsValid, WantsAUser) {
    nxOrvalenPriceUsageStatistics statistics;
    EXPECT_EQ(statistics.IsValid(), nxErrorEnum::InvalidRecord);
    statistics.SetUserID(nxNoChangeInitalizer());
    EXPECT_EQ(statistics.IsValid(), nxErrorEnum::InvalidRecord);
    statistics.SetUserID(0);
    EXPECT_EQ(statistics.IsValid(), nxErrorEnum::OK);
}

TEST(nxOrvalenPriceUsageStatisticsDump, LogsTheUserAtTheGivenLevelAndTheProductsAtDebug) {
    nxOrvalenPriceUsageStatistics statistics;
    statistics.AddStatisticForProduct("B", 5, true);
    statistics.AddStatisticForProduct("A", 18'000'000'000'000'000'000ULL, false);
    const std::string user = "Usage statistics for userID: NULL";
    const std::string a = "A objectCount: 1 noPriceUpdates: 18000000000000000000 unobservedObjectCount: 1 "
                          "noUpdatesForUnobservedDataObjects: 18000000000000000000";
    const std::string b = "B objectCount: 1 noPriceUpdates: 5 unobservedObjectCount: 0 "
                          "noUpdatesForUnobservedDataObjects: 0";
    const struct {
        nxLogLevelEnum threshold;
        nxLogLevelEnum level;
        Strings atLevel;
        Strings atDebug;
    } cases[] = {
        {nxLogLevelEnum::Trace, nxLogLevelEnum::Notice, {user}, {a, b}},
        {nxLogLevelEnum::Debug, nxLogLevelEnum::Trace, {}, {a, b}},
        {nxLogLevelEnum::Info, nxLogLevelEnum::Error, {user}, {}},
    };
    for (const auto& [threshold, level, atLevel, atDebug] : cases) {
        const nxCollectedLog log(threshold);
        statistics.Dump(level);
        EXPECT_EQ(log.EntriesAt(level), atLevel);
        EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Debug), atDebug);
        EXPECT_EQ(log.Records().size(), atLevel.size() + atDebug.size());
        for (const CollectedRecord& record : log.Records())
            EXPECT_EQ(record.sourceFile, "xmlFramework/trunk/nxOrvalenPriceUsageStatistics");
    }
}

TEST(nxOrvalenPriceUsageStatisticsConvertFromXML, TakesWhatIsWellFormedAndTheLaterOfOneProduct) {
    const std::string held = Product("A", "5", "1", "0", "0");
    const struct {
        std::string children;
        std::string written;
    } cases[] = {
        {"<userID>x</userID><userID>8</userID><ProductStatistic/>",
         Document("7", Product("", "0", "0", "0", "0") + held)},
        {Product("B", "-1", "4294967296", "2", "18446744073709551615") + "text<x/><userID>8</userID>",
         Document("8", held + Product("B", "0", "0", "2", "18446744073709551615"))},
        {Product("A", "1", "1", "1", "1") + Element("ProductStatistic", Elements("productID=A")) +
             Element("productStatistic", Elements("productID=B")),
         Document("7", Product("A", "0", "0", "0", "0"))},
    };
    for (const auto& [children, written] : cases) {
        nxOrvalenPriceUsageStatistics statistics;
        statistics.SetUserID(7);
        statistics.AddStatisticForProduct("A", 5, true);
        Read(statistics, Element("any", children));
        EXPECT_EQ(Written(statistics), written) << children;
        for (const auto& [productID, product] : statistics.GetProducts())
            EXPECT_EQ(product.GetProductID(), productID);
    }
}

TEST(nxOrvalenPriceUsageStatisticsForProduct, IsReadFromAnElementAndWrittenToOne) {
    nxXMLDocument document;
    ASSERT_EQ(document.LoadFromString(Product("A", "5", "2", "x", "3")), nxErrorEnum::OK);
    nxXMLElement element = document.GetRootElement();
    nxOrvalenPriceUsageStatisticsForProduct product;
    product.SetNoOfUnobservedPriceDataObjects(9);
    product.LoadFromXML(element);

    nxXMLDocument copy;
    ASSERT_EQ(copy.CreateDocument("ProductStatistic"), nxErrorEnum::OK);
    element = copy.GetRootElement();
    product.SaveToXML(element);
    std::string xml;
    EXPECT_EQ(copy.SaveToString(xml), nxErrorEnum::OK);
    EXPECT_EQ(xml, Product("A", "5", "2", "9", "3"));
}
