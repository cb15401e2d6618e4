// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// Every public header comes by here first.
#if __cplusplus < 202002L
#error "XMLFramework needs C++20: compile with -std=c++20 or later."
#endif

// Marks what libnxcore exports; everything else is built with hidden visibility.
#define NXCORE_API __attribute__((visibility("default")))
