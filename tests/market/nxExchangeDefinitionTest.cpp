// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxExchangeDefinition.h"

#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using Strings = std::vector<std::string>;

    nxExchangeDefinition Example() {
        nxExchangeDefinition venue;
        venue.SetMnemonic("ABC");
        venue.SetDescription("Some venue");
        venue.SetIsExchange(true);
        venue.SetIsPriceSource(true);
        venue.SetMICs({"XABC", "XABD"});
        venue.SetPriceStreams({"L1", "L2"});
        return venue;
    }
    constexpr char ExampleText[] =
        "Mnemonic: ABC, Description: Some venue, Is exchange: true, Is price source: true, "
        "Is order destination: false, MICs: XABC,XABDPrice streams: L1,L2";
} // namespace

TEST(nxExchangeDefinitionGetAsLogString, RunsTheTwoListsTogether) {
    EXPECT_EQ(Example().GetAsLogString(), ExampleText);
    EXPECT_EQ(nxExchangeDefinition().GetAsLogString(),
              "Mnemonic: , Description: , Is exchange: false, Is price source: false, "
              "Is order destination: false, MICs: Price streams: ");
}

TEST(nxExchangeDefinitionConvertToXML, WritesOneElementAField) {
    EXPECT_EQ(nxRecordText::WrittenItem(Example()),
              "<Mnemonic>ABC</Mnemonic><Description>Some venue</Description>"
              "<IsExchange>true</IsExchange><IsPriceSource>true</IsPriceSource>"
              "<IsOrderDestination>false</IsOrderDestination><MICs>XABC,XABD</MICs>"
              "<PriceStreams>L1,L2</PriceStreams>");
    nxXMLElement none;
    EXPECT_EQ(Example().ConvertToXML(none, ""), nxErrorEnum::OK);
}

TEST(nxExchangeDefinitionConvertToXML, SetsACommaOnlyBehindText) {
    const struct {
        Strings items;
        const char* text;
        Strings readBack;
    } cases[] = {
        {{}, "", {}},
        {{""}, "", {}},
        {{"", "", "A"}, "A", {"A"}},
        {{"A", "", "B", ""}, "A,,B,", {"A", "", "B", ""}},
        {{" A ", "\tB\n"}, " A ,\tB\n", {"A", "B"}},
        {{"A,B"}, "A,B", {"A", "B"}},
        {{" "}, " ", {""}},
    };
    for (const auto& [items, text, readBack] : cases) {
        nxExchangeDefinition venue = Example();
        venue.SetMICs(items);
        const std::string xml = nxRecordText::WrittenItem(venue);
        EXPECT_NE(xml.find(std::string("<MICs>") + text + "</MICs>"), std::string::npos) << xml;
        nxExchangeDefinition read = Example();
        nxRecordText::ReadItem(read, xml);
        EXPECT_EQ(read.GetMICs(), readBack) << text;
    }
}

TEST(nxExchangeDefinitionConvertFromXML, TakesEachElementIntoItsFieldAndTheLastOfSeveral) {
    constexpr char Roles[] = "Is exchange: true, Is price source: true, Is order destination: false, ";
    const struct {
        const char* children;
        std::string text;
    } cases[] = {
        {"<IsOrderDestination>true</IsOrderDestination>text<Mnemonic>X</Mnemonic><x/>"
         "<IsPriceSource>0</IsPriceSource><Mnemonic> B </Mnemonic><Description>d</Description>",
         "Mnemonic:  B , Description: d, Is exchange: true, Is price source: false, "
         "Is order destination: true, MICs: XABC,XABDPrice streams: L1,L2"},
        {"<mnemonic>X</mnemonic><Mnemonics>X</Mnemonics><x><Mnemonic>X</Mnemonic></x>", ExampleText},
        {"<Mnemonic/><Description><x/>y</Description><IsExchange/>", ExampleText},
        {"<IsExchange>no</IsExchange><IsOrderDestination>yes</IsOrderDestination>", ExampleText},
        {"<PriceStreams>x</PriceStreams><MICs>b; c</MICs><PriceStreams> d , e </PriceStreams>",
         std::string("Mnemonic: ABC, Description: Some venue, ") + Roles + "MICs: b; cPrice streams: d,e"},
        {"<MICs/><PriceStreams><x/>X</PriceStreams>",
         std::string("Mnemonic: ABC, Description: Some venue, ") + Roles + "MICs: Price streams: "},
    };
    for (const auto& [children, text] : cases) {
        nxExchangeDefinition venue = Example();
        nxRecordText::ReadItem(venue, children);
        EXPECT_EQ(venue.GetAsLogString(), text) << children;
    }
}
