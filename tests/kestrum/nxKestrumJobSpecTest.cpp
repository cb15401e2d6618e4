// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The job spec, and the two small records beside it: the module spec and the user limit.

#include "xmlFramework/kestrum/nxKestrumJobSpec.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {
    using nxRecordText::ExpectRefused;
    using nxRecordText::Read;
    using nxRecordText::Written;

    std::string Limit(const std::string& product) {
        return "<Limit><ProductID>" + product +
               "</ProductID><MaxShort>1</MaxShort><MaxLong>2</MaxLong><MaxBuys>3</MaxBuys>"
               "<MaxSells>4</MaxSells><ClipLimit>5</ClipLimit><Strategy>false</Strategy>"
               "<Netting>false</Netting><MarginRiskStrategy>false</MarginRiskStrategy>"
               "<AccountID>4294967295</AccountID></Limit>";
    }
    std::string Document(const std::string& limits) {
        return "<KestrumJobSpec><AlgorithmSpecName>A &amp; B</AlgorithmSpecName>"
               "<Parameters>Qty=100^^|^^Side=Buy^^|^^</Parameters><Limits>" +
               limits +
               "</Limits><AccountID>7</AccountID><MaxTrans>8</MaxTrans><MaxTransPS>9</MaxTransPS>"
               "<PreferredExchangeUser>user</PreferredExchangeUser>"
               "<BackTestingAccountID>4294967294</BackTestingAccountID>"
               "<AntiCrossPullOrders>true</AntiCrossPullOrders>"
               "<DisablePreLimitCheck>false</DisablePreLimitCheck></KestrumJobSpec>";
    }

    std::string Written(const nxKestrumUserLimit& limit) {
        std::string xml = "not written";
        EXPECT_EQ(limit.ConvertToXML(xml, "ignored"), nxErrorEnum::OK);
        return xml;
    }
} // namespace

TEST(nxKestrumJobSpecConvertToXML, WritesEveryFieldInOrder) {
    nxKestrumJobSpec job;
    const std::string empty =
        "<KestrumJobSpec><AlgorithmSpecName></AlgorithmSpecName><Parameters></Parameters><Limits/>"
        "<AccountID>4294967295</AccountID><MaxTrans>0</MaxTrans><MaxTransPS>0</MaxTransPS>"
        "<PreferredExchangeUser></PreferredExchangeUser>"
        "<BackTestingAccountID>4294967295</BackTestingAccountID>"
        "<AntiCrossPullOrders>false</AntiCrossPullOrders>"
        "<DisablePreLimitCheck>false</DisablePreLimitCheck></KestrumJobSpec>";
    EXPECT_EQ(Written(job), empty);
    job.SetAccountID(1);
    job.SetBackTestingAccountID(2);
    Read(job, empty);
    EXPECT_TRUE(job.GetAccountID().IsNull() && job.GetBackTestingAccountID().IsNull());

    job.SetAlgorithmSpecName("A & B");
    job.SetParameters("Qty=100\x01Side=Buy\x01");
    EXPECT_TRUE(job.AddLimit(nxKestrumLimit("P", 1, 2, 3, 4, 5, "", nxNullInitalizer())));
    job.SetAccountID(7);
    job.SetMaxTransactions(8);
    job.SetMaxTransactionsPerSecond(9);
    job.SetPreferredExchangeUser("user");
    job.SetBackTestingAccountID(nxNoChangeInitalizer());
    job.SetAntiCrossPullOrders(true);
    EXPECT_EQ(Written(job), Document(Limit("P")));
}

TEST(nxKestrumJobSpecConvertFromXML, TakesFieldsInAnyOrderAndAddsLimits) {
    nxKestrumJobSpec job;
    Read(job, Document(Limit("P") + Limit("Q")));
    EXPECT_EQ(Written(job), Document(Limit("P") + Limit("Q")));
    EXPECT_EQ(job.GetParameters(), "Qty=100\x01Side=Buy\x01");

    const std::unique_ptr<nxKestrumJobSpec> copy(job.CopyInstance());
    Read(job, "<x><DisablePreLimitCheck>TRUE</DisablePreLimitCheck><MaxTrans>-1</MaxTrans><MaxTransPS/>"
              "<BackTestingAccountID>x</BackTestingAccountID><AccountID>NO_CHANGE</AccountID><Limits>" +
                  Limit("R") + "</Limits><Parameters>a=x^^|^^y^^|^^</Parameters></x>");
    EXPECT_TRUE(job.GetAccountID().IsNull() && job.GetBackTestingAccountID().IsNull());
    EXPECT_TRUE(job.GetDisablePreLimitCheck() && job.GetAntiCrossPullOrders());
    EXPECT_EQ(job.GetMaxTransactions() + job.GetMaxTransactionsPerSecond(), 8U + 9U);
    EXPECT_EQ(job.GetParameters(), "a=x\x01y\x01") << "a value that holds the mark is two pairs";
    EXPECT_EQ(job.GetLimits().size(), 3U);
    job.GetLimits()[0]->SetProductID("changed");
    EXPECT_EQ(Written(*copy), Document(Limit("P") + Limit("Q")));

    job.SetLimits(copy->GetLimits());
    EXPECT_EQ(job.GetLimits().size(), 2U);
    job.ClearLimits();
    EXPECT_TRUE(job.GetLimits().empty());
}

TEST(nxKestrumJobSpecConvertFromXML, ReturnsTheFailureOfALimitAndReadsTheFieldsBehindIt) {
    nxKestrumJobSpec job;
    EXPECT_EQ(
        job.ConvertFromXML(Document(Limit("P") + "<Limit><MaxLong>1</MaxLong></Limit>" + Limit("Q")), ""),
        nxErrorEnum::ValueNotFound);
    EXPECT_EQ(Written(job), Document(Limit("P")));
}

TEST(nxKestrumJobSpecConvertFromXML, RefusesWhatIsNoDocument) {
    nxKestrumJobSpec job;
    Read(job, Document(Limit("P")));
    ExpectRefused(job, "<a",
                  "Failed to convert XML data to Kestrum Job Spec. Unable to create XML document "
                  "from XML string",
                  "nxKestrumJobSpec");
}

TEST(nxKestrumJobSpecRoundTrip, WritesTheSameTextAgain) {
    nxRandomText random(4);
    for (int round = 0; round < 200; ++round) {
        nxKestrumJobSpec job;
        std::string userString;
        for (unsigned int pairs = random.Below(6); pairs > 0; --pairs)
            userString += random.Key() + "=" + random.Text() + "\x01";
        job.SetParameters(userString);
        job.SetAlgorithmSpecName(random.Text());
        job.SetPreferredExchangeUser(random.Text());
        job.AddLimit(nxKestrumLimit(random.Key() + random.Text(), 1, 2, 3, 4, 5, "", random.Below(9)));
        const std::string xml = Written(job);
        nxKestrumJobSpec read;
        Read(read, xml);
        ASSERT_EQ(Written(read), xml);
        ASSERT_EQ(read.GetParameters(), userString);
    }
}

TEST(nxKestrumModuleSpec, KeepsItsSourceCode) {
    const std::string xml = "<KestrumModuleSpec><SourceCode>a &lt; b &amp;&amp; "
                            "c&#xD;\n\t]]&gt;\u00E9</SourceCode></KestrumModuleSpec>";
    nxKestrumModuleSpec module;
    EXPECT_EQ(Written(module), "<KestrumModuleSpec><SourceCode></SourceCode></KestrumModuleSpec>");
    Read(module, xml);
    Read(module, "<x><sourceCode>y</sourceCode><SourceCode/></x>");
    EXPECT_EQ(module.GetSourceCode(), "a < b && c\r\n\t]]>\u00E9");
    EXPECT_EQ(Written(*std::unique_ptr<nxKestrumModuleSpec>(module.CopyInstance())), xml);
    ExpectRefused(module, "<a",
                  "Failed to convert XML data to spread spec. Unable to create XML document from "
                  "XML string",
                  "nxKestrumModuleSpec");
}

TEST(nxKestrumUserLimit, ReadsACeilingThatIsMalformedAsNull) {
    const auto document = [](const std::string& total, const std::string& perSecond,
                             const std::string& jobs) {
        return "<KestrumUserLimit><maxTransactions>" + total + "</maxTransactions><maxTransactionsPS>" +
               perSecond + "</maxTransactionsPS><maxConcurrentJobs>" + jobs +
               "</maxConcurrentJobs></KestrumUserLimit>";
    };
    nxKestrumUserLimit limit;
    EXPECT_EQ(Written(limit), document("4294967295", "4294967295", "4294967295"));
    limit.SetMaxTransactions(1);
    limit.SetMaxTransactionsPerSecond(2);
    limit.SetMaxConcurrentJobs(3);
    EXPECT_EQ(Written(limit), document("1", "2", "3"));
    const std::unique_ptr<nxKestrumUserLimit> copy(limit.CopyInstance());
    EXPECT_EQ(limit.ConvertFromXML(document("", "abc", "0"), ""), nxErrorEnum::OK);
    EXPECT_EQ(Written(limit), document("1", "4294967295", "0"));

    const nxCollectedLog log;
    EXPECT_EQ(copy->ConvertFromXML("<a", "context: "), nxErrorEnum::InvalidData);
    EXPECT_EQ(log.Records().back().entry,
              "context: Failed to convert XML data to kestrum user limit. Unable to "
              "create XML document from XML string");
    EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxKestrumUserLimit");
    EXPECT_EQ(Written(*copy), document("1", "2", "3"));
}

TEST(nxXMLDataObjectCreateInstance, KnowsTheKestrumRecords) {
    const struct {
        unsigned int code;
        const char* root;
    } cases[] = {{0x414C474F, "<KestrumAlgorithmSpec>"},
                 {0x4B4A4F42, "<KestrumJobSpec>"},
                 {0x4B4D4F44, "<KestrumModuleSpec>"}};
    for (const auto& [code, root] : cases) {
        const std::unique_ptr<nxXMLDataObject> record(nxXMLDataObject::CreateInstance(code));
        ASSERT_TRUE(record) << root;
        EXPECT_EQ(record->GetDataCategoryTypeID(), code);
        EXPECT_TRUE(Written(*record).starts_with(root));
        const std::unique_ptr<nxXMLDataObject> another(record->CreateInstance());
        EXPECT_EQ(Written(*another), Written(*record));
    }
}
