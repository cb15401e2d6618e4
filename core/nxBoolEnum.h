// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

#include <concepts>

// A truth value that can also be undefined or "no change". Its name and its short description are the same
// text, so that what GetShortDescription writes SetFromString reads.
class NXCORE_API nxBoolEnum final : public nxEnumClass<nxBoolEnum> {
public:
    enum Value : unsigned int {
        False = 11,
        True = 12,
    };

    static constexpr std::string_view ClassName = "nxBoolEnum";
    static constexpr unsigned int MinValue = 10;
    static constexpr unsigned int MaxValue = 13;
    static std::span<const nxEnumRow> Rows();

    using nxEnumClass::nxEnumClass;
    using nxEnumClass::operator=;

    // A bool would be taken for the number 0 or 1, which this class does not have.
    template <std::same_as<bool> Bool>
    nxBoolEnum(Bool) = delete;
    template <std::same_as<bool> Bool>
    nxBoolEnum& operator=(Bool) = delete;
};
