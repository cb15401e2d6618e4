// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxTime.h"

#include "core/nxClockText.h"

using namespace std::chrono_literals;

namespace {
    constexpr std::string_view Pattern = "33:44:55";
} // namespace

nxTime::nxTime(std::chrono::nanoseconds sinceMidnight) {
    if (sinceMidnight >= 0h && sinceMidnight < 24h)
        _sinceMidnight = sinceMidnight;
}

void nxTime::AppendAsString(std::string& text) const {
    if (IsNull())
        return;

    const auto wholeSeconds = std::chrono::floor<std::chrono::seconds>(_sinceMidnight);
    nxClockText::Append(text, Pattern, nxClockText::SplitTimeOfDay(wholeSeconds));
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

    const auto numbers = nxClockText::Read(text, Pattern);
    if (!numbers)
        return nxErrorEnum::ValueNotParsed;
    const auto fraction = nxClockText::ReadFraction(text.substr(Pattern.size()));
    if (!fraction)
        return nxErrorEnum::ValueNotParsed;

    _sinceMidnight = nxClockText::TimeOfDay(*numbers) + *fraction;
    return nxErrorEnum::OK;
}
