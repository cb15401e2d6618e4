// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxBrokerMap.h"

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using namespace nxRecordText;

    using Names = std::map<unsigned int, std::string>;
    using IDs = std::map<std::string, unsigned int>;
    constexpr unsigned int Null = nxUnsignedValueWrapper::NullValue;
    constexpr unsigned int NoChange = nxUnsignedValueWrapper::NoChangeValue;

    nxBrokerMap Make(const std::vector<std::pair<unsigned int, std::string>>& settings) {
        nxBrokerMap brokers;
        for (const auto& [id, name] : settings)
            brokers.SetBrokerIDAndName(id, name);
        return brokers;
    }

    // The whole of one direction, and of the other what the given names lead to.
    void ExpectHolds(const nxBrokerMap& brokers, const Names& names, const IDs& ids) {
        const auto& held = brokers.GetBrokerIDMap();
        EXPECT_EQ(Names(held.begin(), held.end()), names);
        for (const auto& [id, name] : names)
            EXPECT_EQ(brokers.GetBroker(id), name) << id;
        for (const auto& [name, id] : ids)
            EXPECT_EQ(brokers.GetBrokerID(name), id) << name;
    }
} // namespace

TEST(nxBrokerMapSetBrokerIDAndName, OverwritesUnderItsOwnKeysAndRemovesNothing) {
    ExpectHolds(Make({{5, "A"}, {5, "B"}}), {{5, "B"}}, {{"A", 5}, {"B", 5}, {"b", Null}});
    ExpectHolds(Make({{5, "A"}, {6, "B"}, {5, "B"}}), {{5, "B"}, {6, "B"}}, {{"A", 5}, {"B", 5}});
    ExpectHolds(Make({{Null, "A"}, {NoChange, ""}}), {{NoChange, ""}, {Null, "A"}},
                {{"A", Null}, {"", NoChange}});
    EXPECT_EQ(Make({{5, "A"}}).GetBroker(6), "");
}

TEST(nxBrokerMapConvertToXML, WritesTheNamesInOrderOfTheirIDs) {
    EXPECT_EQ(Written(Make({{10, "T<en> & \"co\"\t"}, {9, "nine"}, {Null, ""}, {11, "nine"}})),
              "<BrokerMap><Broker id=\"9\" name=\"nine\"/>"
              "<Broker id=\"10\" name=\"T&lt;en> &amp; &quot;co&quot;&#x9;\"/>"
              "<Broker id=\"11\" name=\"nine\"/><Broker id=\"4294967295\" name=\"\"/></BrokerMap>");
}

TEST(nxBrokerMapConvertToXML, SaysWhichNameXMLCannotCarry) {
    const nxCollectedLog log;
    std::string xml = "before";
    EXPECT_EQ(Make({{1, "\x01"}}).ConvertToXML(xml, ""), nxErrorEnum::XMLTextNotCarried);
    EXPECT_EQ(xml, "before");
    EXPECT_EQ(log.Entries(), std::vector<std::string>{
                                 "Error saving document: in memory \nException message is:  \nan attribute's "
                                 "value cannot be carried by XML: it holds a character that XML 1.0 does not "
                                 "allow, in element 'Broker'\n"});
}

TEST(nxBrokerMapConvertFromXML, TakesEveryChildAsABroker) {
    nxBrokerMap brokers = Make({{1, "held"}, {8, "held"}});
    Read(brokers, "<x name='X' id='9'>text<Comment id='2' name='B'><y name='C' id='3'/></Comment><!--c-->"
                  "<Broker id='1' name='A'/><Broker name=' a ' id='01'/><Broker id='7' Name='A'/></x>");
    ExpectHolds(brokers, {{1, " a "}, {2, "B"}, {7, ""}, {8, "held"}},
                {{"A", 1}, {" a ", 1}, {"B", 2}, {"", 7}, {"held", 8}, {"C", Null}, {"X", Null}});
}

TEST(nxBrokerMapConvertFromXML, AddsWhatStandsBeforeAnIDThatIsNoUnsignedNumber) {
    for (const char* id : {"", " id=''", " id=' 2'", " id='-1'", " id='NULL'", " ID='2'"}) {
        nxBrokerMap brokers = Make({{1, "A"}, {3, "C"}});
        ExpectRefused(brokers,
                      std::string("<x><Broker id='1' name='one'/><Broker name='two'") + id +
                          "/><Broker id='3' name='three'/></x>",
                      "broker map", "nxBrokerMap");
        ExpectHolds(brokers, {{1, "one"}, {3, "C"}}, {{"A", 1}, {"one", 1}, {"two", Null}, {"three", Null}});
    }
}
