// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// What still works, and what is refused, when the process ends and the static objects of the library are
// gone, as a thread may find it that nobody joined.
//
// usage: after-the-end [KEEP]    With an argument, a document is there until the end, and the parser with it.

#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {
    std::unique_ptr<nxXMLDocument>& KeptDocument() {
        static auto& document = *new std::unique_ptr<nxXMLDocument>;
        return document;
    }

    // Ends the program unless it holds.
    void Expect(bool holds, const char* what) {
        if (holds)
            return;
        std::printf("not so: %s\n", what);
        std::fflush(stdout);
        _exit(1);
    }

    void LookRound(int /*status*/, void* /*nothing*/) {
        nxXMLDocument document;
        const bool hasParser = KeptDocument() != nullptr;
        Expect(document.LoadFromString("<a/>") == (hasParser ? nxErrorEnum::OK : nxErrorEnum::XMLParseFailed),
               "a document is loaded while the parser is there, and refused when it is gone");
        Expect(nxXMLDocument().CreateDocument("a") ==
                   (hasParser ? nxErrorEnum::OK : nxErrorEnum::XMLDocumentNotCreatable),
               "so is one that is made");
        std::string xml = "<BrokerMap><Broker id=\"1\" name=\"A\"/></BrokerMap>";
        nxBrokerMap brokers;
        Expect(brokers.ConvertFromXML(xml, "").IsOK() && brokers.ConvertToXML(xml, "").IsOK() &&
                   brokers.GetBroker(1) == "A",
               "a record is read and written");
        if (hasParser)
            Expect(KeptDocument()->SaveToString(xml).IsOK() && xml == "<b/>", "a document is saved");
        KeptDocument().reset();
    }

    // Called last of all: what is registered before the libraries are made ready comes after them in the end.
    void RegisterFirst() {
        ::on_exit(LookRound, nullptr);
    }
    [[gnu::used, gnu::section(".preinit_array")]] void (*const registerFirst)() = RegisterFirst;
} // namespace

int main(int argc, char** /*argv*/) {
    if (argc > 1) {
        KeptDocument() = std::make_unique<nxXMLDocument>();
        Expect(KeptDocument()->LoadFromString("<b/>").IsOK(), "a document is loaded");
    }
    return EXIT_SUCCESS;
}
