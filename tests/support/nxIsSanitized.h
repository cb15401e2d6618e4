// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// Whether a sanitizer of addresses or threads watches. They take more memory and time, and bring a malloc
// whose locks, unlike the C library's, fork does not take: a child that comes while a thread holds one waits
// for it for ever.
#if defined(__has_feature)
constexpr bool nxIsSanitized = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool nxIsSanitized = true;
#else
constexpr bool nxIsSanitized = false;
#endif
