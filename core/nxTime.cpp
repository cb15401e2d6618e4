// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxTime.h"

#include "core/nxClockText.h"

using namespace std::chrono_literals;

namespace {
    constexpr std::size_t WholeSecondsLength = 8; // HH:MM:SS

    void AppendTwoDigits(std::string& text, long number) {
        text += static_cast<char>('0' + number / 10);
        text += static_cast<char>('0' + number % 10);
    }
} // namespace

nxTime::nxTime(std::chrono::nanoseconds sinceMidnight) {
    if (sinceMidnight >= 0h && sinceMidnight < 24h)
        _sinceMidnight = sinceMidnight;
}

std::string nxTime::GetAsString() const {
    if (IsNull())
        return {};

    const std::chrono::hh_mm_ss clock(_sinceMidnight);
    std::string text;
    AppendTwoDigits(text, clock.hours().count());
    text += ':';
    AppendTwoDigits(text, clock.minutes().count());
    text += ':';
    AppendTwoDigits(text, clock.seconds().count());
    return text + nxClockText::FractionText(clock.subseconds());
}

std::string nxTime::GetAsLogString() const {
    return IsNull() ? "NULL" : GetAsString();
}

nxErrorEnum nxTime::SetFromString(std::string_view text) {
    if (text.empty()) {
        SetNull();
        return nxErrorEnum::OK;
    }
    if (text.size() < WholeSecondsLength || text[2] != ':' || text[5] != ':')
        return nxErrorEnum::ValueNotParsed;

    const auto hours = nxClockText::ReadDigits(text.substr(0, 2));
    const auto minutes = nxClockText::ReadDigits(text.substr(3, 2));
    const auto seconds = nxClockText::ReadDigits(text.substr(6, 2));
    const auto fraction = nxClockText::ReadFraction(text.substr(WholeSecondsLength));
    if (!hours || !minutes || !seconds || !fraction || *hours > 23 || *minutes > 59 || *seconds > 59)
        return nxErrorEnum::ValueNotParsed;

    _sinceMidnight = *hours * 1h + *minutes * 1min + *seconds * 1s + *fraction;
    return nxErrorEnum::OK;
}
