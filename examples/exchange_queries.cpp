// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Asks a list of exchanges what other programs ask it: who takes orders, which venue stands for a market
// identifier code, and which venues are variants of one another.

#include "xmlFramework/market/nxExchangeDefinitionList.h"

#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {
    // A venue and its simulated and new variants are told apart by their mnemonics alone.
    void AddVenue(nxExchangeDefinitionList& list, const std::string& mnemonic, const std::string& description,
                  const std::vector<std::string>& mics) {
        auto venue = std::make_shared<nxExchangeDefinition>();
        venue->SetMnemonic(mnemonic);
        venue->SetDescription(description);
        venue->SetIsExchange(true);
        venue->SetIsOrderDestination(true);
        venue->SetMICs(mics);
        list.GetExchangeDefinitions()[mnemonic] = venue;
    }

    nxExchangeDefinitionList MakeList() {
        nxExchangeDefinitionList list;
        AddVenue(list, "NORDLYS", "Nordlys Børs", {"ZQNA", "ZQNB"});
        AddVenue(list, "NORDLYS_SIM", "Nordlys Børs, simulated", {"ZQNA", "ZQNB"});
        AddVenue(list, "NEW_NORDLYS", "Nordlys Børs, new gateway", {"ZQNA"});

        auto feed = std::make_shared<nxExchangeDefinition>();
        feed->SetMnemonic("TICKWELL");
        feed->SetDescription("Tickwell consolidated prices");
        feed->SetIsPriceSource(true);
        feed->SetPriceStreams({"realtime", "delayed"});
        list.GetExchangeDefinitions()["TICKWELL"] = feed;
        return list;
    }

    void PrintVenues(const char* title, const nxExchangeDefinitionList::Selection& venues) {
        std::cout << title << ':';
        for (const auto& [mnemonic, definition] : venues)
            std::cout << ' ' << mnemonic;
        std::cout << '\n';
    }

    void PrintMICs(const nxExchangeDefinitionList& list, const char* title, bool simulated, bool isNew) {
        std::map<std::string, std::string> venueOfMIC;
        list.ProcessExchangeDefinitionList(venueOfMIC, simulated, isNew);
        std::cout << title << ':';
        for (const auto& [mic, venue] : venueOfMIC)
            std::cout << ' ' << mic << "=" << venue;
        std::cout << '\n';
    }
} // namespace

int main() {
    nxExchangeDefinitionList sent = MakeList();
    nxExchangeDefinitionList list;
    std::string xml;
    if (!sent.ConvertToXML(xml, "").IsOK() || !list.ConvertFromXML(xml, "exchange_queries: ").IsOK() ||
        !list.IsValid().IsOK())
        return 1;

    std::string description = "?";
    const bool known = list.GetDescriptionForMnemonic("NORDLYS", description);
    std::cout << "NORDLYS is " << description << '\n';
    if (!known || list.GetDescriptionForMnemonic("NOWHERE", description))
        return 1;

    nxExchangeDefinitionList::Selection destinations;
    list.GetOrderDestinationsOnly(destinations);
    PrintVenues("order destinations", destinations);
    nxExchangeDefinitionList::Selection sources;
    list.GetPriceSourcesOnly(sources);
    PrintVenues("price sources", sources);

    PrintMICs(list, "live", false, false);
    PrintMICs(list, "simulated", true, false);
    PrintMICs(list, "new", false, true);

    std::string stripped;
    nxExchangeDefinitionList::StripOrvalenExchangeName("NEW_NORDLYS_SIM", stripped);
    std::cout << "NEW_NORDLYS_SIM is a variant of " << stripped << '\n';
    const bool equivalent = nxExchangeDefinitionList::IsEquivalentExchange("NEW_NORDLYS_SIM", "NORDLYS");
    const bool isCME = nxExchangeDefinitionList::IsCMEExchangeDestination("NEW_NYMEX_SIM");
    return equivalent && isCME ? 0 : 1;
}
