// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// Whether a child forked beside threads may allocate. The sanitizers bring a malloc whose locks, unlike the C
// library's, fork does not take: a child that comes while a thread holds one waits for it for ever.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool nxForkWithThreads = false;
#else
constexpr bool nxForkWithThreads = true;
#endif
