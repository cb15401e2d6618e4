// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A program that knows nothing of desk profiles but their category code. It loads the plugin that has them,
// reads one, looks at what was not taken, writes it, and closes the plugin.
//
// usage: own-record-host PLUGIN

#include "core/nxDataCategoryEnum.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <dlfcn.h>

#include <iostream>
#include <memory>
#include <string>

namespace {
    constexpr unsigned int Desk = nxDataCategoryCode("DESK");

    constexpr char Document[] = R"(<DeskProfile>
  <Name>Nordic equities</Name>
  <IsActive>true</IsActive>
  <MaxLoss>25000.00</MaxLoss>
  <OpensAt>8 o'clock</OpensAt>
  <Traders>
    <Trader id="7"><Name>Åsa &amp; team</Name></Trader>
    <Trader id="9"><Nmae>Ole</Nmae></Trader>
  </Traders>
</DeskProfile>)";

    std::unique_ptr<nxXMLDataObject> MakeDesk() {
        return std::unique_ptr<nxXMLDataObject>(nxXMLDataObject::CreateInstance(Desk));
    }
} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || MakeDesk())
        return 2;
    void* const plugin = ::dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!plugin) {
        std::cerr << ::dlerror() << '\n';
        return 1;
    }

    const std::unique_ptr<nxXMLDataObject> desk = MakeDesk();
    nxXMLReport report;
    nxErrorEnum result = report.Read(*desk, Document, "host: ");
    std::cout << "read: " << result.GetShortDescription() << '\n';
    for (const nxXMLFinding& finding : report.GetFindings())
        std::cout << finding.line << ':' << finding.column << ": " << finding.path << ": "
                  << finding.GetMessage() << '\n';

    std::string xml;
    result = desk->ConvertToXML(xml, "");
    std::cout << xml << '\n';

    // The registry has a profile of the plugin's, so the plugin stays, and so may ours.
    ::dlclose(plugin);
    const std::unique_ptr<nxXMLDataObject> again = MakeDesk();
    result = again->ConvertFromXML("<DeskProfile><Name/></DeskProfile>", "host: ");
    std::cout << "read without a name: " << result.GetShortDescription() << '\n';
    return 0;
}
