// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxDataCategoryEnum.h"
#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxRandomText.h"
#include "tests/support/nxSpreadSample.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace {
    using namespace nxSpreadSample;

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

    std::string InSpec(const std::string& children) {
        return Element("SyntheticSpreadSpec", children);
    }
    std::string LegElement(const std::string& index, const std::string& tailSize) {
        return Element("Leg-" + index, Element("TailSize", tailSize));
    }
    std::string Written(Spec& spec) {
        std::string xml;
        EXPECT_EQ(spec.ConvertToXML(xml, "ignored"), nxErrorEnum::OK);
        return xml;
    }
} // namespace

TEST(nxSyntheticSpreadOrderSpecConvertToXML, WritesEveryFieldAndTheLegsByNumber) {
    Leg plain, tail = LegOfSize(7);
    Spec empty, spec = SpecOf({plain, tail});
    spec.SetSpecName("Crack <3:2:1>");
    spec.SetScratchIfLegged(true);
    spec.SetExchangeDestinationOverride("CME \u00E9");
    EXPECT_EQ(Written(empty), InSpec("<SpecName></SpecName><Legs/><ScratchIfLegged>false</ScratchIfLegged>"
                                     "<ExchDest></ExchDest>"));
    EXPECT_EQ(Written(spec), InSpec(Element("SpecName", "Crack &lt;3:2:1&gt;") +
                                    Element("Legs", Element("Leg-0", nxSpreadSample::Written(plain)) +
                                                        Element("Leg-1", nxSpreadSample::Written(tail))) +
                                    Element("ScratchIfLegged", "true") + Element("ExchDest", "CME \u00E9")));
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
    const auto legs = [](const std::string& children) { return "<a>" + Element("Legs", children) + "</a>"; };
    const std::string leg0 = LegElement("0", "10"), leg1 = LegElement("1", "11"),
                      leg2 = LegElement("2", "12");
    const struct {
        std::string xml;
        Sizes tailSizes;
    } cases[] = {
        {"<a/>", {}},
        {"<a>" + leg0 + "</a>", {}},
        {legs(""), {}},
        {legs(leg0 + leg1), {10, 11}},
        {legs(leg0 + leg2), {10}},
        {legs(leg1), {}},
        {legs(leg2 + "text" + leg1 + "<Leg/><!-- -->" + leg0), {10, 11, 12}},
        {legs(LegElement("0", "1") + leg0 + leg1), {1, 11}},
        {legs(leg0 + LegElement("01", "1") + LegElement("1x", "1")), {10}},
        {legs(leg0 + "<Leg-1/>" + leg2), {10, nxUnsignedValueWrapper::NullValue, 12}},
        {"<a>" + Element("Legs", leg0 + leg1) + "<Legs/>" + Element("Legs", leg0) + "</a>", {10, 11, 10}},
    };
    for (const auto& [xml, tailSizes] : cases) {
        const nxCollectedLog log;
        Spec spec;
        EXPECT_EQ(spec.ConvertFromXML(xml, "prefix: "), nxErrorEnum::OK) << xml;
        EXPECT_EQ(TailSizes(spec), tailSizes) << xml;
        EXPECT_EQ(log.Entries(), Strings()) << xml;
        EXPECT_EQ(spec.ConvertFromXML(xml, "prefix: "), nxErrorEnum::OK); // appends
        EXPECT_EQ(spec.GetLegs().size(), 2 * tailSizes.size()) << xml;
    }
}

TEST(nxSyntheticSpreadOrderSpecConvertFromXML, KeepsWhatTheDocumentDoesNotGive) {
    const struct {
        std::string children;
        std::string written;
    } cases[] = {
        {"", "before/true/CME"},
        {"<SpecName/><ScratchIfLegged/><ExchDest/>", "before/true/CME"},
        {"<SpecName><x/>a</SpecName><ScratchIfLegged>no</ScratchIfLegged><exchDest>b</exchDest>",
         "before/true/CME"},
        {"<ExchDest>LME</ExchDest><ScratchIfLegged>0</ScratchIfLegged><SpecName>a</SpecName>", "a/false/LME"},
        {"<SpecName>a</SpecName><SpecName> b </SpecName><SpecName/>", " b /true/CME"},
    };
    for (const auto& [children, written] : cases) {
        Spec spec;
        spec.SetSpecName("before");
        spec.SetScratchIfLegged(true);
        spec.SetExchangeDestinationOverride("CME");
        EXPECT_EQ(spec.ConvertFromXML(InSpec(children), ""), nxErrorEnum::OK);
        EXPECT_EQ(spec.GetSpecName() + (spec.GetScratchIfLegged() ? "/true/" : "/false/") +
                      spec.GetExchangeDestinationOverride(),
                  written);
    }
    const nxCollectedLog log;
    Spec spec = SpecOf({LegOfSize(1)});
    EXPECT_EQ(spec.ConvertFromXML("<a><Legs></a>", "prefix: "), nxErrorEnum::InvalidData);
    EXPECT_EQ(TailSizes(spec), Sizes{1});
    EXPECT_EQ(log.Entries().back(), "prefix: Failed to convert XML data to spread spec. Unable to create XML "
                                    "document from XML string");
    EXPECT_EQ(log.Records().back().level, nxLogLevelEnum::Error);
    EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxSyntheticSpreadOrderSpec_XML");
}

TEST(nxSyntheticSpreadOrderSpecConvertFromXML, OfManyLegsTakesLinearTime) {
    constexpr unsigned int Count = 10000;
    std::string legs;
    for (unsigned int i = Count; i-- > 0;) // the order that is worst for a search from the front
        legs += LegElement(std::to_string(i), std::to_string(i));
    Spec spec;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(spec.ConvertFromXML(InSpec(Element("Legs", legs)), ""), nxErrorEnum::OK);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    ASSERT_EQ(spec.GetLegs().size(), Count);
    EXPECT_EQ(spec.GetLegs().back()->GetTailSize(), Count - 1);
}

TEST(nxSyntheticSpreadOrderSpecRoundTrip, KeepsAnyTextAndAnyLegs) {
    nxRandomText text(1);
    std::mt19937_64 random(1);
    for (int round = 0; round < 200; ++round) {
        Spec spec, read;
        spec.SetSpecName(text.Text());
        spec.SetScratchIfLegged(text.Flag());
        spec.SetExchangeDestinationOverride(text.Text());
        for (unsigned int legs = text.Below(13); legs > 0; --legs)
            spec.GetLegs().push_back(std::make_unique<Leg>(MakeLeg(RandomNumbers(random))));
        const std::string xml = Written(spec);
        ASSERT_EQ(read.ConvertFromXML(xml, ""), nxErrorEnum::OK);
        ASSERT_EQ(read.GetSpecName(), spec.GetSpecName());
        ASSERT_EQ(read.GetExchangeDestinationOverride(), spec.GetExchangeDestinationOverride());
        ASSERT_EQ(Written(read), xml);
    }
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

TEST(nxSyntheticSpreadOrderSpecCreateInstance, MakesAnEmptySpecForItsCode) {
    const std::unique_ptr<nxXMLDataObject> object(nxXMLDataObject::CreateInstance(0x53505244));
    auto* const spec = dynamic_cast<Spec*>(object.get());
    ASSERT_TRUE(spec);
    EXPECT_EQ(spec->GetDataCategoryTypeID(), nxDataCategoryEnum::SyntheticSpreadOrderSpec);
    EXPECT_EQ(spec->GetLegs().size(), 0u);
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
        {{}, {tooFew}},
        {{bad}, {tooFew}},
        {{Leg(), Leg()}, {}},
        {{Leg(), Leg(), bad}, {noVolume}},
        {{bad, worse, Leg()}, {noVolume}},
    };
    for (const auto& [legs, messages] : cases) {
        const Spec spec = SpecOf(legs);
        const nxErrorEnum expected = messages.empty() ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
        {
            const nxCollectedLog log;
            EXPECT_EQ(spec.IsValid("prefix: "), expected);
            EXPECT_EQ(log.Entries(), messages);
        }
        const nxCollectedLog unlogged(nxLogLevelEnum::Fatal);
        EXPECT_EQ(spec.IsValid("prefix: "), expected);
        EXPECT_EQ(unlogged.Entries(), Strings());
    }
}

TEST(nxSyntheticSpreadOrderSpecGetAsLogString, NamesEachLegByItsNumber) {
    Leg working, auction;
    working.SetWorkingLeg(true);
    auction.SetWorkingLeg(true);
    auction.SetIsAuctionModeLeg(true);
    Spec spec = SpecOf({});
    spec.SetSpecName("name");
    spec.SetExchangeDestinationOverride("CME");
    EXPECT_EQ(spec.GetAsLogString(),
              "Leg count: 0, Scratch if legged: false, Exchange destination override: CME");
    spec = SpecOf({working, Leg()});
    EXPECT_EQ(spec.GetWorkingLegCount(), 1u);
    EXPECT_FALSE(spec.ContainsAuctionModeLegs());
    spec = SpecOf({working, Leg(), auction});
    spec.SetScratchIfLegged(true);
    EXPECT_EQ(spec.GetAsLogString(), "Leg count: 3, Leg #: 0" + working.GetAsLogString() + ", Leg #: 1" +
                                         Leg().GetAsLogString() + ", Leg #: 2" + auction.GetAsLogString() +
                                         ", Scratch if legged: true, Exchange destination override: ");
    EXPECT_EQ(spec.GetWorkingLegCount(), 2u);
    EXPECT_TRUE(spec.ContainsAuctionModeLegs());
}
