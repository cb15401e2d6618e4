// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// Whether a field that can be null or "no change" holds a value of its own.
class NXCORE_API nxValueStatusEnum final : public nxEnumClass<nxValueStatusEnum> {
public:
    enum Value : unsigned int {
        Valid = 241,
        Null = 242,
        NoChange = 243,
    };

    static constexpr std::string_view ClassName = "nxValueStatusEnum";
    static constexpr unsigned int MinValue = 240;
    static constexpr unsigned int MaxValue = 244;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
