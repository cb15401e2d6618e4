// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <array>
#include <limits>
#include <memory>
#include <vector>

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Strings = std::vector<std::string>;
    using Product = nxOrvalenPriceUsageStatisticsForProduct;
    // Objects, unobserved objects, updates, updates for unobserved products.
    using Counts = std::array<unsigned long long, 4>;
    using CountsByID = std::map<std::string, Counts>;

    Counts CountsOf(const Product& product) {
        return {product.GetNoOfPriceDataObjects(), product.GetNoOfUnobservedPriceDataObjects(),
                product.GetNoOfPriceUpdates(), product.GetNoOfPriceUpdatesForUnobservedProducts()};
    }
    CountsByID CountsOf(const nxOrvalenPriceUsageStatistics& statistics) {
        CountsByID counts;
        for (const auto& [productID, product] : statistics.GetProducts()) {
            EXPECT_EQ(product.GetProductID(), productID);
            counts.emplace(productID, CountsOf(product));
        }
        return counts;
    }
} // namespace

TEST(nxOrvalenPriceUsageStatisticsAddStatisticForProduct, CountsPerProductAndWraps) {
    nxOrvalenPriceUsageStatistics statistics;
    statistics.AddStatisticForProduct("A", 5, true);
    statistics.AddStatisticForProduct("A", 3, false);
    statistics.AddStatisticForProduct("B", 7, false);
    statistics.AddStatisticForProduct("", 0, true);
    EXPECT_EQ(CountsOf(statistics),
              (CountsByID{{"", {1, 0, 0, 0}}, {"A", {2, 1, 8, 3}}, {"B", {1, 1, 7, 7}}}));

    Product& product = statistics.GetProducts()["A"];
    product.SetNoOfPriceDataObjects(std::numeric_limits<unsigned int>::max());
    product.SetNoOfUnobservedPriceDataObjects(std::numeric_limits<unsigned int>::max());
    statistics.AddStatisticForProduct("A", std::numeric_limits<unsigned long long>::max(), false);
    EXPECT_EQ(CountsOf(product), (Counts{0, 0, 7, 2}));
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
        {nxLogLevelEnum::Fatal, nxLogLevelEnum::Error, {}, {}},
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
    statistics.SetUserID(42);
    const nxCollectedLog log;
    statistics.Dump(nxLogLevelEnum::Debug);
    EXPECT_EQ(log.Entries(), (Strings{"Usage statistics for userID: 42", a, b}));
}

TEST(nxOrvalenPriceUsageStatisticsConvertToXML, WritesTheProductsInByteOrder) {
    nxOrvalenPriceUsageStatistics statistics;
    EXPECT_EQ(Written(statistics),
              "<OrvalenPriceStatistics><userID>4294967295</userID></OrvalenPriceStatistics>");
    statistics.SetUserID(42);
    statistics.AddStatisticForProduct("b", 5, true);
    statistics.AddStatisticForProduct("B", 3, false);
    statistics.AddStatisticForProduct("B", 4, true);
    EXPECT_EQ(Written(statistics),
              "<OrvalenPriceStatistics><userID>42</userID>"
              "<ProductStatistic><productID>B</productID><noOfPriceUpdates>7</noOfPriceUpdates>"
              "<noOfPriceDataObjects>2</noOfPriceDataObjects>"
              "<noOfUnobservedPriceDataObjects>1</noOfUnobservedPriceDataObjects>"
              "<noOfPriceUpdatesForUnobservedProducts>3</noOfPriceUpdatesForUnobservedProducts>"
              "</ProductStatistic>"
              "<ProductStatistic><productID>b</productID><noOfPriceUpdates>5</noOfPriceUpdates>"
              "<noOfPriceDataObjects>1</noOfPriceDataObjects>"
              "<noOfUnobservedPriceDataObjects>0</noOfUnobservedPriceDataObjects>"
              "<noOfPriceUpdatesForUnobservedProducts>0</noOfPriceUpdatesForUnobservedProducts>"
              "</ProductStatistic></OrvalenPriceStatistics>");
}

TEST(nxOrvalenPriceUsageStatisticsConvertFromXML, TakesWhatIsWellFormedAndTheLaterOfOneProduct) {
    const struct {
        std::string children;
        unsigned int userID;
        CountsByID counts;
    } cases[] = {
        {"", 7, {{"A", {1, 0, 5, 0}}}},
        {"<userID>x</userID><userID>8</userID><ProductStatistic/>", 7, {{"", {}}, {"A", {1, 0, 5, 0}}}},
        {"<ProductStatistic><productID>B</productID><noOfPriceUpdates>-1</noOfPriceUpdates>"
         "<noOfPriceDataObjects>4294967296</noOfPriceDataObjects>"
         "<noOfUnobservedPriceDataObjects>2</noOfUnobservedPriceDataObjects>"
         "<noOfPriceUpdatesForUnobservedProducts>18446744073709551615"
         "</noOfPriceUpdatesForUnobservedProducts></ProductStatistic>text<x/><userID>8</userID>",
         8,
         {{"A", {1, 0, 5, 0}}, {"B", {0, 2, 0, 18446744073709551615ULL}}}},
        {"<ProductStatistic><productID>A</productID><noOfPriceUpdates>1</noOfPriceUpdates>"
         "<noOfPriceDataObjects>1</noOfPriceDataObjects></ProductStatistic>"
         "<ProductStatistic><productID>A</productID><noOfPriceUpdates>2</noOfPriceUpdates>"
         "</ProductStatistic><productStatistic><productID>B</productID></productStatistic>",
         7,
         {{"A", {0, 0, 2, 0}}}},
    };
    for (const auto& [children, userID, counts] : cases) {
        nxOrvalenPriceUsageStatistics statistics;
        statistics.SetUserID(7);
        statistics.AddStatisticForProduct("A", 5, true);
        nxRecordText::ExpectRefused(statistics, "<any>" + children,
                                    "Failed to convert XML data to exchange trading horus definition list. "
                                    "Unable to create XML document from XML string",
                                    "nxOrvalenPriceUsageStatistics");
        Read(statistics, "<any>" + children + "</any>");
        EXPECT_EQ(statistics.GetUserID(), userID) << children;
        EXPECT_EQ(CountsOf(statistics), counts) << children;
    }
}

TEST(nxOrvalenPriceUsageStatisticsCreateInstance, WorksWithoutTheRegistry) {
    nxOrvalenPriceUsageStatistics statistics;
    EXPECT_EQ(statistics.GetDataCategoryTypeID(), 0x4F505553U);
    EXPECT_EQ(nxXMLDataObject::CreateInstance(statistics.GetDataCategoryTypeID()), nullptr);

    statistics.SetUserID(7);
    statistics.AddStatisticForProduct("A", 5, true);
    const std::unique_ptr<nxXMLDataObject> empty(statistics.CreateInstance());
    const std::unique_ptr<nxXMLDataObject> copy(statistics.CopyInstance());
    const std::string before = Written(statistics);
    statistics.AddStatisticForProduct("A", 5, true);
    EXPECT_EQ(Written(*copy), before);
    nxOrvalenPriceUsageStatistics fresh;
    EXPECT_EQ(Written(*empty), Written(fresh));
}

TEST(nxOrvalenPriceUsageStatisticsRoundTrip, KeepsAllCounts) {
    nxRandomText random(16);
    for (int round = 0; round < 100; ++round) {
        nxOrvalenPriceUsageStatistics statistics;
        statistics.SetUserID(random.Below(4) * 0x55555555U);
        for (unsigned int count = random.Below(8); count > 0; --count)
            statistics.AddStatisticForProduct(random.Text(), random.Below(0xFFFFFFFF) * 0x100000001ULL,
                                              random.Flag());
        nxOrvalenPriceUsageStatistics read;
        Read(read, Written(statistics));
        ASSERT_EQ(read.GetUserID(), statistics.GetUserID());
        ASSERT_EQ(CountsOf(read), CountsOf(statistics)) << Written(statistics);
    }
}
