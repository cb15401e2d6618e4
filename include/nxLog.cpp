// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxLog.h"

#include "core/nxDecimal.h"
#include "core/nxLogManager.h"
#include "core/nxStringHelper.h"
#include "include/nxDoubleValueWrapper.h"

#include <cerrno> // program_invocation_short_name

nxLog::nxLog(const nxLogLevelEnum& level, const char* sourceFile, unsigned int line)
    : _level(level), _sourceFile(sourceFile), _line(line), _timeStamp(nxTimeStamp::Now()) {}

nxLog& nxLog::operator<<(const char* text) {
    _entry += text;
    return *this;
}

nxLog& nxLog::operator<<(const std::string& text) {
    _entry += text;
    return *this;
}

nxLog& nxLog::operator<<(std::string_view text) {
    _entry += text;
    return *this;
}

nxLog& nxLog::operator<<(const nxLogCharLenPair& text) {
    _entry.append(text.GetUnterminatedCharBuffer(), text.GetLength());
    return *this;
}

nxLog& nxLog::operator<<(char character) {
    _entry += character;
    return *this;
}

nxLog& nxLog::operator<<(bool value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(short value) {
    return *this << int{value};
}

nxLog& nxLog::operator<<(int value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(unsigned int value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(long value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(unsigned long value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(long long value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(unsigned long long value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(double value) {
    nxStringHelper::AppendAsString(_entry, value);
    return *this;
}

nxLog& nxLog::operator<<(const nxEnum& value) {
    value.AppendAsString(_entry);
    return *this;
}

nxLog& nxLog::operator<<(const nxUnsignedValueWrapper& value) {
    value.AppendAsString(_entry);
    return *this;
}

nxLog& nxLog::operator<<(const nxIntValueWrapper& value) {
    value.AppendAsString(_entry);
    return *this;
}

nxLog& nxLog::operator<<(const nxDoubleValueWrapper& value) {
    _entry += value.GetAsLogString();
    return *this;
}

nxLog& nxLog::operator<<(const nxDecimal& value) {
    value.AppendAsLogString(_entry, '.');
    return *this;
}

nxLog& nxLog::operator<<(const nxLogDestinationUserID& destination) {
    _destinationUserID = destination.userID;
    return *this;
}

nxLog& nxLog::operator<<(const nxLogSourceApplicationDestUserID& destination) {
    _destinationUserID = destination.userID;
    _sourceApplication = program_invocation_short_name;
    return *this;
}

nxLog& nxLog::operator<<(const nxLogTerminator& /*terminator*/) {
    nxLogManager::Write(*this);
    return *this;
}
