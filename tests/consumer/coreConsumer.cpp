// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Uses the base library alone.

#include "core/nxDecimal.h"

#include <iostream>

int main() {
    nxDecimal price;
    if (!price.SetFromString("1.50", '.').IsOK() || price.GetAsString('.') != "1.50") {
        std::cerr << "1.50 came back as " << price.GetAsLogString('.') << '\n';
        return 1;
    }
    std::cout << price.GetAsString('.') << '\n';
    return 0;
}
