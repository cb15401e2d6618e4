// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// Tags that construct a value in its null or its no-change state.
struct nxNullInitalizer {};
struct nxNoChangeInitalizer {};
