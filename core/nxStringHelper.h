// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "include/nxErrorEnum.h"

#include <string>
#include <string_view>

class nxDecimal;
class nxTime;

// The text form of every value type, independent of the process's locale, and small helpers on strings.
//
// AppendAsString puts a value's text behind what `text` holds, GetAsString gives it on its own, and
// SetFromString reads it back. A SetFromString takes the whole text or nothing: on failure the result is
// nxErrorEnum::ValueNotParsed and the value is untouched. All functions may be called from any thread.
class NXCORE_API nxStringHelper {
public:
    nxStringHelper() = delete;

    // "true" or "false"; read also as "1" and "0", in any letter case.
    static void AppendAsString(std::string& text, bool value);
    static std::string GetAsString(bool value);
    static nxErrorEnum SetFromString(std::string_view text, bool& value);
    template <class T>
    static void AppendAsString(std::string& text, const T*) = delete; // would convert to bool
    template <class T>
    static std::string GetAsString(const T*) = delete;

    // Decimal digits, with a leading "-" for a negative number; no blanks, no "+", no overflow.
    static void AppendAsString(std::string& text, int value);
    static void AppendAsString(std::string& text, unsigned int value);
    static void AppendAsString(std::string& text, long value);
    static void AppendAsString(std::string& text, unsigned long value);
    static void AppendAsString(std::string& text, long long value);
    static void AppendAsString(std::string& text, unsigned long long value);
    static std::string GetAsString(int value);
    static std::string GetAsString(unsigned int value);
    static std::string GetAsString(long value);
    static std::string GetAsString(unsigned long value);
    static std::string GetAsString(long long value);
    static std::string GetAsString(unsigned long long value);
    static nxErrorEnum SetFromString(std::string_view text, int& value);
    static nxErrorEnum SetFromString(std::string_view text, unsigned int& value);
    static nxErrorEnum SetFromString(std::string_view text, long& value);
    static nxErrorEnum SetFromString(std::string_view text, unsigned long& value);
    static nxErrorEnum SetFromString(std::string_view text, long long& value);
    static nxErrorEnum SetFromString(std::string_view text, unsigned long long& value);

    // The shortest text that reads back to the same value ("0.1", "1e+22"). Infinities and not-a-numbers are
    // written as "inf" and "nan" and are refused on reading.
    static void AppendAsString(std::string& text, double value);
    static std::string GetAsString(double value);
    static nxErrorEnum SetFromString(std::string_view text, double& value, char decimalSeparator);

    // The text forms of the value classes; see there.
    static void AppendAsString(std::string& text, const nxEnum& value);
    static std::string GetAsString(const nxEnum& value);
    static nxErrorEnum SetFromString(std::string_view text, nxEnum& value);
    static void AppendAsString(std::string& text, const nxTime& value);
    static std::string GetAsString(const nxTime& value);
    static nxErrorEnum SetFromString(std::string_view text, nxTime& value);
    static nxErrorEnum SetFromString(std::string_view text, nxDecimal& value, char decimalSeparator);

    // White space is blank, tab, line feed, vertical tab, form feed and carriage return.
    static void LeftTrim(std::string& text);
    static void RightTrim(std::string& text);
    [[nodiscard]] static std::string_view Trimmed(std::string_view text); // on both sides
    [[nodiscard]] static std::string GetRightTrimmed(std::string_view text);

    // A text of more than `longest` bytes as at most so many of its first ones, whole characters where it is
    // UTF-8, and "..." behind them.
    [[nodiscard]] static std::string GetShortened(std::string_view text, std::size_t longest);

    // Replaces every occurrence of `from`, found from left to right, by `to`. An empty `from` replaces
    // nothing. Takes time linear in the length of the text and of the result.
    static void Replace(std::string& text, std::string_view from, std::string_view to);
};
