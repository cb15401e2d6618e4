// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The job spec, and the two small records beside it: the module spec and the user limit.

#include "xmlFramework/kestrum/nxKestrumJobSpec.h"

#include "tests/support/nxRecordText.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"

#include <memory>
#include <string>

namespace {
    using namespace nxRecordText;

    std::string Limit(const std::string& product) {
        return Element("Limit", Element("ProductID", product) +
                                    Elements("MaxShort=1 MaxLong=2 MaxBuys=3 MaxSells=4 ClipLimit=5 "
                                             "Strategy=false Netting=false MarginRiskStrategy=false "
                                             "AccountID=4294967295"));
    }
    std::string Document(const std::string& limits) {
        return Element("KestrumJobSpec",
                       Elements("AlgorithmSpecName=A Parameters=Qty=100^^|^^Side=Buy^^|^^") +
                           Element("Limits", limits) +
                           Elements("AccountID=7 MaxTrans=8 MaxTransPS=9 PreferredExchangeUser=user "
                                    "BackTestingAccountID=4294967294 AntiCrossPullOrders=true "
                                    "DisablePreLimitCheck=false"));
    }
} // namespace

TEST(nxKestrumJobSpecConvertToXML, WritesEveryFieldInOrder) {
    nxKestrumJobSpec job;
    EXPECT_EQ(Written(job),
              Element("KestrumJobSpec",
                      Elements("AlgorithmSpecName= Parameters=") + "<Limits/>" +
                          Elements("AccountID=4294967295 MaxTrans=0 MaxTransPS=0 PreferredExchangeUser= "
                                   "BackTestingAccountID=4294967295 AntiCrossPullOrders=false "
                                   "DisablePreLimitCheck=false")));
    job.SetAlgorithmSpecName("A");
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
    const std::unique_ptr<nxKestrumJobSpec> copy(job.CopyInstance());
    Read(job, Element("x", Elements("DisablePreLimitCheck=TRUE MaxTrans=-1 MaxTransPS= "
                                    "BackTestingAccountID=x AccountID=NO_CHANGE Parameters=a=x^^|^^y^^|^^") +
                               Element("Limits", Limit("R"))));
    EXPECT_TRUE(job.GetAccountID().IsNull() && job.GetBackTestingAccountID().IsNull());
    EXPECT_TRUE(job.GetDisablePreLimitCheck() && job.GetAntiCrossPullOrders());
    EXPECT_EQ(job.GetMaxTransactions(), 8U);
    EXPECT_EQ(job.GetMaxTransactionsPerSecond(), 9U);
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

TEST(nxKestrumModuleSpec, KeepsItsSourceCodeWhereADocumentHasNone) {
    nxKestrumModuleSpec module;
    module.SetSourceCode("code");
    Read(module, "<x><sourceCode>y</sourceCode><SourceCode/></x>");
    EXPECT_EQ(Written(module), Element("KestrumModuleSpec", Elements("SourceCode=code")));
}

TEST(nxKestrumUserLimit, ReadsACeilingThatIsMalformedAsNull) {
    const auto document = [](const std::string& total, const std::string& perSecond,
                             const std::string& jobs) {
        return Element("KestrumUserLimit", Elements("maxTransactions=" + total + " maxTransactionsPS=" +
                                                    perSecond + " maxConcurrentJobs=" + jobs));
    };
    nxKestrumUserLimit limit;
    EXPECT_EQ(Written(limit), document("4294967295", "4294967295", "4294967295"));
    limit.SetMaxTransactions(1);
    limit.SetMaxTransactionsPerSecond(2);
    limit.SetMaxConcurrentJobs(3);
    const std::unique_ptr<nxKestrumUserLimit> copy(limit.CopyInstance());
    Read(limit, document("", "abc", "4294967294"));
    EXPECT_EQ(Written(limit), document("1", "4294967295", "4294967294"));

    ExpectRefused(*copy, "<a", "kestrum user limit", "nxKestrumUserLimit");
    EXPECT_EQ(Written(*copy), document("1", "2", "3"));
}
