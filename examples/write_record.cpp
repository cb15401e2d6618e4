// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Fills a record, writes it, and sees what becomes of a text that XML has no way to hold.

#include "xmlFramework/market/nxAlgoIDMappingList.h"

#include <iostream>
#include <string>

int main() {
    nxAlgoIDMappingList list;
    list.GetAlgoIDMappings() = {{"equities/twap.py", 1101}, {"futures/buy & hold.py", 1102}};

    std::string xml;
    nxErrorEnum result = list.ConvertToXML(xml, "");
    if (!result.IsOK()) {
        std::cerr << "not written: " << result.GetLongDescription() << '\n';
        return 1;
    }
    std::cout << xml << '\n';

    const std::string before = xml;
    list.GetAlgoIDMappings()["a path with a bell\a"] = 1103;
    result = list.ConvertToXML(xml, "");
    std::cout << result.GetEnumValue() << ": " << result.GetLongDescription() << '\n';
    return result == nxErrorEnum(nxErrorEnum::XMLTextNotCarried) && xml == before ? 0 : 1;
}
