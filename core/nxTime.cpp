// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxTime.h"

#include "core/nxClockText.h"

using namespace std::chrono_literals;

namespace {
    constexpr std::size_t WholeSecondsLength = 8; // HH:MM:SS
} // namespace

nxTime::nxTime(std::chrono::nanoseconds sinceMidnight) {
    if (sinceMidnight >= 0h && sinceMidnight < 24h)
        _sinceMidnight = sinceMidnight;
}

void nxTime::AppendAsString(std::string& text) const {
    if (IsNull())
        return;

    const auto wholeSeconds = std::chrono::floor<std::chrono::seconds>(_sinceMidnight);
    nxClockText::AppendTimeOfDay(text, wholeSeconds);
    nxClockText::AppendFraction(text, _sinceMidnight - wholeSeconds);
}

std::string nxTime::GetAsString() const {
    std::string text;
    AppendAsString(text);
    return text;
}

void nxTime::AppendAsLogString(std::string& text) const {
    if (IsNull())
        text += "NULL";
    else
        AppendAsString(text);
}

std::string nxTime::GetAsLogString() const {
    std::string text;
    AppendAsLogString(text);
    return text;
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
