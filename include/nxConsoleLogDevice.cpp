// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxConsoleLogDevice.h"

#include "core/nxLogLevelEnum.h"
#include "include/nxLog.h"

#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/stdout_color_sinks.h>

#include <chrono>
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

    // A control character could break the line or speak to the terminal: it is shown as C writes it.
    void AppendPrintable(std::string& line, std::string_view text) {
        constexpr std::string_view HexDigits = "0123456789ABCDEF";
        for (const char c : text) {
            const auto byte = static_cast<unsigned char>(c);
            if (byte >= 0x20 && byte != 0x7F)
                line += c;
            else if (c == '\n')
                line += "\\n";
            else if (c == '\r')
                line += "\\r";
            else if (c == '\t')
                line += "\\t";
            else
                line.append("\\x").append({HexDigits[byte >> 4U], HexDigits[byte & 0xFU]});
        }
    }
} // namespace

struct nxConsoleLogDevice::Sink {
    Sink() {
        // The level's own name stands in the text: spdlog knows fewer levels than the platform.
        output.set_formatter(std::make_unique<spdlog::pattern_formatter>("%Y-%m-%dT%H:%M:%S.%fZ %^%v%$",
                                                                         spdlog::pattern_time_type::utc));
    }

    spdlog::sinks::stderr_color_sink_mt output;
};

nxConsoleLogDevice::nxConsoleLogDevice() : _sink(std::make_shared<Sink>()) {}

void nxConsoleLogDevice::Write(const nxLog& record) {
    const nxLogLevelEnum& level = record.GetLevel();
    std::string text = level.GetShortDescription() + " " + record.GetSourceFile() + ":" +
                       std::to_string(record.GetLineNumber()) + " ";
    AppendPrintable(text, record.GetLogEntry());
    const spdlog::log_clock::time_point time{std::chrono::duration_cast<spdlog::log_clock::duration>(
        std::chrono::nanoseconds(record.GetTimeStamp().GetAsTimeValue()))};
    _sink->output.log(spdlog::details::log_msg(time, spdlog::source_loc(), spdlog::string_view_t(),
                                               ConsoleLevel(level), text));
}
