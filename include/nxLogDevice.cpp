// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxLogDevice.h"

nxLogDevice::~nxLogDevice() = default;
