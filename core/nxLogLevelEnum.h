// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// How much a log record matters, from the most talkative to the gravest.
class NXCORE_API nxLogLevelEnum final : public nxEnumClass<nxLogLevelEnum> {
public:
    enum Value : unsigned int {
        Trace = 31,
        Debug = 32,
        Detail = 33,
        Info = 34,
        Notice = 35,
        Warning = 36,
        Error = 37,
        Fatal = 38,
    };

    static constexpr std::string_view ClassName = "nxLogLevelEnum";
    static constexpr unsigned int MinValue = 30;
    static constexpr unsigned int MaxValue = 39;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
