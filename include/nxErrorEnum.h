// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// The result of an operation. The codes are stable: branch on them, show the texts to people.
// Grouped by thousands: 1000xxx general data errors, 1003xxx input files, 1007xxx XML.
class NXCORE_API nxErrorEnum final : public nxEnumClass<nxErrorEnum> {
public:
    enum Value : unsigned int {
        OK = 0,
        InvalidData = 1000002,             // text is no document, or a record is unusable as a whole
        InvalidRecord = 1000011,           // a record failed its validation
        ValueNotFound = 1000201,           // an invalid element handle, or the value's node is missing
        ValueNotParsed = 1000202,          // a text is no value of the type it was read as
        ValueOutOfRange = 1000203,         // the result of a calculation cannot be held
        InputNotUsable = 1003000,          // a file could not be opened, or an input row could not be used
        OutputNotWritten = 1003001,        // a file could not be written
        XMLParseFailed = 1007000,          // the parser reported an error or a warning
        XMLWriteFailed = 1007001,          // a file could not be written
        XMLDocumentNotCreatable = 1007002, // no implementation, or the document exists already
        XMLDocumentNotCreated = 1007003,   // the implementation made no document
        XMLDocumentMissing = 1007004,      // nothing to save: no document or no root element
        XMLNoDocumentParsed = 1007005,     // parsing a file gave no document
        XMLTextNotCarried = 1007006,       // the document holds a name or a text that XML cannot carry
        XMLTooDeep = 1007007,              // the document's elements are nested too deeply to be written
    };

    static constexpr std::string_view ClassName = "nxErrorEnum";
    static constexpr unsigned int MinValue = 999999;
    static constexpr unsigned int MaxValue = 1010000;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;

    constexpr bool IsOK() const { return GetEnumValue() == OK; }
};
