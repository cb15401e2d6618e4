// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"
#include "core/nxLogLevelEnum.h"
#include "core/nxTimeStamp.h"
#include "include/nxLogCharLenPair.h"
#include "include/nxValueWrapper.h"

#include <string>
#include <string_view>

class nxDecimal;
class nxDoubleValueWrapper;

// One log record: pieces are streamed into it, and the terminator hands it to the log manager. A record that
// is never terminated is dropped. Ask nxLogManager::ShouldLog before building one, or use nxWriteLog, which
// does. A record belongs to one thread.
class NXCORE_API nxLog {
public:
    // Ends a record.
    struct nxLogTerminator {};
    // Addresses a record to one user.
    struct nxLogDestinationUserID {
        nxUnsignedValueWrapper userID;
    };
    // Addresses a record to one user and lets it name the application that it comes from.
    struct nxLogSourceApplicationDestUserID {
        explicit nxLogSourceApplicationDestUserID(const nxUnsignedValueWrapper& destinationUserID)
            : userID(destinationUserID) {}
        nxUnsignedValueWrapper userID;
    };

    // `sourceFile` and `line` say which statement logs. The text behind `sourceFile` must outlive the record.
    nxLog(const nxLogLevelEnum& level, const char* sourceFile, unsigned int line);

    // Texts, of any bytes.
    nxLog& operator<<(const char* text); // not a null pointer
    nxLog& operator<<(const std::string& text);
    nxLog& operator<<(std::string_view text);
    nxLog& operator<<(const nxLogCharLenPair& text);
    nxLog& operator<<(char character);
    // Numbers and flags in the forms of nxStringHelper, whatever the locale.
    nxLog& operator<<(bool value);
    nxLog& operator<<(short value);
    nxLog& operator<<(int value);
    nxLog& operator<<(unsigned int value);
    nxLog& operator<<(long value);
    nxLog& operator<<(unsigned long value);
    nxLog& operator<<(long long value);
    nxLog& operator<<(unsigned long long value);
    nxLog& operator<<(double value);
    nxLog& operator<<(const nxEnum& value);                 // its text
    nxLog& operator<<(const nxUnsignedValueWrapper& value); // decimal, "NULL" or "NO_CHANGE"
    nxLog& operator<<(const nxIntValueWrapper& value);      // likewise
    nxLog& operator<<(const nxDoubleValueWrapper& value);   // its GetAsLogString
    nxLog& operator<<(const nxDecimal& value);              // with '.', "NULL" for null
    nxLog& operator<<(const void* pointer) = delete;        // would be taken for a flag
    nxLog& operator<<(const nxLogDestinationUserID& destination);
    nxLog& operator<<(const nxLogSourceApplicationDestUserID& destination);
    nxLog& operator<<(const nxLogTerminator& terminator);

    const nxLogLevelEnum& GetLevel() const { return _level; }
    const std::string& GetLogEntry() const { return _entry; } // any bytes, any length
    const char* GetSourceFile() const { return _sourceFile; }
    unsigned int GetLineNumber() const { return _line; }
    const nxTimeStamp& GetTimeStamp() const { return _timeStamp; } // when the record was begun
    // The program's short name where the record was addressed with nxLogSourceApplicationDestUserID, else
    // empty.
    const std::string& GetSourceApplication() const { return _sourceApplication; }
    const nxUnsignedValueWrapper& GetDestinationUserID() const { return _destinationUserID; } // null: nobody

private:
    nxLogLevelEnum _level;
    const char* _sourceFile;
    unsigned int _line;
    nxTimeStamp _timeStamp;
    std::string _entry;
    std::string _sourceApplication;
    nxUnsignedValueWrapper _destinationUserID;
};
