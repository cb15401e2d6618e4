// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/nxSpreadSample.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace {
    using namespace nxRecordText;
    using nxRecordText::Read;
    using nxSpreadSample::Leg;

    using Spec = nxSyntheticSpreadOrderSpec_XML;
    using Strings = std::vector<std::string>;
    using Sizes = std::vector<unsigned int>;

    Spec SpecOf(const std::vector<Leg>& legs) {
        Spec spec;
        for (const Leg& leg : legs)
            spec.GetLegs().push_back(std::make_unique<Leg>(leg));
        return spec;
    }
    Leg LegOfSize(unsigned int tailSize) {
        Leg leg;
        leg.SetTailSize(tailSize);
        return leg;
    }
    Sizes TailSizes(const Spec& spec) {
        Sizes sizes;
        for (const auto& leg : spec.GetLegs())
            sizes.push_back(leg->GetTailSize());
        return sizes;
    }

    std::string LegElement(const std::string& index, const std::string& tailSize) {
        return Element("Leg-" + index, Element("TailSize", tailSize));
    }
} // namespace

TEST(nxSyntheticSpreadOrderSpecConvertToXML, WritesEveryFieldAndTheLegsByNumber) {
    Leg plain, tail = LegOfSize(7);
    Spec spec = SpecOf({plain, tail});
    spec.SetSpecName("name");
    spec.SetScratchIfLegged(true);
    spec.SetExchangeDestinationOverride("CME");
    EXPECT_EQ(Written(Spec()),
              Element("SyntheticSpreadSpec", "<SpecName></SpecName><Legs/><ScratchIfLegged>false"
                                             "</ScratchIfLegged><ExchDest></ExchDest>"));
    EXPECT_EQ(Written(spec),
              Element("SyntheticSpreadSpec", Element("SpecName", "name") +
                                                 Element("Legs", Element("Leg-0", WrittenItem(plain)) +
                                                                     Element("Leg-1", WrittenItem(tail))) +
                                                 Elements("ScratchIfLegged=true ExchDest=CME")));
}

TEST(nxSyntheticSpreadOrderSpecConvertToXML, RefusesATextThatXMLCannotCarry) {
    for (const auto set : {&Spec::SetSpecName, &Spec::SetExchangeDestinationOverride}) {
        Spec spec;
        (spec.*set)("a\x01");
        std::string xml = "before";
        const nxCollectedLog log;
        EXPECT_EQ(spec.ConvertToXML(xml, ""), nxErrorEnum::XMLTextNotCarried);
        EXPECT_EQ(xml, "before");
    }
}

TEST(nxSyntheticSpreadOrderSpecConvertFromXML, TakesLegsByNumberWhereverTheyStand) {
    const std::string leg0 = LegElement("0", "10"), leg1 = LegElement("1", "11"),
                      leg2 = LegElement("2", "12");
    const struct {
        std::string legs;
        Sizes tailSizes;
    } cases[] = {
        {leg0 + leg2, {10}},
        {leg1, {}},
        {leg2 + "text" + leg1 + "<Leg/><!-- -->" + leg0, {10, 11, 12}},
        {LegElement("0", "1") + leg0 + leg1, {1, 11}},
        {leg0 + LegElement("01", "1") + LegElement("1x", "1"), {10}},
        {leg0 + "<Leg-1/>" + leg2, {10, nxUnsignedValueWrapper::NullValue, 12}},
        {leg0 + leg1 + "</Legs><Legs/><Legs>" + leg0, {10, 11, 10}},
    };
    for (const auto& [legs, tailSizes] : cases) {
        Spec spec;
        Read(spec, Element("any", leg0 + Element("Legs", legs)));
        EXPECT_EQ(TailSizes(spec), tailSizes) << legs;
        Read(spec, Element("any", Element("Legs", legs))); // appends
        EXPECT_EQ(spec.GetLegs().size(), 2 * tailSizes.size()) << legs;
    }
}

TEST(nxSyntheticSpreadOrderSpecConvertFromXML, KeepsWhatTheDocumentDoesNotGive) {
    const struct {
        const char* elements;
        const char* held;
    } cases[] = {
        {"SpecName= ScratchIfLegged= ExchDest=", "before/true/CME"},
        {"SpecName=<x/>a ScratchIfLegged=no exchDest=b", "before/true/CME"},
        {"ExchDest=LME ScratchIfLegged=0 SpecName=a SpecName=b SpecName=", "b/false/LME"},
    };
    for (const auto& [elements, held] : cases) {
        Spec spec;
        spec.SetSpecName("before");
        spec.SetScratchIfLegged(true);
        spec.SetExchangeDestinationOverride("CME");
        Read(spec, Element("any", Elements(elements)));
        EXPECT_EQ(spec.GetSpecName() + (spec.GetScratchIfLegged() ? "/true/" : "/false/") +
                      spec.GetExchangeDestinationOverride(),
                  held);
    }
}

TEST(nxSyntheticSpreadOrderSpecConvertFromXML, OfManyLegsTakesLinearTime) {
    constexpr unsigned int Count = 10000;
    std::string legs;
    for (unsigned int i = Count; i-- > 0;) // the order that is worst for a search from the front
        legs += LegElement(std::to_string(i), std::to_string(i));
    Spec spec;
    const auto start = std::chrono::steady_clock::now();
    Read(spec, Element("any", Element("Legs", legs)));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    ASSERT_EQ(spec.GetLegs().size(), Count);
    EXPECT_EQ(spec.GetLegs().back()->GetTailSize(), Count - 1);
}

TEST(nxSyntheticSpreadOrderSpecCopy, HasLegsOfItsOwn) {
    Spec spec = SpecOf({LegOfSize(1), LegOfSize(2)});
    spec.SetSpecName("name");
    spec.SetScratchIfLegged(true);
    spec.SetExchangeDestinationOverride("CME");
    const std::string xml = Written(spec);

    const std::unique_ptr<Spec> copy(spec.CopyInstance());
    Spec assigned = SpecOf({LegOfSize(3)});
    assigned = spec;
    for (Spec* other : {copy.get(), &assigned}) {
        EXPECT_EQ(Written(*other), xml);
        other->GetLegs().front()->SetTailSize(9);
    }
    EXPECT_EQ(Written(spec), xml);

    Spec& self = spec;
    spec = self;
    EXPECT_EQ(spec.GetLegs().size(), 0u);
    EXPECT_EQ(spec.GetSpecName(), "name");
}

TEST(nxSyntheticSpreadOrderSpecIsValid, WantsTwoLegsAndEndsAtTheFirstBadOne) {
    Leg bad, worse;
    bad.SetFinesse(true);
    worse.SetExecutionRestriction(nxExecutionRestrictionEnum::FillOrKill);
    const std::string tooFew = "prefix: Spec must contain at least 2 legs";
    const std::string noVolume =
        "prefix: Finesse is enabled, but trigger volume is not set. Trigger volume: NULL";
    const struct {
        std::vector<Leg> legs;
        Strings messages;
    } cases[] = {
        {{bad}, {tooFew}},
        {{Leg(), Leg()}, {}},
        {{Leg(), Leg(), bad}, {noVolume}},
        {{bad, worse, Leg()}, {noVolume}},
    };
    for (const auto& [legs, messages] : cases) {
        const nxErrorEnum expected = messages.empty() ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
        for (const nxLogLevelEnum threshold : {nxLogLevelEnum::Trace, nxLogLevelEnum::Fatal}) {
            const nxCollectedLog log(threshold);
            EXPECT_EQ(SpecOf(legs).IsValid("prefix: "), expected);
            EXPECT_EQ(log.Entries(), threshold == nxLogLevelEnum::Fatal ? Strings() : messages);
        }
    }
}

TEST(nxSyntheticSpreadOrderSpecLegs, PassOverNullPointersWhichAreNotValid) {
    Spec spec = SpecOf({LegOfSize(1), LegOfSize(2)});
    const std::string xml = Written(spec);
    const std::string text = spec.GetAsLogString();
    spec.GetLegs().insert(spec.GetLegs().begin() + 1, nullptr);
    EXPECT_EQ(Written(spec), xml); // numbered without a gap
    EXPECT_EQ(spec.GetAsLogString(), text);
    EXPECT_EQ(spec.GetWorkingLegCount(), 0U);
    EXPECT_FALSE(spec.ContainsAuctionModeLegs());
    EXPECT_TRUE(Spec(spec) == spec);
    EXPECT_FALSE(SpecOf({LegOfSize(1), LegOfSize(2)}) == spec);

    const nxCollectedLog log(nxLogLevelEnum::Error);
    EXPECT_EQ(spec.IsValid("prefix: "), nxErrorEnum::InvalidData);
    EXPECT_EQ(log.Entries(), Strings{"prefix: A leg is missing"});
}

TEST(nxSyntheticSpreadOrderSpecGetAsLogString, NamesEachLegByItsNumber) {
    Leg working, auction;
    working.SetWorkingLeg(true);
    auction.SetWorkingLeg(true);
    auction.SetIsAuctionModeLeg(true);
    Spec spec = SpecOf({working, Leg()});
    EXPECT_EQ(spec.GetWorkingLegCount(), 1u);
    EXPECT_FALSE(spec.ContainsAuctionModeLegs());
    spec = SpecOf({working, Leg(), auction});
    spec.SetScratchIfLegged(true);
    spec.SetExchangeDestinationOverride("CME");
    EXPECT_EQ(spec.GetAsLogString(), "Leg count: 3, Leg #: 0" + working.GetAsLogString() + ", Leg #: 1" +
                                         Leg().GetAsLogString() + ", Leg #: 2" + auction.GetAsLogString() +
                                         ", Scratch if legged: true, Exchange destination override: CME");
    EXPECT_EQ(spec.GetWorkingLegCount(), 2u);
    EXPECT_TRUE(spec.ContainsAuctionModeLegs());
}
