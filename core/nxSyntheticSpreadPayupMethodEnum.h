// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

// When a spread leg gives up ticks to get its hedge done.
class NXCORE_API nxSyntheticSpreadPayupMethodEnum final
    : public nxEnumClass<nxSyntheticSpreadPayupMethodEnum> {
public:
    enum Value : unsigned int {
        Plain = 13001,
        Conditional = 13002,
        Cascade = 13003,
    };

    static constexpr std::string_view ClassName = "nxSyntheticSpreadPayupMethodEnum";
    static constexpr unsigned int MinValue = 13000;
    static constexpr unsigned int MaxValue = 13004;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;
};
