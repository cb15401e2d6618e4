// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxEnum.h"

#include <concepts>
#include <ostream>

// Failed expectations show an enumeration, an error code for instance, by its name.
template <std::derived_from<nxEnum> Enum>
void PrintTo(const Enum& value, std::ostream* stream) {
    *stream << value.GetAsString();
}
