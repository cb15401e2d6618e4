// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Uses the base library alone.

#include "core/nxDecimal.h"
#include "core/nxVersion.h"

#include <iostream>
#include <string_view>

int main() {
    nxDecimal price;
    if (!price.SetFromString("1.50", '.').IsOK() || price.GetAsString('.') != "1.50") {
        std::cerr << "1.50 came back as " << price.GetAsLogString('.') << '\n';
        return 1;
    }
    static_assert(XMLFRAMEWORK_VERSION >= 10000);
    if (nxVersion::GetLoaded() != nxVersion::Compiled ||
        nxVersion::GetLoadedText() != std::string_view(PACKAGE_VERSION)) {
        std::cerr << "the package says " PACKAGE_VERSION ", the library " << nxVersion::GetLoadedText()
                  << '\n';
        return 1;
    }
    std::cout << price.GetAsString('.') << '\n';
    return 0;
}
