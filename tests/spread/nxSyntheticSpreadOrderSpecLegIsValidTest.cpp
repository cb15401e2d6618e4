// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tests/support/nxSpreadSample.h"

#include <random>
#include <string>
#include <vector>

namespace {
    using namespace nxSpreadSample;

    using Method = nxSyntheticSpreadPayupMethodEnum;
    using Restriction = nxExecutionRestrictionEnum;
    using Strings = std::vector<std::string>;

    constexpr auto Null = nxUnsignedValueWrapper::NullValue;
    constexpr auto NoChange = nxUnsignedValueWrapper::NoChangeValue;
    constexpr int NoTicks = nxIntValueWrapper::NullValue;

    Leg Finesse(unsigned int volume) {
        Leg leg;
        leg.SetFinesse(true);
        leg.SetFinesseTriggerVolume(volume);
        return leg;
    }
    Leg Payup(Method::Value method, int ticks, unsigned int volume, Leg leg = Leg()) {
        leg.SetPayupMethod(method);
        leg.SetPayupTicks(ticks);
        leg.SetConditionalTriggerVolume(volume);
        return leg;
    }

    // A leg with bands given as range and ticks, and a restriction.
    struct Band {
        unsigned int range = Null;
        unsigned int ticks = Null;
    };
    Leg Bands(const std::vector<Band>& bands, unsigned int restriction = 0, Leg leg = Leg()) {
        for (std::size_t i = 0; i < bands.size(); ++i) {
            Settings[FirstBand + 2 * i].set(leg, Null - bands[i].range);
            Settings[FirstBand + 2 * i + 1].set(leg, Null - bands[i].ticks);
        }
        leg.SetExecutionRestriction(restriction);
        return leg;
    }

    std::string NoTicksOf(const char* band) {
        return std::string("Sensitivity range #") + band +
               " is set but doesn't have valid sensitivity ticks setting";
    }
    std::string ZeroWide(const char* band) {
        return std::string("Sensitivity range #") + band + " is zero ticks wide";
    }
} // namespace

// Each rule with its message; the first three end the check, the others add up.
TEST(nxSyntheticSpreadOrderSpecLegIsValid, LogsWhatIsWrong) {
    const std::string noFinesse = "Finesse is enabled, but trigger volume is not set. Trigger volume: ";
    const std::string noPayup =
        "Conditional/cascade payup is enabled, but payup ticks is not set. Payup ticks: ";
    const std::string noVolume =
        "Conditional/cascade payup is enabled, but trigger volume is not set. Trigger volume: ";
    const std::string lessVolume = "Finesse trigger volume must be greater than or equal to conditional "
                                   "trigger volume. Finesse trigger volume: ";
    const std::string restricted = "Execution restriction is not supported: ";
    const std::string firstZeroWide = ZeroWide("1") + " (and other ranges are defined)";
    const std::vector<Band> badBands = {{1, Null}, {0, 1}};
    const struct {
        Leg leg;
        Strings messages;
    } cases[] = {
        {Leg(), {}},
        {Finesse(0), {noFinesse + "0"}},
        {Bands(badBands, 1052, Payup(Method::Cascade, 0, 0, Finesse(NoChange))), {noFinesse + "NO_CHANGE"}},
        {Finesse(1), {}},

        {Payup(Method::Plain, 0, 0), {}},
        {Payup(Method::Conditional, -1, 5), {}},
        {Payup(Method::Conditional, 0, 0), {noPayup + "0, Payup method: Conditional payup"}},
        {Payup(Method::Cascade, NoTicks, 5),
         {noPayup + "2147483647, Payup method: Cascading conditional payup"}},
        {Bands(badBands, 1052, Payup(Method::Conditional, NoTicks - 1, Null, Finesse(1))),
         {noPayup + "2147483646, Payup method: Conditional payup"}},
        {Payup(Method::Cascade, 1, Null), {noVolume + "NULL, Payup method: Cascading conditional payup"}},
        {Bands(badBands, 1052, Payup(Method::Conditional, 1, 0, Finesse(1))),
         {noVolume + "0, Payup method: Conditional payup"}},

        {Payup(Method::Cascade, 1, 10, Finesse(10)), {}},
        {Payup(Method::Plain, 1, 10, Finesse(9)), {}},
        {Payup(Method::Cascade, 1, 0x80000000, Finesse(0x7FFFFFFF)),
         {lessVolume + "2147483647, Conditional trigger volume: 2147483648, Payup method: Cascading "
                       "conditional payup"}},
        {Bands(badBands, 1052, Payup(Method::Conditional, 1, 10, Finesse(9))),
         {lessVolume + "9, Conditional trigger volume: 10, Payup method: Conditional payup"}},

        {Bands({{1, 0}, {1, 0}, {1, 0}, {1, 0}, {1, 0}}), {}},
        {Bands({{Null, 1}, {NoChange, 1}, {Null, 0}, {NoChange, NoChange}, {Null, NoChange}}), {}},
        {Bands({{1, Null}, {1, NoChange}, {0, Null}, {0, NoChange}, {1, Null}}),
         {NoTicksOf("1"), NoTicksOf("2"), NoTicksOf("3"), NoTicksOf("4"), NoTicksOf("5")}},
        {Bands({{0, 1}, {0, 1}, {0, 0}, {0, 1}, {0, 1}}),
         {firstZeroWide, ZeroWide("2"), ZeroWide("3"), ZeroWide("4"), ZeroWide("5")}},
        {Bands({{0, 2}}), {}},
        {Bands({{0, 2}, {Null, 1}}), {firstZeroWide}},
        {Bands({{0, 2}, {}, {}, {Null, 1}}), {firstZeroWide}},
        {Bands({{0, 2}, {NoChange, NoChange}}), {}},
        {Bands({{0, 2}, {}, {}, {}, {5, Null}}), {firstZeroWide, NoTicksOf("5")}},
        {Bands({{0, NoChange}, {1, 1}}), {NoTicksOf("1")}},

        {Bands({}, Restriction::NoRestriction), {}},
        {Bands({}, Restriction::FillOrKill), {restricted + "Fill the whole quantity at once or cancel it"}},
        {Bands({}, Restriction::NoChangeValue), {restricted + "No change of the execution restriction"}},
        {Bands({{1, 1}, {0, 1}, {0, 1}}, Restriction::ImmediateOrCancel, Payup(Method::Cascade, 1, 1)),
         {ZeroWide("2"), ZeroWide("3"), restricted + "Fill what is possible at once and cancel the rest"}},
    };
    for (const auto& [leg, messages] : cases) {
        Strings expected;
        for (const std::string& message : messages)
            expected.push_back("prefix: " + message);
        const nxCollectedLog log;
        EXPECT_EQ(leg.IsValid("prefix: "), messages.empty()) << leg.GetAsLogString();
        EXPECT_EQ(log.Entries(), expected) << leg.GetAsLogString();
        for (const CollectedRecord& record : log.Records()) {
            EXPECT_EQ(record.level, nxLogLevelEnum::Error);
            EXPECT_EQ(record.sourceFile, "xmlFramework/trunk/nxSyntheticSpreadOrderSpecLeg_XML");
        }
    }
}

TEST(nxSyntheticSpreadOrderSpecLegIsValid, IsTheSameUnlogged) {
    std::mt19937_64 random(1);
    unsigned int valid = 0;
    constexpr unsigned int Rounds = 5000;
    for (unsigned int round = 0; round < Rounds; ++round) {
        const Leg leg = MakeLeg(RandomNumbers(random));
        bool logged = false;
        {
            const nxCollectedLog log;
            logged = leg.IsValid("");
            ASSERT_EQ(log.Entries().empty(), logged) << leg.GetAsLogString();
        }
        const nxCollectedLog log(nxLogLevelEnum::Fatal);
        ASSERT_EQ(leg.IsValid(""), logged) << leg.GetAsLogString();
        ASSERT_EQ(log.Entries(), Strings());
        valid += logged ? 1 : 0;
    }
    EXPECT_GT(valid, 0u); // both kinds were met
    EXPECT_LT(valid, Rounds);
}
