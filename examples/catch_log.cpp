// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Receives what the library logs, by way of a log device of one's own.

#include "core/nxLogManager.h"
#include "include/nxLog.h"
#include "include/nxLogDevice.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {
    // Called by one thread at a time, so it needs no lock of its own for what it collects.
    class CollectingDevice : public nxLogDevice {
    public:
        void Write(const nxLog& record) override {
            lines.push_back(record.GetLevel().GetShortDescription() + ": " + record.GetLogEntry());
        }

        std::vector<std::string> lines;
    };
} // namespace

int main() {
    const auto device = std::make_shared<CollectingDevice>();
    nxLogManager::SetDevices({device}); // in place of the console

    nxAlgoIDMappingList list;
    const nxErrorEnum cutOff = list.ConvertFromXML("<AlgoIDMappingList>", "catch_log: ");
    const nxErrorEnum duplicate =
        list.ConvertFromXML("<AlgoIDMappingList><AlgoIDMappings>"
                            "<AlgoMapping><AlgoPath>twap.py</AlgoPath><AlgoID>7</AlgoID></AlgoMapping>"
                            "<AlgoMapping><AlgoPath>vwap.py</AlgoPath><AlgoID>7</AlgoID></AlgoMapping>"
                            "</AlgoIDMappings></AlgoIDMappingList>",
                            "catch_log: ");

    for (const std::string& line : device->lines)
        std::cout << line << '\n';
    std::cout << "cut off: " << cutOff.GetAsString() << ", duplicate: " << duplicate.GetAsString() << '\n';
    const bool asExpected = cutOff == nxErrorEnum(nxErrorEnum::InvalidData) && duplicate.IsOK() &&
                            list.GetAlgoIDMappings().size() == 1;
    return asExpected ? 0 : 1;
}
