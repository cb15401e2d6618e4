// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxVersion.h"

#define NX_TEXT_OF(number) NX_TEXT(number)
#define NX_TEXT(number) #number

unsigned int nxVersion::GetLoaded() {
    return Compiled;
}

const char* nxVersion::GetLoadedText() {
    return NX_TEXT_OF(XMLFRAMEWORK_VERSION_MAJOR) "." NX_TEXT_OF(XMLFRAMEWORK_VERSION_MINOR) "." NX_TEXT_OF(
        XMLFRAMEWORK_VERSION_PATCH);
}
