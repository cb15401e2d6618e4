// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxConsoleLogDevice.h"

#include "core/nxLogLevelEnum.h"
#include "include/nxLog.h"

#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/stdout_color_sinks.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string>
#include <string_view>

namespace {
    spdlog::level::level_enum ConsoleLevel(const nxLogLevelEnum& level) {
        if (level == nxLogLevelEnum::Trace)
            return spdlog::level::trace;
        if (level < nxLogLevelEnum(nxLogLevelEnum::Info))
            return spdlog::level::debug;
        if (level < nxLogLevelEnum(nxLogLevelEnum::Warning))
            return spdlog::level::info;
        if (level == nxLogLevelEnum::Warning)
            return spdlog::level::warn;
        return level == nxLogLevelEnum::Error ? spdlog::level::err : spdlog::level::critical;
    }

    struct Range {
        unsigned int first;
        unsigned int last;

        bool Holds(unsigned int number) const { return first <= number && number <= last; }
    };

    // Control characters beyond ASCII, line and paragraph separators, what turns the direction of writing,
    // and surrogates, which are no characters.
    constexpr Range Unprintable[] = {{0x80, 0x9F},     {0x61C, 0x61C},   {0x200E, 0x200F},
                                     {0x2028, 0x202E}, {0x2066, 0x2069}, {0xD800, 0xDFFF}};

    // How many bytes belong to the UTF-8 character that begins a text, one that is beyond ASCII and may be
    // printed; 0 when none does.
    std::size_t LengthOfPrintable(std::string_view text) {
        struct Form {
            Range first;
            std::size_t length;
            Range numbers; // the others have a shorter form, or are no characters at all
        };
        static constexpr Form Forms[] = {{{0xC2, 0xDF}, 2, {0x80, 0x7FF}},
                                         {{0xE0, 0xEF}, 3, {0x800, 0xFFFF}},
                                         {{0xF0, 0xF4}, 4, {0x10000, 0x10FFFF}}};
        const auto first = static_cast<unsigned char>(text.front());
        const auto* const form =
            std::ranges::find_if(Forms, [first](const Form& known) { return known.first.Holds(first); });
        if (form == std::end(Forms) || text.size() < form->length)
            return 0;

        unsigned int number = first & (0x7FU >> form->length);
        for (const char c : text.substr(1, form->length - 1)) {
            if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80)
                return 0;
            number = number << 6U | (static_cast<unsigned char>(c) & 0x3FU);
        }
        const bool isPrintable =
            form->numbers.Holds(number) &&
            std::ranges::none_of(Unprintable, [number](const Range& range) { return range.Holds(number); });
        return isPrintable ? form->length : 0;
    }

    void AppendEscaped(std::string& line, char c) {
        constexpr std::string_view HexDigits = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else if (c == '\t')
            line += "\\t";
        else
            line.append("\\x").append({HexDigits[byte >> 4U], HexDigits[byte & 0xFU]});
    }

    // What could break the line, speak to the terminal or reorder what it shows is written as C does.
    void AppendPrintable(std::string& line, std::string_view text) {
        while (!text.empty()) {
            const auto byte = static_cast<unsigned char>(text.front());
            const bool isPrintableASCII = byte >= 0x20 && byte < 0x7F;
            const std::size_t length = isPrintableASCII ? 1 : LengthOfPrintable(text);
            if (length > 0)
                line.append(text.substr(0, length));
            else
                AppendEscaped(line, text.front());
            text.remove_prefix(std::max<std::size_t>(length, 1));
        }
    }

    // The text's beginning of at most so many bytes, without a part of a character at its end.
    std::string_view Beginning(std::string_view text, std::size_t longest) {
        if (text.size() <= longest)
            return text;
        constexpr std::size_t LongestCharacter = 4;
        std::size_t end = longest;
        while (end > 0 && longest - end < LongestCharacter &&
               (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80)
            --end;
        return text.substr(0, end + LengthOfPrintable(text.substr(end)) > longest ? end : longest);
    }
} // namespace

struct nxConsoleLogDevice::Sink {
    explicit Sink(std::size_t longest) : longestText(longest) {
        // The level's own name stands in the text: spdlog knows fewer levels than the platform.
        output.set_formatter(std::make_unique<spdlog::pattern_formatter>("%Y-%m-%dT%H:%M:%S.%fZ %^%v%$",
                                                                         spdlog::pattern_time_type::utc));
    }

    const std::size_t longestText;
    spdlog::sinks::stderr_color_sink_mt output;
};

nxConsoleLogDevice::nxConsoleLogDevice() : nxConsoleLogDevice(LongestText) {}

nxConsoleLogDevice::nxConsoleLogDevice(std::size_t longestText)
    : _sink(std::make_shared<Sink>(longestText == AnyLength ? std::string::npos : longestText)) {}

void nxConsoleLogDevice::Write(const nxLog& record) {
    const nxLogLevelEnum& level = record.GetLevel();
    std::string text = level.GetShortDescription() + " ";
    AppendPrintable(text, record.GetSourceFile());
    text += ":" + std::to_string(record.GetLineNumber()) + " ";
    const std::string& entry = record.GetLogEntry();
    const std::string_view shown = Beginning(entry, _sink->longestText);
    AppendPrintable(text, shown);
    if (shown.size() < entry.size())
        text += "... (" + std::to_string(entry.size() - shown.size()) + " more bytes)";
    const spdlog::log_clock::time_point time{std::chrono::duration_cast<spdlog::log_clock::duration>(
        std::chrono::nanoseconds(record.GetTimeStamp().GetAsTimeValue()))};
    _sink->output.log(spdlog::details::log_msg(time, spdlog::source_loc(), spdlog::string_view_t(),
                                               ConsoleLevel(level), text));
}
