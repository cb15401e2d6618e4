// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxBrokerMap.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <vector>

namespace {
    using nxRecordText::Read;
    using nxRecordText::Written;

    using Names = std::map<unsigned int, std::string>;
    using IDs = std::map<std::string, unsigned int>;
    constexpr unsigned int Null = nxUnsignedValueWrapper::NullValue;
    constexpr unsigned int NoChange = nxUnsignedValueWrapper::NoChangeValue;
    constexpr char Failure[] =
        "Failed to convert XML data to broker map. Unable to create XML document from XML string";

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
    ExpectHolds(Make({}), {}, {{"A", Null}, {"", Null}});
    ExpectHolds(Make({{5, "A"}, {5, "B"}}), {{5, "B"}}, {{"A", 5}, {"B", 5}});
    ExpectHolds(Make({{5, "A"}, {6, "A"}}), {{5, "A"}, {6, "A"}}, {{"A", 6}});
    ExpectHolds(Make({{5, "A"}, {6, "B"}, {5, "B"}}), {{5, "B"}, {6, "B"}}, {{"A", 5}, {"B", 5}});
    ExpectHolds(Make({{0, "a"}, {Null, "A"}, {NoChange, ""}}), {{0, "a"}, {NoChange, ""}, {Null, "A"}},
                {{"a", 0}, {"A", Null}, {"", NoChange}, {"a ", Null}});
    EXPECT_EQ(Make({{5, "A"}}).GetBroker(6), "");
}

TEST(nxBrokerMapConvertToXML, WritesTheNamesInOrderOfTheirIDs) {
    nxBrokerMap brokers = Make({{10, "T<en> & \"co\"\t"}, {9, "nine"}, {Null, ""}, {11, "nine"}});
    EXPECT_EQ(Written(brokers), "<BrokerMap><Broker id=\"9\" name=\"nine\"/>"
                                "<Broker id=\"10\" name=\"T&lt;en> &amp; &quot;co&quot;&#x9;\"/>"
                                "<Broker id=\"11\" name=\"nine\"/><Broker id=\"4294967295\" name=\"\"/>"
                                "</BrokerMap>");

    nxRandomText random(11);
    for (int round = 0; round < 200; ++round) {
        brokers.SetBrokerIDAndName(random.Below(6) * 0x33333333U, random.Text());
        nxBrokerMap read;
        Read(read, Written(brokers));
        ASSERT_EQ(read.GetBrokerIDMap(), brokers.GetBrokerIDMap()) << Written(brokers);
    }
}

TEST(nxBrokerMapConvertFromXML, TakesEveryChildAsABroker) {
    const struct {
        const char* xml;
        Names names;
        IDs ids;
    } cases[] = {
        {"<x name='A' id='1'/>", {}, {{"A", Null}}},
        {"<x>text<Comment id='2' name='B'><y name='C' id='3'/></Comment><!--c--><Broker name='A' id='01'/>"
         "</x>",
         {{1, "A"}, {2, "B"}},
         {{"A", 1}, {"B", 2}, {"C", Null}}},
        {"<x><Broker id='7' Name='A'/><Broker id='4294967294' name=' a '/></x>",
         {{7, ""}, {NoChange, " a "}},
         {{"", 7}, {" a ", NoChange}}},
        {"<x><Broker id='1' name='A'/><Broker id='1' name='B'/></x>", {{1, "B"}}, {{"A", 1}, {"B", 1}}},
    };
    for (const auto& [xml, names, ids] : cases) {
        nxBrokerMap brokers;
        Read(brokers, xml);
        ExpectHolds(brokers, names, ids);
    }
}

TEST(nxBrokerMapConvertFromXML, AddsWhatStandsBeforeAnIDThatIsNoUnsignedNumber) {
    for (const char* id : {"", " id='abc'", " id=''", " id=' 2'", " id='+2'", " id='-1'", " id='2.0'",
                           " id='NULL'", " id='4294967296'", " ID='2'"}) {
        nxBrokerMap brokers = Make({{1, "A"}, {3, "C"}});
        nxRecordText::ExpectRefused(brokers, "<x><Broker id='1' name='Z'/>", Failure, "nxBrokerMap");
        Read(brokers, "<x><Broker id='1' name='one'/></x>");
        nxRecordText::ExpectRefused(brokers,
                                    std::string("<x><Broker id='1' name='one'/><Broker name='two'") + id +
                                        "/><Broker id='3' name='three'/></x>",
                                    Failure, "nxBrokerMap");
        ExpectHolds(brokers, {{1, "one"}, {3, "C"}}, {{"A", 1}, {"one", 1}, {"two", Null}, {"three", Null}});
    }
}
