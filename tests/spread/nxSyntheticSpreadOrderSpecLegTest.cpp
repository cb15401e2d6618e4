// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/nxSpreadSample.h"

#include <random>
#include <string>
#include <vector>

namespace {
    using namespace nxRecordText;
    using namespace nxSpreadSample;
    using nxSpreadSample::Read;

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
    EXPECT_EQ(WrittenItem(Leg()),
              Elements("WorkingLeg=false OrderType=Undefined PessimisticVWAP=false Finesse=false "
                       "IsOpenAuctionModeLeg=false InheritTimeRestrictionFromSpreadOrder=false "
                       "AccountIDOverride=NULL ScratchPayupTicks=NULL PayupMethod=Plain "
                       "ConditionalPayup=false CascadeConditionalPayup=false"));
    const auto band = [](const std::string& number, const std::string& ticks, const std::string& range) {
        return Element("SensitivityTicks" + number, ticks) + Element("SensitivityRangeTicks" + number, range);
    };
    EXPECT_EQ(WrittenItem(FullLeg()),
              Elements("WorkingLeg=true TailSize=4294967286") + Element("OrderType", "Stop limit") +
                  Elements("RiskRatio=4294967288 PessimisticVWAP=true PayupTicks=2147483636 "
                           "ConditionalTriggerVolume=4294967280 ConditionalTriggerRatio=-17 Finesse=true "
                           "FinesseTriggerVolume=4294967272 FinesseTriggerRatio=-25 "
                           "IsOpenAuctionModeLeg=true InheritTimeRestrictionFromSpreadOrder=true "
                           "AccountIDOverride=4294967240 HedgeAggressionMethod=Passive "
                           "ScratchPayupTicks=2147483616 PayupMethod=Conditional ConditionalPayup=true "
                           "CascadeConditionalPayup=false CascadeFinessePayup=false "
                           "FinessePayupTicks=2147483636") +
                  band("1", "4294967260", "4294967262") + band("2", "4294967256", "4294967258") +
                  band("3", "4294967252", "4294967254") + band("4", "4294967248", "4294967250") +
                  band("5", "4294967244", "4294967246") + Element("ExecutionRestriction", "No restriction"));
}

TEST(nxSyntheticSpreadOrderSpecLegConvertToXML, WritesTheOlderPayupFormAsFarAsItGoes) {
    const struct {
        Method::Value method;
        bool finesse;
        int ticks;
        const char* older;
    } cases[] = {
        {Method::Plain, true, 0,
         "ConditionalPayup=false CascadeConditionalPayup=false CascadeFinessePayup=false "
         "FinessePayupTicks=0"},
        {Method::Conditional, true, -1,
         "ConditionalPayup=true CascadeConditionalPayup=false CascadeFinessePayup=false"},
        {Method::Cascade, true, NoTicksChange,
         "ConditionalPayup=true CascadeConditionalPayup=true CascadeFinessePayup=true"},
        {Method::Cascade, false, NoTicksChange - 1,
         "ConditionalPayup=true CascadeConditionalPayup=true FinessePayupTicks=2147483645"},
    };
    for (const auto& [method, finesse, ticks, older] : cases) {
        Leg leg;
        leg.SetPayupMethod(method);
        leg.SetFinesse(finesse);
        leg.SetPayupTicks(ticks);
        const std::string xml = WrittenItem(leg);
        EXPECT_EQ(xml.substr(xml.find("<ConditionalPayup>")), Elements(older));
    }
}

TEST(nxSyntheticSpreadOrderSpecLegConvertFromXML, TakesWhatItCanReadAndKeepsTheRest) {
    const struct {
        std::vector<const char*> names;
        std::vector<const char*> kept;
    } cases[] = {
        {{"WorkingLeg", "PessimisticVWAP", "Finesse", "IsOpenAuctionModeLeg", "IsAuctionModeLeg",
          "InheritTimeRestrictionFromSpreadOrder"},
         {"", "no", "NULL", "<x/>false"}},
        {{"TailSize", "RiskRatio", "ConditionalTriggerVolume", "FinesseTriggerVolume", "AccountIDOverride",
          "SensitivityTicks1", "SensitivityRangeTicks5"},
         {"", "7x", " 7", "-1", "4294967296", "Null", "<x/>7"}},
        {{"PayupTicks", "ScratchPayupTicks"}, {"", "7 ", "1.0", "2147483648"}},
        {{"ConditionalTriggerRatio", "FinesseTriggerRatio"}, {"NULL", "1,5", "1e3"}},
        {{"OrderType", "HedgeAggressionMethod", "ExecutionRestriction"},
         {"", "LIMIT", "JOIN", "1002", "13101", "FILL_OR_KILL"}},
        {{"workingLeg", "SensitivityTicks", "SensitivityTicks6", "LeaningLegRiskRatio"},
         {"true", "7", "<TailSize>7</TailSize>"}},
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
    EXPECT_EQ(log.Entries(), Strings());
}

// Pairs of documents that stand for the same leg.
TEST(nxSyntheticSpreadOrderSpecLegConvertFromXML, TakesTheLastGoodTextOfAnElement) {
    const struct {
        const char* document;
        const char* same;
    } cases[] = {
        {"TailSize=1 FinesseTriggerRatio=2.5 TailSize=3 TailSize=x", "TailSize=3 FinesseTriggerRatio=2.5"},
        {"TailSize=1 TailSize=NULL", "TailSize=4294967295"},
        {"TailSize=NO_CHANGE", "TailSize=4294967294"},
        {"FinesseTriggerRatio=1 FinesseTriggerRatio=", ""}, // the empty text is a null decimal
        {"OrderType=Limit OrderType=Undefined OrderType=", ""},
        {"IsOpenAuctionModeLeg=true IsAuctionModeLeg=0", "IsOpenAuctionModeLeg=false"},
        {"IsAuctionModeLeg=0 IsOpenAuctionModeLeg=TRUE", "IsAuctionModeLeg=true"},
        {"IsAuctionModeLeg=true IsOpenAuctionModeLeg=x", "IsOpenAuctionModeLeg=1"},

        // The older ticks count only for want of newer settings.
        {"FinessePayupTicks=3", "PayupTicks=3"},
        {"FinessePayupTicks=3 PayupTicks=-1", "PayupTicks=-1"},
        {"PayupTicks=0 FinessePayupTicks=3", "PayupTicks=0"},
        {"PayupTicks=NULL FinessePayupTicks=3", "PayupTicks=3"},
        {"FinessePayupTicks=3 PayupTicks=NO_CHANGE", "PayupTicks=3"},
        {"FinessePayupTicks=3 PayupMethod=Plain", "PayupMethod=Plain"},
        {"PayupMethod=Cascade FinessePayupTicks=3 PayupMethod=Undefined", "PayupTicks=3"},
        {"PayupMethod=PLAIN PayupMethod= FinessePayupTicks=3", "PayupTicks=3"},
        {"FinessePayupTicks=x FinessePayupTicks=-1", ""},
        {"FinessePayupTicks=4294967293", "PayupTicks=-3"},
        {"FinessePayupTicks=3 FinessePayupTicks=4294967294", ""},
        {"FinessePayupTicks=3 FinessePayupTicks=x FinessePayupTicks=NULL", "PayupTicks=3"},
    };
    for (const auto& [document, same] : cases) {
        const Leg leg = Read(Elements(document));
        EXPECT_TRUE(leg.IsEqual(Read(Elements(same)))) << document << " gives " << leg.GetAsLogString();
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
            const Leg expected = Read(finesseFlag + newer);
            for (const auto& document :
                 {finesseFlag + older, older + finesseFlag, finesseFlag + older + newer})
                EXPECT_TRUE(Read(document).IsEqual(expected)) << document;
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
    EXPECT_TRUE(Read(WrittenItem(leg)).IsEqual(leg));
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
        const std::string xml = WrittenItem(leg);
        Leg read = Read(xml);
        ASSERT_TRUE(read.IsEqual(leg)) << xml;
        ASSERT_EQ(WrittenItem(read), xml);
        for (std::size_t i = 0; i < numbers.size(); ++i)
            ASSERT_TRUE(Settings[i].holds(read, numbers[i])) << "setting " << i << " of " << xml;
    }
    EXPECT_EQ(log.Entries(), Strings());
}

TEST(nxSyntheticSpreadOrderSpecLegGetAsLogString, TellsWhatMattersForTheLeg) {
    EXPECT_EQ(
        Leg().GetAsLogString(),
        ", Working Leg: false, Risk ratio: NULL, Order type: Undefined order type, Payup ticks: , Payup "
        "method: PLAIN, Pessimistic VWAP: false, Finesse: false, Is auction mode leg: false, Hedge "
        "aggression method: Undefined hedge aggression, Scratch payup ticks: NULL, Execution "
        "restriction: Undefined execution restriction, Inherits time restriction from spread order: "
        "false, Account ID ovrride: NULL");
    EXPECT_EQ(FullLeg().GetAsLogString(),
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
    Leg cascade = Read(Elements("PayupMethod=Cascade PayupTicks=NO_CHANGE"));
    EXPECT_NE(cascade.GetAsLogString().find(", Payup ticks: , Payup method: CASCADE, Conditional trigger "
                                            "volume: NULL, Conditional trigger ratio: NULL, Pessimistic"),
              std::string::npos);
}
