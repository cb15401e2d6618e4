// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Reads a record from the file on the command line and looks at what it holds.

#include "core/nxFileHelper.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <iostream>
#include <string>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: read_record MICS.xml\n";
        return 2;
    }

    std::string xml;
    std::string problem;
    if (!nxFileHelper::Read(argv[1], xml, problem).IsOK()) {
        std::cerr << argv[1] << ": " << problem << '\n';
        return 1;
    }

    nxMICDefinitionList mics;
    const nxErrorEnum result = mics.ConvertFromXML(xml, "read_record: ");
    if (!result.IsOK()) {
        std::cerr << argv[1] << ": " << result.GetLongDescription() << '\n';
        return 1;
    }
    for (const auto& [mic, definition] : mics.GetMICDefinitions())
        std::cout << mic << ": " << definition->GetName() << '\n';
    return 0;
}
