// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxExchangeDefinitionList.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {
    using List = nxExchangeDefinitionList;
    using Strings = std::vector<std::string>;
    using Table = std::map<std::string, std::string>;

    nxExchangeDefinition& Add(List& list, const std::string& mnemonic, const Strings& mics = {}) {
        auto venue = std::make_shared<nxExchangeDefinition>();
        venue->SetMnemonic(mnemonic);
        venue->SetMICs(mics);
        return *(list.GetExchangeDefinitions()[mnemonic] = std::move(venue));
    }
} // namespace

TEST(nxExchangeDefinitionListGetDescriptionForMnemonic, FindsTheExactKey) {
    List list;
    Add(list, "A").SetDescription("a");
    std::string description = "before";
    EXPECT_FALSE(list.GetDescriptionForMnemonic("a", description));
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
    Add(list, "NEWSIM", {"XSHORT"});
    Add(list, "new_a_sim", {"XSHORT"});
    Add(list, "NEW_SIM", {"XOVER"}); // one underscore for both
    const struct {
        bool wantSimulated;
        bool wantNew;
        Table venues;
    } cases[] = {
        {false, false, {{"XALL", "A"}, {"XB", "B"}, {"XSHORT", "NEWSIM"}}},
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
        {"NEW_SIM", "SIM"},
        {"NEW__SIM", ""},
        {"new_X", "new_X"},
        {"X_sim", "X_sim"},
        {"XNEW_", "XNEW_"},
        {"_SIMX", "_SIMX"},
        {"NEW", "NEW"},
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
    for (const char* name : {"", "CBOT", "nymex", "NEW_NEW_CME"})
        EXPECT_FALSE(List::IsCMEExchangeDestination(name)) << name;
}
