// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <concepts>
#include <type_traits>

// Made without arguments, copied and compared like an int, and moved without an exception, which a vector of
// them counts on.
template <class T>
concept nxIsValue =
    std::regular<T> && std::is_nothrow_move_constructible_v<T> && std::is_nothrow_move_assignable_v<T>;
