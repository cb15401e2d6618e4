// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxExchangeDefinition.h"

#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using namespace nxRecordText;
    using Strings = std::vector<std::string>;

    nxExchangeDefinition Example() {
        nxExchangeDefinition venue;
        venue.SetMnemonic("ABC");
        venue.SetDescription("Venue");
        venue.SetIsExchange(true);
        venue.SetIsPriceSource(true);
        venue.SetMICs({"XABC", "XABD"});
        venue.SetPriceStreams({"L1", "L2"});
        return venue;
    }
    const std::string ExampleStart = "Mnemonic: ABC, Description: Venue, Is exchange: true, "
                                     "Is price source: true, Is order destination: false, ";
    const std::string ExampleText = ExampleStart + "MICs: XABC,XABDPrice streams: L1,L2";
} // namespace

TEST(nxExchangeDefinitionGetAsLogString, RunsTheTwoListsTogether) {
    EXPECT_EQ(Example().GetAsLogString(), ExampleText);
    EXPECT_EQ(nxExchangeDefinition().GetAsLogString(),
              "Mnemonic: , Description: , Is exchange: false, Is price source: false, "
              "Is order destination: false, MICs: Price streams: ");
}

TEST(nxExchangeDefinitionConvertToXML, SetsACommaOnlyBehindText) {
    const struct {
        Strings items;
        const char* text;
        Strings readBack;
    } cases[] = {
        {{""}, "", {}},
        {{"", "", "A"}, "A", {"A"}},
        {{"A", "", "B", ""}, "A,,B,", {"A", "", "B", ""}},
        {{" A ", "\tB\n"}, " A ,\tB\n", {"A", "B"}},
        {{" "}, " ", {""}},
    };
    for (const auto& [items, text, readBack] : cases) {
        nxExchangeDefinition venue = Example();
        venue.SetMICs(items);
        const std::string xml = WrittenItem(venue);
        EXPECT_EQ(xml, Elements("Mnemonic=ABC Description=Venue IsExchange=true IsPriceSource=true "
                                "IsOrderDestination=false") +
                           Element("MICs", text) + Elements("PriceStreams=L1,L2"));
        EXPECT_EQ(ReadItem(venue, xml), nxErrorEnum::OK);
        EXPECT_EQ(venue.GetMICs(), readBack) << text;
    }
    nxXMLElement none;
    EXPECT_EQ(Example().ConvertToXML(none, ""), nxErrorEnum::OK);
}

TEST(nxExchangeDefinitionConvertFromXML, TakesEachElementIntoItsFieldAndTheLastOfSeveral) {
    const struct {
        const char* children;
        std::string text;
    } cases[] = {
        {"<IsOrderDestination>true</IsOrderDestination>text<Mnemonic>X</Mnemonic><x/>"
         "<IsPriceSource>0</IsPriceSource><Mnemonic> B </Mnemonic><Description>d</Description>",
         "Mnemonic:  B , Description: d, Is exchange: true, Is price source: false, "
         "Is order destination: true, MICs: XABC,XABDPrice streams: L1,L2"},
        {"<mnemonic>X</mnemonic><x><Mnemonic>X</Mnemonic></x>", ExampleText},
        {"<Mnemonic/><Description><x/>y</Description><IsExchange/>", ExampleText},
        {"<IsExchange>no</IsExchange><IsOrderDestination>yes</IsOrderDestination>", ExampleText},
        {"<PriceStreams>x</PriceStreams><MICs>b; c</MICs><PriceStreams> d , e </PriceStreams>",
         ExampleStart + "MICs: b; cPrice streams: d,e"},
        {"<MICs/><PriceStreams><x/>X</PriceStreams>", ExampleStart + "MICs: Price streams: "},
    };
    for (const auto& [children, text] : cases) {
        nxExchangeDefinition venue = Example();
        EXPECT_EQ(ReadItem(venue, children), nxErrorEnum::OK);
        EXPECT_EQ(venue.GetAsLogString(), text) << children;
    }
}
