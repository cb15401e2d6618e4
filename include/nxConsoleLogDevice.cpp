// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxConsoleLogDevice.h"

#include "core/nxLogLevelEnum.h"
#include "include/nxLog.h"

#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/stdout_color_sinks.h>

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
    const nxLogLevelEnum level = record.GetLevel();
    const std::string text = level.GetShortDescription() + " " + record.GetSourceFile() + ":" +
                             std::to_string(record.GetLineNumber()) + " " + record.GetLogEntry();
    const spdlog::log_clock::time_point time{std::chrono::duration_cast<spdlog::log_clock::duration>(
        std::chrono::nanoseconds(record.GetTimeStamp().GetAsTimeValue()))};
    _sink->output.log(spdlog::details::log_msg(time, spdlog::source_loc(), spdlog::string_view_t(),
                                               ConsoleLevel(level), text));
}
