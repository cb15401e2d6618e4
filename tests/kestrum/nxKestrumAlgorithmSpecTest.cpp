// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include "tests/support/nxRandomText.h"
#include "tests/support/nxRecordText.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {
    using Definition = nxKestrumParameterDefinition;
    using Type = nxKestrumParameterTypeEnum;
    using nxRecordText::Read;
    using nxRecordText::Written;
    using Strings = std::vector<std::string>;

    std::string Parameter(const std::string& name, const std::string& element = "Parameter",
                          const std::string& type = "PRICE") {
        return "<" + element + "><Name>" + name + "</Name><ParameterType>" + type +
               "</ParameterType><Optional>false</Optional><SystemParameter>false</SystemParameter>"
               "<ReadOnly>true</ReadOnly><Description></Description><ValidValues/></" +
               element + ">";
    }
    std::string Output(const std::string& name) {
        return Parameter(name, "OutputParameter");
    }
    std::string Limit(const std::string& product) {
        return "<Limit><ProductID>" + product +
               "</ProductID><MaxShort>1</MaxShort><MaxLong>2</MaxLong><MaxBuys>3</MaxBuys>"
               "<MaxSells>4</MaxSells><ClipLimit>5</ClipLimit><Strategy>false</Strategy>"
               "<Netting>false</Netting><MarginRiskStrategy>false</MarginRiskStrategy>"
               "<AccountID>4294967295</AccountID></Limit>";
    }
    std::string Module(const std::string& name) {
        return "<Module><Name>" + name + "</Name></Module>";
    }

    // The contents of the four lists.
    struct Lists {
        std::string parameters;
        std::string limits;
        std::string modules;
        std::string outputs;
    };
    std::string InList(const std::string& list, const std::string& items) {
        return items.empty() ? "<" + list + "/>" : "<" + list + ">" + items + "</" + list + ">";
    }
    std::string Document(const Lists& lists, const std::string& script = "",
                         const std::string& orderType = "KESTRUM_ALGORITHM",
                         const std::string& hide = "false") {
        return "<KestrumAlgorithmSpec><ScriptSourceCode>" + script + "</ScriptSourceCode>" +
               InList("Parameters", lists.parameters) + "<SyntheticOrderType>" + orderType +
               "</SyntheticOrderType>" + InList("Limits", lists.limits) + InList("Modules", lists.modules) +
               InList("OutputParameters", lists.outputs) + "<HideParentOrder>" + hide +
               "</HideParentOrder></KestrumAlgorithmSpec>";
    }

    const std::string Full = Document({Parameter("b") + Parameter("a"), Limit("P") + Limit("P"),
                                       Module("M") + Module("m"), Output("o") + Output("a")},
                                      "run()", "ICEBERG", "true");

    // What the name maps hold are the spec's own definitions.
    void ExpectOwnNames(const nxKestrumAlgorithmSpec& spec) {
        for (const auto& definition : spec.GetScriptParameterDefinitions())
            EXPECT_EQ(spec.GetScriptParameterDefinition(definition->GetName()), definition.get());
        for (const auto& definition : spec.GetScriptOutputParameterDefinitions())
            EXPECT_EQ(spec.GetScriptOutputParameterDefinition(definition->GetName()), definition.get());
    }
} // namespace

TEST(nxKestrumAlgorithmSpecConvertToXML, WritesEveryFieldInOrder) {
    nxKestrumAlgorithmSpec spec;
    EXPECT_EQ(Written(spec), Document({}));

    spec.SetScriptSourceCode("run()");
    spec.SetSyntheticOrderType(nxSyntheticOrderTypeEnum::Iceberg);
    spec.SetHideParentOrder(true);
    for (const char* name : {"b", "a"})
        EXPECT_TRUE(spec.AddScriptParameterDefinition(Definition(name, Type::Price, false)));
    for (const char* name : {"o", "a"})
        EXPECT_TRUE(spec.AddScriptOutputParameterDefinition(Definition(name, Type::Price, false)));
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(spec.AddLimit(nxKestrumLimit("P", 1, 2, 3, 4, 5, "", nxNullInitalizer())));
    for (const char* module : {"m", "M", "m"})
        EXPECT_TRUE(spec.AddModule(module));
    EXPECT_EQ(Written(spec), Full);
}

TEST(nxKestrumAlgorithmSpecConvertFromXML, AddsToWhatItHoldsAndTheLaterOfTwoNamesIsFound) {
    nxKestrumAlgorithmSpec spec;
    Read(spec, Full);
    EXPECT_EQ(Written(spec), Full);
    Read(spec, "<x><Parameters>" + Parameter("a", "Parameter", "TEXT") + "<y/>" + Parameter("c") +
                   "</Parameters><Limits>" + Limit("Q") + "</Limits><Modules>" + Module("k") +
                   "</Modules><SyntheticOrderType>none</SyntheticOrderType><HideParentOrder/></x>");
    EXPECT_EQ(Written(spec), Document({Parameter("b") + Parameter("a") + Parameter("a", "Parameter", "TEXT") +
                                           Parameter("c"),
                                       Limit("P") + Limit("P") + Limit("Q"),
                                       Module("M") + Module("k") + Module("m"), Output("o") + Output("a")},
                                      "run()", "ICEBERG", "true"));
    EXPECT_EQ(spec.GetScriptParameterDefinition("a"), spec.GetScriptParameterDefinitions()[2].get());
}

TEST(nxKestrumAlgorithmSpecConvertFromXML, EndsAtAnItemThatCannotBeRead) {
    const std::string noOptional = "<Name>x</Name><ParameterType>PRICE</ParameterType>";
    const std::string badLimit = "<Limit><ProductID>x</ProductID><MaxShort>-1</MaxShort></Limit>";
    const Lists good = {Parameter("a"), Limit("P"), Module("m"), Output("o")};
    const struct {
        Lists lists;
        nxErrorEnum result;
        Lists kept;
    } cases[] = {
        {{Parameter("a") + "<Parameter>" + noOptional + "</Parameter>" + Parameter("c"), good.limits,
          good.modules, good.outputs},
         nxErrorEnum::ValueNotFound,
         {Parameter("a"), "", "", ""}},
        {{good.parameters, Limit("P") + badLimit + Limit("Q"), good.modules, good.outputs},
         nxErrorEnum::ValueNotParsed,
         {good.parameters, Limit("P"), "", ""}},
        {{good.parameters, good.limits, Module("m") + "<Module><name>x</name></Module>" + Module("z"),
          good.outputs},
         nxErrorEnum::ValueNotFound,
         {good.parameters, good.limits, Module("m"), ""}},
        {{good.parameters, good.limits, good.modules,
          Output("o") + Parameter("x", "OutputParameter", "none") + Output("p")},
         nxErrorEnum::ValueNotParsed,
         {good.parameters, good.limits, good.modules, Output("o")}},
    };
    for (const auto& [lists, result, kept] : cases) {
        nxKestrumAlgorithmSpec spec;
        EXPECT_EQ(spec.ConvertFromXML(Document(lists, "s", "KESTRUM_ALGORITHM", "true"), ""), result);
        EXPECT_EQ(Written(spec), Document(kept, "s"));
        ExpectOwnNames(spec);
    }
}

TEST(nxKestrumAlgorithmSpecConvertFromXML, ReturnsTheDocumentsOwnFailure) {
    nxKestrumAlgorithmSpec spec;
    Read(spec, Full);
    const nxCollectedLog log;
    EXPECT_EQ(spec.ConvertFromXML("<a", "context: "), nxErrorEnum::XMLParseFailed);
    EXPECT_EQ(log.Records().back().entry, "context: Failed to convert XML data to spread spec. Unable to "
                                          "create XML document from XML string");
    EXPECT_EQ(log.Records().back().level, nxLogLevelEnum::Error);
    EXPECT_EQ(log.Records().back().sourceFile, "xmlFramework/trunk/nxKestrumAlgorithmSpec");
    EXPECT_EQ(Written(spec), Full);
}

TEST(nxKestrumAlgorithmSpecScriptSourceCode, ComesBackByteForByte) {
    nxKestrumAlgorithmSpec spec;
    spec.SetScriptSourceCode("\tif a < b && \"c\" ]]>\r\n\n\r\u00E9\U0001F600 ");
    EXPECT_EQ(Written(spec),
              Document({}, "\tif a &lt; b &amp;&amp; \"c\" ]]&gt;&#xD;\n\n&#xD;\u00E9\U0001F600 "));
    std::string code;
    while (code.size() < 300'000)
        code += spec.GetScriptSourceCode();
    spec.SetScriptSourceCode(code);
    nxKestrumAlgorithmSpec read;
    Read(read, Written(spec));
    EXPECT_TRUE(read.GetScriptSourceCode() == code);
}

TEST(nxKestrumAlgorithmSpecAddDefinition, LogsAndRefusesANameThatIsTaken) {
    nxKestrumAlgorithmSpec spec;
    Read(spec, Full);
    const nxCollectedLog log;
    EXPECT_FALSE(spec.AddScriptParameterDefinition(Definition("a", Type::Text, true)));
    EXPECT_FALSE(spec.AddScriptOutputParameterDefinition(Definition("o", Type::Text, true)));
    EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Error),
              (Strings{"Paramter already exists with name: a", "Paramter already exists with name: o"}));
    EXPECT_EQ(log.Records()[0].sourceFile, "xmlFramework/trunk/nxKestrumAlgorithmSpec");
    EXPECT_EQ(Written(spec), Full);
    EXPECT_TRUE(spec.AddScriptParameterDefinition(Definition("$classroomNumber", Type::Text, true)));
}

TEST(nxKestrumAlgorithmSpecSetters, ReplaceTheListsByCopies) {
    nxKestrumAlgorithmSpec spec;
    nxKestrumAlgorithmSpec source;
    Read(source, Full);
    Read(spec, Document({Parameter("x"), Limit("x"), Module("x"), Output("x")}));
    {
        const nxCollectedLog log;
        Read(source, "<x><Parameters>" + Parameter("a") + "</Parameters></x>");
        spec.SetScriptParameterDefinitions(source.GetScriptParameterDefinitions()); // "a" twice
        EXPECT_EQ(log.Entries(), Strings{"Paramter already exists with name: a"});
    }
    spec.SetScriptOutputParameterDefinitions(source.GetScriptOutputParameterDefinitions());
    spec.SetScriptOutputParameterDefinitions(spec.GetScriptOutputParameterDefinitions());
    spec.SetLimits(source.GetLimits());
    spec.SetModules(source.GetModules());
    source = nxKestrumAlgorithmSpec();
    EXPECT_EQ(Written(spec), Document({Parameter("b") + Parameter("a"), Limit("P") + Limit("P"),
                                       Module("M") + Module("m"), Output("o") + Output("a")}));
    ExpectOwnNames(spec);
    EXPECT_FALSE(spec.GetScriptParameterDefinition("x") || spec.GetScriptOutputParameterDefinition("x"));

    spec.ClearScriptParameterDefinitions();
    spec.ClearScriptOutputParameterDefinitions();
    spec.ClearLimits();
    spec.ClearModules();
    EXPECT_EQ(Written(spec), Document({}));
    EXPECT_FALSE(spec.GetScriptParameterDefinition("a") || spec.GetScriptOutputParameterDefinition("a"));
}

TEST(nxKestrumAlgorithmSpecCopy, SharesNothingWithItsOriginal) {
    auto original = std::make_unique<nxKestrumAlgorithmSpec>();
    Read(*original, Full);
    const nxKestrumAlgorithmSpec constructed(*original);
    nxKestrumAlgorithmSpec assigned;
    Read(assigned, Document({Parameter("x"), Limit("x"), Module("x"), Output("x")}));
    assigned = *original;
    const nxKestrumAlgorithmSpec& same = assigned;
    assigned = same;
    const std::unique_ptr<nxKestrumAlgorithmSpec> copied(original->CopyInstance());
    original->GetScriptParameterDefinition("a")->SetOptional(true);
    original->GetLimits()[0]->SetProductID("changed");
    original.reset();
    for (const nxKestrumAlgorithmSpec& copy : {std::cref(constructed), std::cref(same), std::cref(*copied)}) {
        EXPECT_EQ(Written(*std::make_unique<nxKestrumAlgorithmSpec>(copy)), Full);
        ExpectOwnNames(copy);
    }
}

TEST(nxKestrumAlgorithmSpecSystemParameters, AreOptionalReadOnlyAndSharedByAllSpecs) {
    struct Spec : nxKestrumAlgorithmSpec {
        using nxKestrumAlgorithmSpec::_GetSystemParameterDefinition;
    };
    const struct {
        const char* name;
        unsigned int type;
    } cases[] = {
        {"$backTestingEnabled", 9608},       {"$backTestingStartTime", 9610},
        {"$backTestingEndTime", 9610},       {"$backTestingSpeedMultiplier", 9605},
        {"$classroomPlaybackEnabled", 9608}, {"$classroomNumber", 9602},
    };
    for (const auto& [name, type] : cases) {
        const Definition* const definition = Spec()._GetSystemParameterDefinition(name);
        ASSERT_TRUE(definition) << name;
        EXPECT_EQ(definition, Spec()._GetSystemParameterDefinition(name));
        EXPECT_EQ(definition->GetParameterType().GetEnumValue(), type) << name;
        EXPECT_TRUE(definition->GetOptional() && definition->GetIsSystemParameter() &&
                    definition->GetReadOnly() && definition->GetDescription().empty() &&
                    definition->GetValidValues().empty());
    }
    EXPECT_FALSE(Spec()._GetSystemParameterDefinition("$other"));
}

TEST(nxKestrumAlgorithmSpecRoundTrip, WritesTheSameTextAgain) {
    nxRandomText random(3);
    const auto addDefinitions = [&random](auto add) {
        for (unsigned int count = random.Below(4); count > 0; --count) {
            Definition definition(random.Key() + random.Text(), 9601 + random.Below(11), random.Flag());
            definition.SetReadOnly(random.Flag());
            definition.SetDescription(random.Text());
            definition.SetValidValues({random.Text(), random.Text()});
            add(definition);
        }
    };
    for (int round = 0; round < 200; ++round) {
        nxKestrumAlgorithmSpec spec;
        spec.SetScriptSourceCode(random.Text());
        addDefinitions([&spec](const auto& definition) { spec.AddScriptParameterDefinition(definition); });
        addDefinitions(
            [&spec](const auto& definition) { spec.AddScriptOutputParameterDefinition(definition); });
        spec.AddLimit(nxKestrumLimit(random.Key() + random.Text(), random.Below(9), 2, 3, 4, 5, "", 6));
        spec.AddModule(random.Key() + random.Text());
        const std::string xml = Written(spec);
        nxKestrumAlgorithmSpec read;
        Read(read, xml);
        ASSERT_EQ(Written(read), xml);
        ASSERT_TRUE(read.GetScriptSourceCode() == spec.GetScriptSourceCode());
    }
}
