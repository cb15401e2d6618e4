// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/collectedLog.h"

#include "core/nxLogManager.h"
#include "core/nxStringHelper.h"
#include "include/nxLog.h"
#include "include/nxLogDevice.h"
#include "tool/printable.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace {
    // A document that could not be parsed stands whole in the log record that says so.
    constexpr std::size_t LongestText = 2000;
    constexpr std::string_view Indentation = "  ";

    thread_local tool::LogLines collected;

    // Empty lines and line ends at the borders are the record's layout, not part of what it says.
    std::string Text(const std::string& entry) {
        std::string text = entry.substr(0, LongestText);
        nxStringHelper::LeftTrim(text);
        nxStringHelper::RightTrim(text);
        if (entry.size() > LongestText)
            text += " ... (" + std::to_string(entry.size() - LongestText) + " more bytes)";
        return text;
    }

    class Collector : public nxLogDevice {
    public:
        explicit Collector(const nxLogLevelEnum& threshold) : _threshold(threshold) {}

        void Write(const nxLog& record) override {
            const nxLogLevelEnum& level = record.GetLevel();
            if (level.GetEnumValue() >= nxLogLevelEnum::Error)
                collected.hasErrors = true;
            if (level.GetEnumValue() >= _threshold.GetEnumValue())
                collected.shown.push_back({level, Text(record.GetLogEntry())});
        }

    private:
        nxLogLevelEnum _threshold;
    };
} // namespace

void tool::CollectLog(const nxLogLevelEnum& threshold) {
    constexpr unsigned int Counted = nxLogLevelEnum::Error;
    nxLogManager::SetThreshold(std::min(Counted, threshold.GetEnumValue()));
    nxLogManager::SetDevices({std::make_shared<Collector>(threshold)});
}

tool::LogLines tool::TakeLog() {
    return std::exchange(collected, {});
}

std::string tool::Format(const std::vector<LogLine>& lines) {
    std::string formatted;
    for (const LogLine& line : lines) {
        formatted.append(Indentation).append(line.level.GetShortDescription()).append(": ");
        std::string_view rest = line.text;
        for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos; rest.remove_prefix(end + 1))
            formatted.append(Printable(rest.substr(0, end))).append("\n").append(Indentation).append(2, ' ');
        formatted.append(Printable(rest)).append("\n");
    }
    return formatted;
}
