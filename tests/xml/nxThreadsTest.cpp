// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Threads with records of their own: most of use under the thread sanitizer.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxInThreads.h"
#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

constexpr int Rounds = 100;

TEST(nxXMLDataObjectInManyThreads, ConvertsRecordsOfDifferentClassesAtOnce) {
    nxInThreads(6, Rounds, [](int thread, int) {
        const bool algos = thread % 2 == 0;
        const std::string path = "n\u00E9&#xD;" + std::to_string(thread);
        const std::string xml =
            algos ? "<AlgoIDMappingList><AlgoIDMappings><AlgoMapping><AlgoPath>" + path +
                        "</AlgoPath><AlgoID>1</AlgoID></AlgoMapping></AlgoIDMappings></AlgoIDMappingList>"
                  : "<MICDefinitionList><MICDefinitions/></MICDefinitionList>";
        const std::unique_ptr<nxXMLDataObject> record(
            nxXMLDataObject::CreateInstance(algos ? 0x414C4944U : 0x584D4943U));
        EXPECT_EQ(record->ConvertFromXML(xml, ""), nxErrorEnum::OK);
        std::string written;
        EXPECT_EQ(record->ConvertToXML(written, ""), nxErrorEnum::OK);
        EXPECT_EQ(written, xml);
    });
}

TEST(nxXMLDocumentInManyThreads, FailsAndLogsInEachForItself) {
    constexpr int Threads = 4;
    const nxCollectedLog log;
    nxInThreads(Threads, Rounds, [](int thread, int) {
        const std::string bad[] = {"<a", "<!DOCTYPE a><a/>", "<?xml version='1.2'?><a/>", "<a>\xFF</a>"};
        EXPECT_EQ(nxXMLDocument().LoadFromString(bad[thread]), nxErrorEnum::XMLParseFailed);
        nxXMLDocument built;
        EXPECT_EQ(built.CreateDocument("a"), nxErrorEnum::OK);
        EXPECT_EQ(built.GetRootElement().SetValue("\x01"), nxErrorEnum::XMLTextNotCarried);
        std::string xml;
        EXPECT_EQ(built.SaveToString(xml), nxErrorEnum::XMLTextNotCarried);
    });
    EXPECT_EQ(log.Entries().size(), 3U * Threads * Rounds); // two for each load, one for each save
}
