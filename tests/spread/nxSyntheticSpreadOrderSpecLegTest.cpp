// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxSpreadSample.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpecLeg_XML.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <string>
#include <vector>

namespace {
    using namespace nxSpreadSample;

    using Method = nxSyntheticSpreadPayupMethodEnum;
    using Strings = std::vector<std::string>;

    constexpr auto NoTicksChange = nxIntValueWrapper::NoChangeValue;

    // Every setting is another value of its type, and every flag is set.
    Leg FullLeg() {
        Numbers numbers;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = 2 * i + 3;
        return MakeLeg(numbers);
    }
} // namespace

TEST(nxSyntheticSpreadOrderSpecLegConvertToXML, WritesTheSettingsInOrder) {
    Leg unset, full = FullLeg();
    EXPECT_EQ(Written(unset),
              "<WorkingLeg>false</WorkingLeg><OrderType>Undefined</OrderType>"
              "<PessimisticVWAP>false</PessimisticVWAP><Finesse>false</Finesse>"
              "<IsOpenAuctionModeLeg>false</IsOpenAuctionModeLeg>"
              "<InheritTimeRestrictionFromSpreadOrder>false</InheritTimeRestrictionFromSpreadOrder>"
              "<AccountIDOverride>NULL</AccountIDOverride><ScratchPayupTicks>NULL</ScratchPayupTicks>"
              "<PayupMethod>Plain</PayupMethod><ConditionalPayup>false</ConditionalPayup>"
              "<CascadeConditionalPayup>false</CascadeConditionalPayup>");
    EXPECT_EQ(Written(full),
              "<WorkingLeg>true</WorkingLeg><TailSize>4294967286</TailSize>"
              "<OrderType>Stop limit</OrderType><RiskRatio>4294967288</RiskRatio>"
              "<PessimisticVWAP>true</PessimisticVWAP><PayupTicks>2147483636</PayupTicks>"
              "<ConditionalTriggerVolume>4294967280</ConditionalTriggerVolume>"
              "<ConditionalTriggerRatio>-17</ConditionalTriggerRatio><Finesse>true</Finesse>"
              "<FinesseTriggerVolume>4294967272</FinesseTriggerVolume>"
              "<FinesseTriggerRatio>-25</FinesseTriggerRatio>"
              "<IsOpenAuctionModeLeg>true</IsOpenAuctionModeLeg>"
              "<InheritTimeRestrictionFromSpreadOrder>true</InheritTimeRestrictionFromSpreadOrder>"
              "<AccountIDOverride>4294967240</AccountIDOverride>"
              "<HedgeAggressionMethod>Passive</HedgeAggressionMethod>"
              "<ScratchPayupTicks>2147483616</ScratchPayupTicks><PayupMethod>Conditional</PayupMethod>"
              "<ConditionalPayup>true</ConditionalPayup>"
              "<CascadeConditionalPayup>false</CascadeConditionalPayup>"
              "<CascadeFinessePayup>false</CascadeFinessePayup>"
              "<FinessePayupTicks>2147483636</FinessePayupTicks>"
              "<SensitivityTicks1>4294967260</SensitivityTicks1>"
              "<SensitivityRangeTicks1>4294967262</SensitivityRangeTicks1>"
              "<SensitivityTicks2>4294967256</SensitivityTicks2>"
              "<SensitivityRangeTicks2>4294967258</SensitivityRangeTicks2>"
              "<SensitivityTicks3>4294967252</SensitivityTicks3>"
              "<SensitivityRangeTicks3>4294967254</SensitivityRangeTicks3>"
              "<SensitivityTicks4>4294967248</SensitivityTicks4>"
              "<SensitivityRangeTicks4>4294967250</SensitivityRangeTicks4>"
              "<SensitivityTicks5>4294967244</SensitivityTicks5>"
              "<SensitivityRangeTicks5>4294967246</SensitivityRangeTicks5>"
              "<ExecutionRestriction>No restriction</ExecutionRestriction>");
}

TEST(nxSyntheticSpreadOrderSpecLegConvertToXML, WritesNoChangeByName) {
    Numbers numbers;
    numbers.fill(1);
    Leg leg = MakeLeg(numbers);
    const std::string xml = Written(leg);
    const auto count = [&xml](const char* text) {
        const std::regex pattern(text);
        return std::distance(std::sregex_iterator(xml.begin(), xml.end(), pattern), {});
    };
    EXPECT_EQ(count(">NO_CHANGE<"), 17) << xml;
    EXPECT_EQ(count(">No change<"), 3) << xml;
}

TEST(nxSyntheticSpreadOrderSpecLegConvertToXML, WritesTheOlderPayupFormAsFarAsItGoes) {
    const auto cascade = [](const char* value) {
        return Element("CascadeConditionalPayup", value) + Element("CascadeFinessePayup", value);
    };
    const struct {
        Method::Value method;
        bool finesse;
        int ticks;
        std::string older;
    } cases[] = {
        {Method::Plain, true, 0,
         Element("ConditionalPayup", "false") + cascade("false") + Element("FinessePayupTicks", "0")},
        {Method::Conditional, true, -1, Element("ConditionalPayup", "true") + cascade("false")},
        {Method::Cascade, true, NoTicksChange, Element("ConditionalPayup", "true") + cascade("true")},
        {Method::Cascade, false, NoTicksChange - 1,
         Element("ConditionalPayup", "true") + Element("CascadeConditionalPayup", "true") +
             Element("FinessePayupTicks", "2147483645")},
    };
    for (const auto& [method, finesse, ticks, older] : cases) {
        Leg leg;
        leg.SetPayupMethod(method);
        leg.SetFinesse(finesse);
        leg.SetPayupTicks(ticks);
        const std::string xml = Written(leg);
        EXPECT_EQ(xml.substr(xml.find("<ConditionalPayup>")), older);
    }
}

TEST(nxSyntheticSpreadOrderSpecLegConvertFromXML, TakesWhatItCanReadAndKeepsTheRest) {
    const struct {
        std::vector<const char*> names;
        std::vector<const char*> kept;
    } cases[] = {
        {{"WorkingLeg", "PessimisticVWAP", "Finesse", "IsOpenAuctionModeLeg", "IsAuctionModeLeg",
          "InheritTimeRestrictionFromSpreadOrder"},
         {"", "no", "2", " false", "NULL", "<x/>false", "<![CDATA[false]]>"}},
        {{"TailSize", "RiskRatio", "ConditionalTriggerVolume", "FinesseTriggerVolume", "AccountIDOverride",
          "SensitivityTicks1", "SensitivityRangeTicks5"},
         {"", "abc", "7x", " 7", "+7", "1.0", "-1", "4294967296", "Null", "<x/>7", "<![CDATA[7]]>"}},
        {{"PayupTicks", "ScratchPayupTicks"}, {"", "abc", "7x", "7 ", "1.0", "2147483648", "-2147483649"}},
        {{"ConditionalTriggerRatio", "FinesseTriggerRatio"}, {"NULL", "abc", "1,5", "1.", " 1", "1e3"}},
        {{"OrderType", "HedgeAggressionMethod", "ExecutionRestriction"},
         {"", "LIMIT", "limit", "JOIN", "1002", "13101", " Join", "FILL_OR_KILL", "<x/>Limit"}},
        {{"Unknown", "workingLeg", "TailSize1", "SensitivityTicks", "SensitivityTicks6",
          "LeaningLegRiskRatio", "InheritsTimeRestrictionFromSpreadOrder", "SensitivityRangeTicks_1"},
         {"true", "7", "Limit", "<TailSize>7</TailSize>"}},
    };
    const nxCollectedLog log;
    Leg full = FullLeg();
    full.SetPayupMethod(Method::Plain); // what a document without payup settings stands for
    for (const auto& [names, kept] : cases) {
        for (const char* name : names) {
            for (const char* text : kept)
                EXPECT_TRUE(Read(Element(name, text), full).IsEqual(full)) << name << ": " << text;
        }
    }
    EXPECT_TRUE(Read("", full).IsEqual(full));
    EXPECT_TRUE(Read("").IsEqual(Leg()));
    EXPECT_EQ(log.Entries(), Strings());
}

// Pairs of documents that stand for the same leg.
TEST(nxSyntheticSpreadOrderSpecLegConvertFromXML, TakesTheLastGoodTextOfAnElement) {
    const auto tail = [](const char* text) { return Element("TailSize", text); };
    const auto open = [](const char* text) { return Element("IsOpenAuctionModeLeg", text); };
    const auto auction = [](const char* text) { return Element("IsAuctionModeLeg", text); };
    const auto ratio = [](const char* text) { return Element("FinesseTriggerRatio", text); };
    const auto order = [](const char* text) { return Element("OrderType", text); };
    const auto method = [](const char* text) { return Element("PayupMethod", text); };
    const auto ticks = [](const char* text) { return Element("PayupTicks", text); };
    const auto older = [](const char* text) { return Element("FinessePayupTicks", text); };
    const struct {
        std::string document;
        std::string same;
    } cases[] = {
        {tail("1") + ratio("2.5") + "text<!-- -->" + tail("3") + tail("x"), tail("3") + ratio("2.5")},
        {tail("1") + tail("NULL"), tail("4294967295")},
        {tail("NO_CHANGE"), tail("4294967294")},
        {ratio("1") + "<FinesseTriggerRatio/>", ""}, // the empty text is a null decimal
        {order("Limit") + order("Undefined") + order(""), ""},
        {open("true") + auction("0"), open("false")},
        {auction("0") + open("TRUE"), auction("true")},
        {auction("true") + open("x"), open("1")},

        // The older ticks count only for want of newer settings.
        {older("3"), ticks("3")},
        {older("3") + ticks("-1"), ticks("-1")},
        {ticks("0") + older("3"), ticks("0")},
        {ticks("NULL") + older("3"), ticks("3")},
        {older("3") + ticks("NO_CHANGE"), ticks("3")},
        {ticks("x") + older("3"), ticks("3")},
        {older("3") + method("Plain"), method("Plain")},
        {older("3") + method("No change"), method("No change")},
        {method("Cascade") + older("3") + method("Undefined"), ticks("3")},
        {method("PLAIN") + method("") + older("3"), ticks("3")},
        {older("x") + older("-1"), ""},
        {older("4294967293"), ticks("-3")},
        {older("3") + older("4294967294"), ""},
        {older("2147483646"), ticks("NO_CHANGE")},
        {older("3") + older("x") + older("NULL"), ticks("3")},
    };
    for (const auto& [document, same] : cases) {
        Leg leg = Read(document);
        EXPECT_TRUE(leg.IsEqual(Read(same))) << document << " gives " << Written(leg);
    }
}

TEST(nxSyntheticSpreadOrderSpecLegPayup, OlderAndNewerFormReadToEqualLegs) {
    constexpr auto P = Method::Plain, C = Method::Conditional, X = Method::Cascade;
    // By the flags "ConditionalPayup", "CascadeConditionalPayup", "CascadeFinessePayup" and "Finesse".
    constexpr Method::Value Methods[2][2][2][2] = {{{{P, P}, {P, X}}, {{X, X}, {X, X}}},
                                                   {{{C, C}, {C, X}}, {{X, X}, {X, X}}}};
    // A flag may be missing, malformed, false or true.
    const std::vector<std::string> texts = {"", "?", "false", "true"};
    const auto flag = [&texts](const char* name, unsigned state) {
        return state == 0 ? "" : Element(name, texts[state]);
    };
    for (unsigned states = 0; states < 256; ++states) {
        const unsigned conditional = states & 3, cascade = states >> 2 & 3, cascadeFinesse = states >> 4 & 3,
                       finesse = states >> 6;
        const auto isSet = [](unsigned state) { return state == 3 ? 1 : 0; };
        Leg method;
        method.SetPayupMethod(
            Methods[isSet(conditional)][isSet(cascade)][isSet(cascadeFinesse)][isSet(finesse)]);
        const std::string finesseFlag = flag("Finesse", finesse);
        const std::string payupFlags = flag("ConditionalPayup", conditional) +
                                       flag("CascadeConditionalPayup", cascade) +
                                       flag("CascadeFinessePayup", cascadeFinesse);
        const std::string methodText = Element("PayupMethod", method.GetPayupMethod().GetShortDescription());
        for (const char* ticks : {"", "0", "3", "2147483645"}) {
            const std::string older = payupFlags + (*ticks ? Element("FinessePayupTicks", ticks) : "");
            const std::string newer = methodText + (*ticks ? Element("PayupTicks", ticks) : "");
            Leg expected = Read(finesseFlag + newer);
            for (const auto& document :
                 {finesseFlag + older, older + finesseFlag, finesseFlag + older + newer}) {
                Leg leg = Read(document);
                EXPECT_TRUE(leg.IsEqual(expected)) << document << "\n" << Written(leg);
            }
        }
        // A method that is named wins against any flags.
        for (const char* named : {"Plain", "Conditional", "Cascade", "No change"}) {
            const std::string newer = finesseFlag + Element("PayupMethod", named);
            EXPECT_TRUE(Read(payupFlags + newer).IsEqual(Read(newer))) << payupFlags << newer;
        }
    }
}

TEST(nxSyntheticSpreadOrderSpecLegPayup, NeverHasAnUndefinedMethod) {
    Leg leg;
    for (const unsigned method : {0u, 2u, 13004u}) {
        leg.SetPayupMethod(Method::Cascade);
        leg.SetPayupMethod(method);
        EXPECT_EQ(leg.GetPayupMethod(), Method::Plain);
    }
    EXPECT_EQ(Read(Element("PayupMethod", "Undefined"), FullLeg()).GetPayupMethod(), Method::Plain);
    leg = Read(Element("PayupMethod", "No change")); // a document may say so
    EXPECT_TRUE(leg.GetPayupMethod().IsNoChange());
    EXPECT_TRUE(Read(Written(leg)).IsEqual(leg));
}

TEST(nxSyntheticSpreadOrderSpecLegIsEqual, LooksAtEverySetting) {
    std::mt19937_64 random(2);
    for (std::size_t i = 0; i < std::size(Settings); ++i) {
        for (unsigned n = 0; n < 4; ++n) {
            Leg left = MakeLeg(RandomNumbers(random)), right = left;
            Settings[i].set(left, n);
            Settings[i].set(right, n + 1);
            EXPECT_FALSE(left.IsEqual(right)) << "setting " << i << ", number " << n;
            EXPECT_FALSE(right.IsEqual(left)) << "setting " << i << ", number " << n;
            Settings[i].set(right, n);
            EXPECT_TRUE(left.IsEqual(right)) << "setting " << i << ", number " << n;
        }
    }
    Leg left, right;
    left.SetFinesseTriggerRatio(nxDecimal(15, 1));
    right.SetFinesseTriggerRatio(nxDecimal(150, 2));
    EXPECT_TRUE(left.IsEqual(right));
}

TEST(nxSyntheticSpreadOrderSpecLegRoundTrip, KeepsEverySettingOverItsWholeRange) {
    const nxCollectedLog log;
    std::mt19937_64 random(3);
    for (int round = 0; round < 5000; ++round) {
        const Numbers numbers = RandomNumbers(random);
        Leg leg = MakeLeg(numbers);
        const std::string xml = Written(leg);
        Leg read = Read(xml);
        ASSERT_TRUE(read.IsEqual(leg)) << xml;
        ASSERT_EQ(Written(read), xml);
        for (std::size_t i = 0; i < numbers.size(); ++i)
            ASSERT_TRUE(Settings[i].holds(read, numbers[i])) << "setting " << i << " of " << xml;
    }
    EXPECT_EQ(log.Entries(), Strings());
}

TEST(nxSyntheticSpreadOrderSpecLegGetAsLogString, TellsWhatMattersForTheLeg) {
    Leg full = FullLeg();
    EXPECT_EQ(
        Leg().GetAsLogString(),
        ", Working Leg: false, Risk ratio: NULL, Order type: Undefined order type, Payup ticks: , Payup "
        "method: PLAIN, Pessimistic VWAP: false, Finesse: false, Is auction mode leg: false, Hedge "
        "aggression method: Undefined hedge aggression, Scratch payup ticks: NULL, Execution "
        "restriction: Undefined execution restriction, Inherits time restriction from spread order: "
        "false, Account ID ovrride: NULL");
    EXPECT_EQ(full.GetAsLogString(),
              ", Working Leg: true, Tail size: 4294967286, Sensitivity range 1: 4294967262, Sensitivity "
              "ticks 1: 4294967260, Sensitivity range 2: 4294967258, Sensitivity ticks 2: 4294967256, "
              "Sensitivity range 3: 4294967254, Sensitivity ticks 3: 4294967252, Sensitivity range 4: "
              "4294967250, Sensitivity ticks 4: 4294967248, Sensitivity range 5: 4294967246, Sensitivity "
              "ticks 5: 4294967244, Risk ratio: 4294967288, Order type: Stop limit order, Payup ticks: "
              "2147483636, Payup method: CONDITIONAL, Conditional trigger volume: 4294967280, Conditional "
              "trigger ratio: -17, Pessimistic VWAP: true, Finesse: true, Finesse trigger volume: "
              "4294967272, Finesse trigger ratio: -25, Is auction mode leg: true, Hedge aggression method: "
              "Hedge at the limit price and wait, Scratch payup ticks: 2147483616, Execution restriction: "
              "Execution without restriction, Inherits time restriction from spread order: true, Account ID "
              "ovrride: 4294967240");
    Leg cascade;
    cascade.SetPayupMethod(Method::Cascade);
    cascade.SetPayupTicks(NoTicksChange);
    EXPECT_NE(cascade.GetAsLogString().find(", Payup ticks: , Payup method: CASCADE, Conditional trigger "
                                            "volume: NULL, Conditional trigger ratio: NULL, Pessimistic"),
              std::string::npos);
}
