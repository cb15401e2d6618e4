// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxExchangeDefinitionList.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <memory>
#include <vector>

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;
    using List = nxExchangeDefinitionList;
    using Strings = std::vector<std::string>;
    using Table = std::map<std::string, std::string>;

    nxExchangeDefinition& Add(List& list, const std::string& mnemonic, const Strings& mics = {}) {
        auto venue = std::make_shared<nxExchangeDefinition>();
        venue->SetMnemonic(mnemonic);
        venue->SetMICs(mics);
        return *(list.GetExchangeDefinitions()[mnemonic] = std::move(venue));
    }

    // The items' descriptions by their keys.
    Table Descriptions(const List& list) {
        Table descriptions;
        for (const auto& [key, venue] : list.GetExchangeDefinitions())
            descriptions.emplace(key, venue->GetDescription());
        return descriptions;
    }

    std::string Item(const std::string& suffix, const std::string& mnemonic, const std::string& description) {
        return "<ExchangeDefinition-" + suffix + "><Mnemonic>" + mnemonic + "</Mnemonic><Description>" +
               description + "</Description></ExchangeDefinition-" + suffix + ">";
    }
    std::string Container(const std::string& items) {
        return "<ExchangeDefinitions>" + items + "</ExchangeDefinitions>";
    }
} // namespace

TEST(nxExchangeDefinitionListConvertToXML, WritesTheItemsInByteOrderOfTheirKeys) {
    List list;
    EXPECT_EQ(Written(list), "<ExchangeDefinitionList><ExchangeDefinitions/></ExchangeDefinitionList>");
    Add(list, "abc");
    Add(list, "ABC").SetMnemonic("other");
    const std::string rest = "</Mnemonic><Description></Description><IsExchange>false</IsExchange>"
                             "<IsPriceSource>false</IsPriceSource>"
                             "<IsOrderDestination>false</IsOrderDestination><MICs></MICs>"
                             "<PriceStreams></PriceStreams>";
    EXPECT_EQ(Written(list), "<ExchangeDefinitionList>" +
                                 Container("<ExchangeDefinition-ABC><Mnemonic>other" + rest +
                                           "</ExchangeDefinition-ABC><ExchangeDefinition-abc><Mnemonic>abc" +
                                           rest + "</ExchangeDefinition-abc>") +
                                 "</ExchangeDefinitionList>");
}

TEST(nxExchangeDefinitionListConvertFromXML, AddsTheLeadingItemsOfEveryContainerByTheirMnemonics) {
    const struct {
        std::string children;
        Table descriptions;
    } cases[] = {
        {Item("A", "A", "outside") + "<x>" + Container(Item("B", "B", "too deep")) + "</x>", {}},
        {"<x/>" + Container(Item("A", "A", "a")) + "text" + Container(Item("B", "B", "b")),
         {{"A", "a"}, {"B", "b"}}},
        {Container(Item("1", "B", "b") + "<!--c-->text" + Item("2", "A", "a")), {{"A", "a"}, {"B", "b"}}},
        {Container(Item("1", "B", "first") + Item("2", "B", "second") + Item("3", "C", "c")),
         {{"B", "first"}, {"C", "c"}}},
        {Container(Item("1", "HELD", "read") + Item("A", "", "no mnemonic")), {{"", "no mnemonic"}}},
        {Container("<Comment/>" + Item("A", "A", "a")) + Container(Item("B", "B", "b")), {{"B", "b"}}},
        {Container(Item("A", "A", "a") + "<ExchangeDefinition-/>" + Item("B", "B", "b")), {{"A", "a"}}},
        {Container(Item("A", "A", "a") + "<exchangeDefinition-B/>" + Item("B", "B", "b")), {{"A", "a"}}},
    };
    for (auto [children, descriptions] : cases) {
        List list;
        Add(list, "HELD").SetDescription("held");
        nxRecordText::ExpectRefused(
            list, "<x>" + children + "<x>",
            "Failed to convert XML data to spread spec. Unable to create XML document from XML string",
            "nxExchangeDefinitionList");
        Read(list, "<any>" + children + "</any>");
        descriptions.emplace("HELD", "held");
        EXPECT_EQ(Descriptions(list), descriptions) << children;
    }
}

TEST(nxExchangeDefinitionListConvertFromXML, ReadsBackWhatWasWritten) {
    nxRandomText random(12);
    const auto text = [](const List& list) {
        std::string all;
        for (const auto& [key, venue] : list.GetExchangeDefinitions())
            all += key + ": " + venue->GetAsLogString() + '\n';
        return all;
    };
    for (int round = 0; round < 100; ++round) {
        List list;
        for (unsigned int count = random.Below(4); count > 0; --count) {
            nxExchangeDefinition& venue = Add(list, random.Key(), Strings(random.Below(3), random.Key()));
            venue.SetDescription(random.Text());
            venue.SetIsExchange(random.Flag());
            venue.SetIsPriceSource(random.Flag());
            venue.SetIsOrderDestination(random.Flag());
            venue.SetPriceStreams({random.Key(), random.Key()});
        }
        List read;
        Read(read, Written(list));
        ASSERT_EQ(text(read), text(list)) << Written(list);
    }
}

TEST(nxExchangeDefinitionListIsValid, WantsAMnemonicOfEveryItem) {
    List list;
    Add(list, "A");
    EXPECT_EQ(list.IsValid(), nxErrorEnum::OK);
    Add(list, "B").SetMnemonic("");
    EXPECT_EQ(list.IsValid(), nxErrorEnum::InvalidData);
}

TEST(nxExchangeDefinitionListGetDescriptionForMnemonic, FindsTheExactKey) {
    List list;
    Add(list, "A").SetDescription("a");
    std::string description = "before";
    for (const char* unknown : {"", "a", "A ", "NEW_A"})
        EXPECT_FALSE(list.GetDescriptionForMnemonic(unknown, description)) << unknown;
    EXPECT_EQ(description, "before");
    EXPECT_TRUE(list.GetDescriptionForMnemonic("A", description));
    EXPECT_EQ(description, "a");
}

TEST(nxExchangeDefinitionListGetExchangesOnly, AddsTheItemsOfOneRole) {
    List list;
    Add(list, "EXCHANGE").SetIsExchange(true);
    Add(list, "HELD").SetIsExchange(true);
    Add(list, "NONE");
    Add(list, "SOURCE").SetIsPriceSource(true);
    Add(list, "TARGET").SetIsOrderDestination(true);

    const nxExchangeDefinition held;
    const struct {
        void (List::*get)(List::Selection&) const;
        const char* mnemonic;
    } cases[] = {{&List::GetExchangesOnly, "EXCHANGE"},
                 {&List::GetPriceSourcesOnly, "SOURCE"},
                 {&List::GetOrderDestinationsOnly, "TARGET"}};
    for (const auto& [get, mnemonic] : cases) {
        List::Selection venues{{"HELD", &held}};
        (list.*get)(venues);
        EXPECT_EQ(venues, (List::Selection{{"HELD", &held},
                                           {mnemonic, list.GetExchangeDefinitions().at(mnemonic).get()}}));
    }
}

TEST(nxExchangeDefinitionListProcessExchangeDefinitionList, MapsAMICToTheFirstVenueOfTheWantedVariant) {
    List list;
    Add(list, "B", {"XB", "XALL"});
    Add(list, "A", {"XALL", "HELD", "XALL"});
    Add(list, "B_SIM", {"XALL"});
    Add(list, "A_SIM", {"XALL", "XSIM"});
    Add(list, "NEW_A", {"XALL"});
    Add(list, "NEW_A_SIM", {"XALL", "XB"});
    Add(list, "NEW", {"XSHORT"});
    Add(list, "new_a_sim", {"XSHORT"});
    Add(list, "NEW_SIM", {"XOVER"}); // one underscore for both
    const struct {
        bool wantSimulated;
        bool wantNew;
        Table venues;
    } cases[] = {
        {false, false, {{"XALL", "A"}, {"XB", "B"}, {"XSHORT", "NEW"}}},
        {true, false, {{"XALL", "A_SIM"}, {"XSIM", "A_SIM"}}},
        {false, true, {{"XALL", "NEW_A"}}},
        {true, true, {{"XALL", "NEW_A_SIM"}, {"XB", "NEW_A_SIM"}, {"XOVER", "NEW_SIM"}}},
    };
    for (auto [wantSimulated, wantNew, expected] : cases) {
        Table venues{{"HELD", "before"}};
        list.ProcessExchangeDefinitionList(venues, wantSimulated, wantNew);
        expected.emplace("HELD", "before");
        EXPECT_EQ(venues, expected) << wantSimulated << wantNew;
    }
}

TEST(nxExchangeDefinitionListStripOrvalenExchangeName, TakesOffOnePrefixThenOneSuffix) {
    const struct {
        const char* name;
        const char* stripped;
    } cases[] = {
        {"", ""},
        {"X", "X"},
        {"NEW_X", "X"},
        {"X_SIM", "X"},
        {"NEW_X_SIM", "X"},
        {"NEW_NEW_X", "NEW_X"},
        {"X_SIM_SIM", "X_SIM"},
        {"NEW_", ""},
        {"_SIM", ""},
        {"NEW__SIM", ""},
        {"NEW_SIM", "SIM"},
        {"NEW", "NEW"},
        {"SIM", "SIM"},
        {"new_X", "new_X"},
        {"X_sim", "X_sim"},
        {"XNEW_", "XNEW_"},
        {"_SIMX", "_SIMX"},
    };
    for (const auto& [name, expected] : cases) {
        std::string stripped = "before";
        List::StripOrvalenExchangeName(name, stripped);
        EXPECT_EQ(stripped, expected) << name;
        EXPECT_TRUE(List::IsEquivalentExchange(name, expected)) << name;
        EXPECT_TRUE(List::IsOneOfEquivalentExchanges(name, {"other", expected})) << name;
    }
    EXPECT_FALSE(List::IsEquivalentExchange("ABC", "NEW_ABC")); // the base name is taken as it stands
    EXPECT_FALSE(List::IsOneOfEquivalentExchanges("ABC_SIM", {"ABC_SIM", "abc"}));
}

TEST(nxExchangeDefinitionListIsCMEExchangeDestination, KnowsFiveBaseNames) {
    for (const char* name : {"CME", "CBOTGL", "NYMEX", "BOVESPA", "MEXDER", "NEW_NYMEX_SIM"})
        EXPECT_TRUE(List::IsCMEExchangeDestination(name)) << name;
    for (const char* name : {"", "CBOT", "nymex", "_SIMCME", "COMEX", "NEW_NEW_CME", "CME "})
        EXPECT_FALSE(List::IsCMEExchangeDestination(name)) << name;
}

TEST(nxExchangeDefinitionListAssignment, SharesItemsThatLiveAsLongAsEitherListWhileCopiesHaveTheirOwn) {
    for (const bool destroyTheFirst : {true, false}) {
        auto first = std::make_unique<List>();
        auto second = std::make_unique<List>();
        Add(*first, "A").SetDescription("a");
        Add(*second, "GONE");
        *second = *first;
        const std::unique_ptr<List> copy(first->CopyInstance());
        first->GetExchangeDefinitions().at("A")->SetDescription("changed");
        EXPECT_EQ(Descriptions(*second), (Table{{"A", "changed"}}));
        EXPECT_EQ(Descriptions(*copy), (Table{{"A", "a"}}));

        Add(*second, "B"); // the items are shared, the lists are not
        EXPECT_EQ(Descriptions(*first), (Table{{"A", "changed"}}));
        (destroyTheFirst ? first : second).reset();
        List& left = destroyTheFirst ? *second : *first;
        left = *&left;
        EXPECT_EQ(Descriptions(left).at("A"), "changed");
    }
}
