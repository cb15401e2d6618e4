// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumLimit.h"

#include "tests/support/nxRecordText.h"

#include <memory>
#include <string>

namespace {
    using namespace nxRecordText;
} // namespace

TEST(nxKestrumLimitGetAsString, ShowsEveryFieldWithSellsBeforeBuys) {
    EXPECT_EQ(nxKestrumLimit().GetAsString(),
              "Product :  , MaxShort : 0 , MaxLong : 0 , MaxSells : 0 , MaxBuys : 0 , ClipLimit : 0 , "
              "Strategy : false , Netting : false , MarginRiskStrategy : false , AccountID : ");

    nxKestrumLimit limit("ES", 1, 2, 3, 4, 5, "ignored", 4294967293);
    limit.SetIsPartOfStrategy(true);
    limit.SetMarginRiskStrategy(true);
    EXPECT_EQ(limit.GetAsString(),
              "Product : ES , MaxShort : 1 , MaxLong : 2 , MaxSells : 4 , MaxBuys : 3 , ClipLimit : 5 , "
              "Strategy : true , Netting : false , MarginRiskStrategy : true , AccountID : 4294967293");
    limit.SetAccountID(nxNoChangeInitalizer());
    EXPECT_TRUE(limit.GetAsString().ends_with(" , AccountID : "));
}

TEST(nxKestrumLimitIsContextLimit, WantsTheMarkerExactly) {
    nxKestrumLimit limit;
    limit.SetContextLimit();
    EXPECT_EQ(limit.GetProductID(), "[CONTEXT]");
    EXPECT_TRUE(limit.IsContextLimit());
    for (const char* product : {"", "[context]", "[CONTEXT] "}) {
        limit.SetProductID(product);
        EXPECT_FALSE(limit.IsContextLimit()) << product;
    }
}

TEST(nxKestrumLimitConvertToXML, WritesEveryFieldWithBuysBeforeSells) {
    EXPECT_EQ(WrittenItem(nxKestrumLimit()),
              Elements("ProductID= MaxShort=0 MaxLong=0 MaxBuys=0 MaxSells=0 ClipLimit=0 Strategy=false "
                       "Netting=false MarginRiskStrategy=false AccountID=4294967295"));

    nxKestrumLimit limit("ES", 1, 2, 3, 4, 4294967295, "ignored", 7);
    limit.SetAllowNetting(true);
    const std::unique_ptr<nxKestrumLimit> copy(limit.CopyInstance());
    EXPECT_EQ(WrittenItem(*copy),
              Elements("ProductID=ES MaxShort=1 MaxLong=2 MaxBuys=3 MaxSells=4 ClipLimit=4294967295 "
                       "Strategy=false Netting=true MarginRiskStrategy=false AccountID=7"));
}

TEST(nxKestrumLimitConvertToXML, LeavesOutShortAndLongBehindAProductThatXMLCannotCarry) {
    nxXMLDocument document;
    EXPECT_EQ(document.CreateDocument("Limit"), nxErrorEnum::OK);
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
    const std::string rest = "AccountID=9 MarginRiskStrategy=1 Netting=true Strategy=TRUE ClipLimit=8 "
                             "MaxSells=7 MaxBuys=6 ";
    const std::string restRead = " , MaxSells : 7 , MaxBuys : 6 , ClipLimit : 8 , Strategy : true , "
                                 "Netting : true , MarginRiskStrategy : true , AccountID : 9";
    const struct {
        const char* chain;
        nxErrorEnum result;
        const char* chainRead;
    } cases[] = {
        {"MaxLong=3 MaxShort=2 ProductID=P", nxErrorEnum::OK, "Product : P , MaxShort : 2 , MaxLong : 3"},
        {"MaxShort=2 MaxLong=3", nxErrorEnum::ValueNotFound, "Product :  , MaxShort : 0 , MaxLong : 0"},
        {"ProductID= MaxShort=2 MaxLong=3", nxErrorEnum::ValueNotFound,
         "Product :  , MaxShort : 0 , MaxLong : 0"},
        {"ProductID=P MaxLong=3", nxErrorEnum::ValueNotFound, "Product : P , MaxShort : 0 , MaxLong : 0"},
        {"ProductID=P MaxShort=-2 MaxLong=3", nxErrorEnum::ValueNotParsed,
         "Product : P , MaxShort : 0 , MaxLong : 0"},
        {"ProductID=P MaxShort=2 MaxLong=4294967296", nxErrorEnum::ValueNotParsed,
         "Product : P , MaxShort : 2 , MaxLong : 0"},
    };
    for (const auto& [chain, result, chainRead] : cases) {
        nxKestrumLimit limit;
        EXPECT_EQ(ReadItem(limit, Elements(rest + chain)), result) << chain;
        EXPECT_EQ(limit.GetAsString(), chainRead + restRead);
    }
}

TEST(nxKestrumLimitConvertFromXML, KeepsAMalformedFieldButMakesTheAccountNull) {
    const struct {
        const char* elements;
        nxUnsignedValueWrapper account;
    } cases[] = {
        {"MaxBuys=x MaxSells= ClipLimit=-1 Netting=no AccountID=", 6},
        {"AccountID=x", nxNullInitalizer()},
        {"AccountID=NO_CHANGE", nxNullInitalizer()},
        {"AccountID=4294967294", nxNoChangeInitalizer()},
    };
    for (const auto& [elements, account] : cases) {
        nxKestrumLimit limit("", 0, 0, 3, 4, 5, "", 6);
        limit.SetAllowNetting(true);
        EXPECT_EQ(ReadItem(limit, Elements(std::string("ProductID=P MaxShort=1 MaxLong=2 ") + elements)),
                  nxErrorEnum::OK);
        EXPECT_EQ(limit.GetAccountID(), account) << elements;
        EXPECT_TRUE(limit.GetAsString().starts_with(
            "Product : P , MaxShort : 1 , MaxLong : 2 , MaxSells : 4 , MaxBuys : 3 , ClipLimit : 5 , "
            "Strategy : false , Netting : true"));
    }
}
