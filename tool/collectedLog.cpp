// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/collectedLog.h"

#include "core/nxLogManager.h"
#include "core/nxStringHelper.h"
#include "include/nxLog.h"
#include "include/nxLogDevice.h"
#include "tool/printable.h"

#include <memory>
#include <string_view>
#include <utility>

namespace {
    // A document that could not be parsed stands whole in the log record that says so.
    constexpr std::size_t LongestText = 2000;
    constexpr std::string_view Indentation = "  ";

    // Empty lines and line ends at the borders are the record's layout, not part of what it says.
    std::string Lines(const nxLog& record) {
        std::string text = record.GetLogEntry().substr(0, LongestText);
        nxStringHelper::LeftTrim(text);
        nxStringHelper::RightTrim(text);

        std::string lines(Indentation);
        lines.append(record.GetLevel().GetShortDescription()).append(": ");
        std::string_view rest = text;
        for (std::size_t end; (end = rest.find('\n')) != std::string_view::npos; rest.remove_prefix(end + 1))
            lines.append(tool::Printable(rest.substr(0, end)))
                .append("\n")
                .append(Indentation)
                .append(2, ' ');
        lines += tool::Printable(rest);
        if (record.GetLogEntry().size() > LongestText)
            lines += " ... (" + std::to_string(record.GetLogEntry().size() - LongestText) + " more bytes)";
        return lines + "\n";
    }

    class Collector : public nxLogDevice {
    public:
        void Write(const nxLog& record) override { _lines += Lines(record); }
        std::string Take() { return std::exchange(_lines, {}); }

    private:
        std::string _lines;
    };

    const std::shared_ptr<Collector>& TheCollector() {
        static const auto collector = std::make_shared<Collector>();
        return collector;
    }
} // namespace

void tool::CollectLog(const nxLogLevelEnum& threshold) {
    nxLogManager::SetThreshold(threshold);
    nxLogManager::SetDevices({TheCollector()});
}

std::string tool::TakeLogLines() {
    return TheCollector()->Take();
}
