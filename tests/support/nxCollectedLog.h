// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxLogManager.h"
#include "include/nxLog.h"
#include "include/nxLogDevice.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

// What a log record held, kept when the record itself is gone.
struct CollectedRecord {
    nxLogLevelEnum level;
    std::string entry;
    std::string sourceFile;
    unsigned int line;
};

// Keeps every record that it is handed. The log manager lets one thread at a time in; look at `records` when
// no thread logs any more.
class CollectingLogDevice : public nxLogDevice {
public:
    void Write(const nxLog& record) override {
        records.push_back(
            {record.GetLevel(), record.GetLogEntry(), record.GetSourceFile(), record.GetLineNumber()});
    }

    std::vector<CollectedRecord> records;
};

// For as long as it lives, the log goes to a CollectingLogDevice of its own and nowhere else, from the given
// level on; then the devices and the threshold are again what they were before.
//
//   const nxCollectedLog log;
//   EXPECT_FALSE(list.ConvertFromXML("no XML", "prefix: ").IsOK());
//   EXPECT_EQ(log.Entries(), std::vector<std::string>{"prefix: ..."});
class nxCollectedLog {
public:
    explicit nxCollectedLog(const nxLogLevelEnum& threshold = nxLogLevelEnum::Trace)
        : _thresholdBefore(nxLogManager::GetThreshold()),
          _devicesBefore(nxLogManager::SetDevices({_device})) {
        nxLogManager::SetThreshold(threshold);
    }
    ~nxCollectedLog() {
        nxLogManager::SetThreshold(_thresholdBefore);
        nxLogManager::SetDevices(std::move(_devicesBefore));
    }
    nxCollectedLog(const nxCollectedLog&) = delete;
    nxCollectedLog& operator=(const nxCollectedLog&) = delete;

    const std::vector<CollectedRecord>& Records() const { return _device->records; }

    // The texts of all records, or of those at one level.
    std::vector<std::string> Entries() const {
        return _EntriesWhere([](const auto&) { return true; });
    }
    std::vector<std::string> EntriesAt(const nxLogLevelEnum& level) const {
        return _EntriesWhere([&level](const CollectedRecord& record) { return record.level == level; });
    }

    void Clear() { _device->records.clear(); }

private:
    template <class Predicate>
    std::vector<std::string> _EntriesWhere(const Predicate& wanted) const {
        std::vector<std::string> entries;
        for (const CollectedRecord& record : _device->records) {
            if (wanted(record))
                entries.push_back(record.entry);
        }
        return entries;
    }

    std::shared_ptr<CollectingLogDevice> _device = std::make_shared<CollectingLogDevice>();
    nxLogLevelEnum _thresholdBefore;
    nxLogManager::Devices _devicesBefore;
};
