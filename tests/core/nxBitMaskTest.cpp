// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxBitMasks.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

TEST(nxBitMaskState, FollowsTheTwoTopBitsWhichFlagsLeaveAsTheyAre) {
    nxGenericBitMask mask = 5;
    EXPECT_TRUE(mask.IsValid() && !mask.IsNull() && !mask.IsNoChange());
    mask.SetNoChange();
    EXPECT_EQ(mask.GetValue(), 0x40000000U);
    EXPECT_TRUE(mask.IsNoChange() && !mask.IsValid() && !mask.IsNull());
    mask.SetNull();
    EXPECT_EQ(mask.GetValue(), 0x80000000U);
    EXPECT_TRUE(mask.IsNull() && !mask.IsValid() && !mask.IsNoChange());

    mask.SetBits(8);
    mask |= 4;
    mask |= nxOrderBookInterestBitMask(4);
    EXPECT_TRUE(mask.IsNull() && mask.AreAllBitsSet(12));
    mask.ClearBits(nxGenericBitMask(nxBitMask::NullBit));
    EXPECT_EQ(mask, nxPriceInterestBitMask(12));
}

TEST(nxBitMaskState, OfASecurityNodeAccessIsValidBelowFourOnly) {
    EXPECT_TRUE(nxSecurityNodeAccessBaseBitMask(3).IsValid());
    EXPECT_FALSE(nxSecurityNodeAccessBaseBitMask(4).IsValid());
    EXPECT_TRUE(nxSecurityNodeChangeBitMask(0x3FFFFFFF).IsValid());
}

TEST(nxBitMaskSetBits, OfADerivedMaskIsWhatOrAssignmentCalls) {
    class LowBits : public nxBitMask {
    public:
        using nxBitMask::SetBits;
        void SetBits(unsigned int bits) override { nxBitMask::SetBits(bits & 0xF); }
        std::string GetClassName() const override { return "LowBits"; }
    } mask;
    mask |= 0xF1;
    mask |= nxGenericBitMask(0xF2);
    EXPECT_EQ(mask, 3U);
}

TEST(nxBitMaskTests, OfNoBitsAreAllSetButNotAny) {
    const nxGenericBitMask mask = 6;
    EXPECT_TRUE(mask.AreAllBitsSet(0) && !mask.AreAnyBitsSet(0U));
    EXPECT_TRUE(mask.AreAllBitsSet(6) && !mask.AreAllBitsSet(7));
    EXPECT_TRUE(mask.AreAnyBitsSet(nxGenericBitMask(3)) && !mask.AreAnyBitsSet(9));
}

TEST(nxBitMaskDescription, JoinsTheTextsOfTheBitsFromTheLowest) {
    EXPECT_EQ(nxKeyboardModifierBitMask(15).GetShortDescription("+"), "Shift+Ctrl+Alt+Meta");
    EXPECT_EQ(nxSecurityNodeAccessBaseBitMask(7).GetLongDescription(", "),
              "Read access, Write access, Flag 2 (0x4)");
    EXPECT_EQ(nxGenericBitMask(0xE0000001).GetShortDescription("|"), "Flag 0|Flag 29|NO_CHANGE|NULL");
}

TEST(nxBitMaskGetClassName, IsTheNameThatEachClassIsDeclaredUnder) {
    EXPECT_EQ(nxUserOrderFlagsBitMask().GetClassName(), "nxUserOrderFlagsBitMask");

    std::ifstream header(NX_SOURCE_DIR "/include/nxBitMasks.h");
    int classes = 0;
    for (std::string word, name, equals, base; header >> word;) {
        if (word != "using" || !(header >> name >> equals >> base))
            continue;
        EXPECT_TRUE(base.starts_with("nxBitMaskClass<\"" + name + '"')) << name << " is " << base;
        ++classes;
    }
    EXPECT_EQ(classes, 28);
}
