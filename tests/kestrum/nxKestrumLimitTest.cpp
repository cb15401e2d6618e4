// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumLimit.h"

#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {
    constexpr char Nothing[] =
        "Product :  , MaxShort : 0 , MaxLong : 0 , MaxSells : 0 , MaxBuys : 0 , ClipLimit : 0 , "
        "Strategy : false , Netting : false , MarginRiskStrategy : false , AccountID : ";

    nxErrorEnum Read(nxKestrumLimit& limit, const std::string& children) {
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString("<Limit>" + children + "</Limit>"), nxErrorEnum::OK) << children;
        nxXMLElement element = document.GetRootElement();
        return limit.ConvertFromXML(element);
    }

    // The children of the element written, and the result of writing.
    std::string Written(const nxKestrumLimit& limit) {
        nxXMLDocument document;
        document.CreateDocument("Limit");
        nxXMLElement element = document.GetRootElement();
        EXPECT_EQ(limit.ConvertToXML(element), nxErrorEnum::OK);
        std::string xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml;
    }
} // namespace

TEST(nxKestrumLimitGetAsString, ShowsEveryFieldWithSellsBeforeBuys) {
    EXPECT_EQ(nxKestrumLimit().GetAsString(), Nothing);

    nxKestrumLimit limit("ES", 1, 2, 3, 4, 5, "ignored", 4294967293);
    EXPECT_EQ(limit.GetAsString(),
              "Product : ES , MaxShort : 1 , MaxLong : 2 , MaxSells : 4 , MaxBuys : 3 , ClipLimit : 5 , "
              "Strategy : false , Netting : false , MarginRiskStrategy : false , AccountID : 4294967293");
    limit.SetIsPartOfStrategy(true);
    limit.SetMarginRiskStrategy(true);
    limit.SetAccountID(nxNoChangeInitalizer());
    EXPECT_EQ(limit.GetAsString(),
              "Product : ES , MaxShort : 1 , MaxLong : 2 , MaxSells : 4 , MaxBuys : 3 , ClipLimit : 5 , "
              "Strategy : true , Netting : false , MarginRiskStrategy : true , AccountID : ");
}

TEST(nxKestrumLimitIsContextLimit, WantsTheMarkerExactly) {
    using namespace std::string_literals;
    nxKestrumLimit limit;
    limit.SetContextLimit();
    EXPECT_EQ(limit.GetProductID(), "[CONTEXT]");
    EXPECT_TRUE(limit.IsContextLimit());
    for (const std::string& product : {""s, "[context]"s, "[CONTEXT"s, "[CONTEXT] "s, "[CONTEXT]\0"s}) {
        limit.SetProductID(product);
        EXPECT_FALSE(limit.IsContextLimit()) << product;
    }
}

TEST(nxKestrumLimitConvertToXML, WritesEveryFieldWithBuysBeforeSells) {
    EXPECT_EQ(Written(nxKestrumLimit()),
              "<Limit><ProductID></ProductID><MaxShort>0</MaxShort><MaxLong>0</MaxLong><MaxBuys>0</MaxBuys>"
              "<MaxSells>0</MaxSells><ClipLimit>0</ClipLimit><Strategy>false</Strategy>"
              "<Netting>false</Netting><MarginRiskStrategy>false</MarginRiskStrategy>"
              "<AccountID>4294967295</AccountID></Limit>");

    nxKestrumLimit limit("E&S", 1, 2, 3, 4, 4294967295, "ignored", 7);
    limit.SetAllowNetting(true);
    const std::unique_ptr<nxKestrumLimit> copy(limit.CopyInstance());
    EXPECT_EQ(Written(*copy),
              "<Limit><ProductID>E&amp;S</ProductID><MaxShort>1</MaxShort><MaxLong>2</MaxLong>"
              "<MaxBuys>3</MaxBuys><MaxSells>4</MaxSells><ClipLimit>4294967295</ClipLimit>"
              "<Strategy>false</Strategy><Netting>true</Netting>"
              "<MarginRiskStrategy>false</MarginRiskStrategy><AccountID>7</AccountID></Limit>");
}

TEST(nxKestrumLimitConvertToXML, LeavesOutShortAndLongBehindAProductThatXMLCannotCarry) {
    nxXMLDocument document;
    document.CreateDocument("Limit");
    nxXMLElement element = document.GetRootElement();
    nxKestrumLimit limit;
    limit.SetProductID("\x01");
    EXPECT_EQ(limit.ConvertToXML(element), nxErrorEnum::XMLTextNotCarried);
    EXPECT_FALSE(element.FindChildElement("MaxShort").IsValid());
    EXPECT_FALSE(element.FindChildElement("MaxLong").IsValid());
    EXPECT_EQ(element.FindChildElement("MaxBuys").GetTextValue(), "0");

    nxXMLElement none;
    EXPECT_EQ(limit.ConvertToXML(none), nxErrorEnum::ValueNotFound);
}

TEST(nxKestrumLimitConvertFromXML, ReadsProductShortAndLongAsAChainAndTheRestInAnyCase) {
    const std::string rest =
        "<AccountID>9</AccountID><MarginRiskStrategy>1</MarginRiskStrategy><Netting>true</Netting>"
        "<Strategy>TRUE</Strategy><ClipLimit>8</ClipLimit><MaxSells>7</MaxSells><MaxBuys>6</MaxBuys>";
    const std::string restRead =
        " , MaxSells : 7 , MaxBuys : 6 , ClipLimit : 8 , "
        "Strategy : true , Netting : true , MarginRiskStrategy : true , AccountID : 9";
    const struct {
        const char* chain;
        nxErrorEnum result;
        const char* chainRead;
    } cases[] = {
        {"<MaxLong>3</MaxLong><MaxShort>2</MaxShort><ProductID>P</ProductID>", nxErrorEnum::OK,
         "Product : P , MaxShort : 2 , MaxLong : 3"},
        {"<MaxShort>2</MaxShort><MaxLong>3</MaxLong>", nxErrorEnum::ValueNotFound,
         "Product :  , MaxShort : 0 , MaxLong : 0"},
        {"<ProductID/><MaxShort>2</MaxShort><MaxLong>3</MaxLong>", nxErrorEnum::ValueNotFound,
         "Product :  , MaxShort : 0 , MaxLong : 0"},
        {"<ProductID>P</ProductID><MaxLong>3</MaxLong>", nxErrorEnum::ValueNotFound,
         "Product : P , MaxShort : 0 , MaxLong : 0"},
        {"<ProductID>P</ProductID><MaxShort>-2</MaxShort><MaxLong>3</MaxLong>", nxErrorEnum::ValueNotParsed,
         "Product : P , MaxShort : 0 , MaxLong : 0"},
        {"<ProductID>P</ProductID><MaxShort>2</MaxShort>", nxErrorEnum::ValueNotFound,
         "Product : P , MaxShort : 2 , MaxLong : 0"},
        {"<ProductID>P</ProductID><MaxShort>2</MaxShort><MaxLong>4294967296</MaxLong>",
         nxErrorEnum::ValueNotParsed, "Product : P , MaxShort : 2 , MaxLong : 0"},
    };
    for (const auto& [chain, result, chainRead] : cases) {
        nxKestrumLimit limit;
        EXPECT_EQ(Read(limit, rest + chain), result) << chain;
        EXPECT_EQ(limit.GetAsString(), chainRead + restRead);
    }
}

TEST(nxKestrumLimitConvertFromXML, KeepsAMalformedFieldButMakesTheAccountNull) {
    const std::string chain = "<ProductID>P</ProductID><MaxShort>1</MaxShort><MaxLong>2</MaxLong>";
    nxKestrumLimit before("P", 1, 2, 3, 4, 5, "", 6);
    before.SetAllowNetting(true);
    const struct {
        const char* children;
        nxUnsignedValueWrapper account;
    } cases[] = {
        {"<MaxBuys>x</MaxBuys><MaxSells/><ClipLimit>-1</ClipLimit><Netting>no</Netting>", 6},
        {"<AccountID/>", 6},
        {"<AccountID>x</AccountID>", nxNullInitalizer()},
        {"<AccountID>NO_CHANGE</AccountID>", nxNullInitalizer()},
        {"<AccountID>4294967295</AccountID>", nxNullInitalizer()},
        {"<AccountID>4294967294</AccountID>", nxNoChangeInitalizer()},
    };
    for (const auto& [children, account] : cases) {
        nxKestrumLimit limit = before;
        EXPECT_EQ(Read(limit, chain + children), nxErrorEnum::OK);
        EXPECT_EQ(limit.GetAccountID(), account) << children;
        limit.SetAccountID(6);
        EXPECT_EQ(limit.GetAsString(), before.GetAsString()) << children;
    }
}
