// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A text for each type of value to read, and the bits of values to write. What is read has the text that was
// given, but for zeros that say nothing; what is written reads back the same; what is refused leaves the
// value untouched.

#include "core/nxBoolEnum.h"
#include "core/nxDataCategoryEnum.h"
#include "core/nxDateTime.h"
#include "core/nxDecimal.h"
#include "core/nxKestrumParameterTypeEnum.h"
#include "core/nxOrderTypeEnum.h"
#include "core/nxStringHelper.h"
#include "core/nxTime.h"
#include "core/nxTimeStamp.h"
#include "core/nxTradingSessionTypeEnum.h"
#include "fuzz/nxFuzz.h"
#include "include/nxDoubleValueWrapper.h"
#include "include/nxValueWrapper.h"
#include "tests/support/nxExactDecimal.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace {
    using nxFuzz::Require;

    // ---- Text forms by one name

    template <class Value>
    nxErrorEnum Read(const std::string& text, Value& value) {
        if constexpr (std::is_same_v<Value, double> || std::is_same_v<Value, nxDecimal>)
            return nxStringHelper::SetFromString(text, value, '.');
        else if constexpr (std::is_same_v<Value, nxDateTime>)
            return nxDateTime::SetFromString(text, value);
        else if constexpr (requires {
                               value.IsNoChange();
                               value.IsValid();
                           })
            return value.SetFromString(text);
        else
            return nxStringHelper::SetFromString(text, value);
    }

    template <class Value>
    std::string TextOf(const Value& value) {
        if constexpr (std::is_same_v<Value, nxDecimal>)
            return value.GetAsString('.');
        else if constexpr (std::is_same_v<Value, nxDateTime>)
            return value.IsNull() ? std::string() : value.GetAsLogString();
        else if constexpr (requires { value.GetAsString(); })
            return value.GetAsString();
        else
            return nxStringHelper::GetAsString(value);
    }

    // ---- What a text should say

    // Without leading zeros and the sign of zero.
    std::string Canonical(std::string_view text) {
        const bool isNegative = text.starts_with('-');
        text.remove_prefix(isNegative ? 1 : 0);
        while (text.size() > 1 && text[0] == '0' && text[1] != '.')
            text.remove_prefix(1);
        const bool isZero = text.find_first_not_of("0.") == std::string_view::npos;
        return (isNegative && !isZero ? "-" : "") + std::string(text);
    }

    bool IsShortNumber(std::string_view text) {
        return !text.empty() && text.size() < 10 &&
               std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    }

    // With nine digits of a second's fraction.
    std::string Padded(std::string time) {
        time += time.size() == 8 ? "." : "";
        return time.append(18 - time.size(), '0');
    }

    // ---- Checks

    template <class Value>
    void CheckWriting(const Value& value) {
        const std::string text = TextOf(value);
        Value again{};
        Require(Read(text, again).IsOK() && again == value && TextOf(again) == text);
    }

    // Whether the type has a value for the text, which is then in `value`.
    template <class Value>
    bool Reads(const std::string& text, Value& value) {
        const Value before = value;
        const nxErrorEnum result = Read(text, value);
        if (!result.IsOK()) {
            Require(result == nxErrorEnum(nxErrorEnum::ValueNotParsed) && value == before);
            return false;
        }
        CheckWriting(value);
        return true;
    }

    template <class... Values>
    void CheckNumbers(const std::string& text) {
        const auto check = [&text](auto value) {
            Require(Reads(text, value) ? TextOf(value) == Canonical(text) : !IsShortNumber(text));
        };
        (check(Values{7}), ...);
    }

    template <class... Enumerations>
    void CheckEnumerations(const std::string& text) {
        const auto check = [&text](auto value) {
            const auto before = value;
            Require(value.SetFromString(text) ? value.GetAsString() == text : value == before);
            auto described = before;
            Require(described.SetFromShortDescriptionString(text) ? described.GetShortDescription() == text
                                                                  : described == before);
        };
        (check(Enumerations()), ...);
    }

    void CheckWrappers(const std::string& text) {
        nxUnsignedValueWrapper count = 7U;
        Reads(text, count);
        nxIntValueWrapper offset = 7;
        Reads(text, offset);
        nxDoubleValueWrapper price = 7.0;
        if (price.SetFromString(text).IsOK() && price.IsValid())
            CheckWriting(price.GetValue());
        else
            Require(price.IsNull() || price.IsNoChange());
    }

    void CheckText(const std::string& text) {
        CheckNumbers<int, unsigned int, long, unsigned long, long long, unsigned long long>(text);
        CheckEnumerations<nxBoolEnum, nxDataCategoryEnum, nxErrorEnum, nxKestrumParameterTypeEnum,
                          nxOrderTypeEnum, nxTradingSessionTypeEnum>(text);
        CheckWrappers(text);

        nxDecimal decimal(7);
        Require(Reads(text, decimal) ? decimal.GetAsString('.') == (text.empty() ? "" : Canonical(text))
                                     : !IsShortNumber(text));
        double number = 7;
        Require(Reads(text, number) ? number == std::strtod(text.c_str(), nullptr) : !IsShortNumber(text));
        nxTime time{std::chrono::seconds(7)};
        if (Reads(text, time) && !text.empty())
            Require(Padded(time.GetAsString()) == Padded(text));
        nxDateTime dateTime{std::chrono::sys_seconds(std::chrono::seconds(7))};
        Reads(text, dateTime);
        bool flag = true;
        Reads(text, flag);
    }

    struct Bits {
        std::int64_t number;
        std::int64_t other;
        unsigned char digits;
        unsigned char otherDigits;
    };

    void CheckDecimals(const Bits& bits) {
        constexpr std::int64_t Bound = 1'000'000'000'000'000'000; // the first with 19 digits
        const std::int64_t units = bits.number % Bound;
        const std::int64_t otherUnits = bits.other % Bound;
        const unsigned int digits = bits.digits % (nxDecimal::MaxFractionDigits + 1);
        const unsigned int otherDigits = bits.otherDigits % (nxDecimal::MaxFractionDigits + 1);
        const nxDecimal decimal(units, digits);
        CheckWriting(decimal);
        const auto order =
            nxExactDecimal::Exact(units, digits) <=> nxExactDecimal::Exact(otherUnits, otherDigits);
        Require((decimal <=> nxDecimal(otherUnits, otherDigits)) == order);
    }

    void CheckTimes(const Bits& bits) {
        using namespace std::chrono;
        CheckWriting(nxTime(nanoseconds(bits.number)));
        CheckWriting(nxTime(nanoseconds(bits.number % nanoseconds(24h).count())));
        CheckWriting(nxDateTime(sys_seconds(seconds(bits.number)), nanoseconds(bits.other)));
        CheckWriting(nxDateTime(sys_seconds(seconds(bits.number % 400'000'000'000)),
                                nanoseconds(bits.other % 1'000'000'000)));
        const nxDateTime time = nxTimeStamp(bits.number).GetAsDateTime();
        CheckWriting(time);
        Require(nxExactDecimal::Wide(time.GetTime().time_since_epoch().count()) * 1'000'000'000 +
                    time.GetFraction().count() ==
                bits.number);
    }

    void CheckBits(const Bits& bits) {
        CheckWriting(bits.number);
        CheckWriting(static_cast<std::uint64_t>(bits.number));
        CheckWriting(static_cast<int>(bits.number));
        CheckWriting(static_cast<unsigned int>(bits.number));
        CheckDecimals(bits);
        CheckTimes(bits);
        double number = 0;
        std::memcpy(&number, &bits.number, sizeof number);
        if (std::isfinite(number))
            CheckWriting(number);
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckText({reinterpret_cast<const char*>(data), size});
    Bits bits{};
    if (size > 0)
        std::memcpy(&bits, data, std::min(size, sizeof bits));
    CheckBits(bits);
    return 0;
}
