// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxCSVFileReader.h"
#include "core/nxDateTime.h"
#include "core/nxDateTimeSpan.h"
#include "core/nxDecimal.h"
#include "core/nxOrderTypeEnum.h"
#include "core/nxStringHelper.h"
#include "core/nxTime.h"
#include "core/nxTimeStamp.h"
#include "include/nxBitMasks.h"
#include "include/nxDoubleValueWrapper.h"
#include "include/nxOwnedItems.h"
#include "include/nxStringValue.h"
#include "include/nxValueWrapper.h"
#include "tests/support/nxIsValue.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {
    struct Item {
        int number = 0;
        Item* CopyInstance() const { return new Item(*this); }
        bool operator==(const Item&) const = default;
    };
    using Items = nxOwnedItems<Item>;

    // The enumerations stand in their own test.
    static_assert(nxIsValue<nxDecimal> && nxIsValue<nxDateTime> && nxIsValue<nxDateTimeSpan>);
    static_assert(nxIsValue<nxTime> && nxIsValue<nxTimeStamp>);
    static_assert(nxIsValue<nxUnsignedValueWrapper> && nxIsValue<nxIntValueWrapper>);
    static_assert(nxIsValue<nxDoubleValueWrapper> && nxIsValue<nxStringValue>);
    static_assert(nxIsValue<nxGenericBitMask> && nxIsValue<nxSecurityNodeAccessBaseBitMask>);
    static_assert(nxIsValue<nxCSVFileRow> && nxIsValue<nxCSVFileReader::Row> && nxIsValue<Items>);

    Items ItemsOf(std::initializer_list<int> numbers) {
        Items items;
        for (const int number : numbers)
            items.Add(std::make_unique<Item>(Item{number}));
        return items;
    }
} // namespace

TEST(nxValuesAppend, PutsEachTextBehindWhatIsThere) {
    std::string text = "texts:";
    const auto append = [&text](const auto& value, auto... arguments) {
        text += ' ';
        value.AppendAsString(text, arguments...);
    };
    const auto appendPlain = [&text](const auto& value) {
        text += ' ';
        nxStringHelper::AppendAsString(text, value);
    };
    const nxTime time(8h + 30min + 500ms);
    const nxDateTime dateTime(std::chrono::sys_seconds(42s), 1us);

    appendPlain(true);
    appendPlain(-1);
    appendPlain(2U);
    appendPlain(-3L);
    appendPlain(4UL);
    appendPlain(-5LL);
    appendPlain(6ULL);
    appendPlain(0.5);
    appendPlain(nxOrderTypeEnum(nxOrderTypeEnum::StopLimit));
    appendPlain(time);
    EXPECT_EQ(text, "texts: true -1 2 -3 4 -5 6 0.5 STOP_LIMIT 08:30:00.500");

    text = "texts:";
    append(nxErrorEnum(1000000));
    append(nxDecimal(-5, 2), ',');
    append(time);
    append(dateTime, nxDateTime::DocumentFormat);
    append(dateTime, "%d.%m.");
    append(nxUnsignedValueWrapper());
    append(nxIntValueWrapper(-7));
    append(nxDoubleValueWrapper(1.5));
    EXPECT_EQ(text, "texts: 1000000 -0,05 08:30:00.500 19700101:00:00:42 01.01. NULL -7 1.5");

    text = "null:";
    append(nxDecimal(), '.');
    append(nxTime());
    append(nxDateTime(), nxDateTime::DocumentFormat);
    append(nxDoubleValueWrapper());
    EXPECT_EQ(text, "null:    ");

    text = "others:";
    nxDecimal().AppendAsLogString(text, '.');
    nxTime().AppendAsLogString(text);
    nxDateTime().AppendAsLogString(text);
    dateTime.AppendAsLogString(text);
    nxOrderTypeEnum(nxOrderTypeEnum::StopLimit).AppendShortDescription(text);
    nxOrderTypeEnum(nxOrderTypeEnum::StopLimit).AppendLongDescription(text);
    EXPECT_EQ(text, "others:NULLNULLNULL1970-01-01T00:00:42.000001ZStop limitStop limit order");
}

TEST(nxOwnedItemsCopy, HasItemsOfItsOwnThatCompareByValue) {
    const Items items = ItemsOf({1, 2});
    Items copy = items;
    EXPECT_EQ(copy, items);
    copy.Get()[1]->number = 3;
    EXPECT_EQ(copy, ItemsOf({1, 3}));
    EXPECT_EQ(items, ItemsOf({1, 2}));
    EXPECT_NE(items, ItemsOf({1}));
    copy.Assign(copy.Get());
    EXPECT_EQ(copy, ItemsOf({1, 3}));
}

TEST(nxOwnedItemsCopy, OfANullPointerIsOneAndEqualsItsLikeOnly) {
    Items items = ItemsOf({1, 0});
    items.Get()[1].reset();
    const Items copy = items;
    EXPECT_EQ(copy.Get()[1], nullptr);
    EXPECT_EQ(copy, items);
    EXPECT_NE(copy, ItemsOf({1, 0}));
    EXPECT_NE(ItemsOf({1, 0}), copy);
    EXPECT_NE(copy, ItemsOf({1}));
}
