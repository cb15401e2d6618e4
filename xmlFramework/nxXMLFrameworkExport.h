// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

// Marks what libXMLFramework exports; everything else is built with hidden visibility.
#define XMLFRAMEWORK_API __attribute__((visibility("default")))
