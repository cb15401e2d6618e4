// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"

#include "tests/support/nxRecordText.h"

#include <memory>
#include <string>
#include <vector>

namespace {
    using namespace nxRecordText;
    using Definition = nxKestrumParameterDefinition;
    using Type = nxKestrumParameterTypeEnum;
    using Strings = std::vector<std::string>;

    std::string Parameter(const std::string& name, const std::string& element = "Parameter",
                          const std::string& type = "PRICE") {
        return Element(element, Elements("Name=" + name + " ParameterType=" + type +
                                         " Optional=false SystemParameter=false ReadOnly=true Description=") +
                                    "<ValidValues/>");
    }
    std::string Output(const std::string& name) {
        return Parameter(name, "OutputParameter");
    }
    std::string Limit(const std::string& product) {
        return Element("Limit", Elements("ProductID=" + product +
                                         " MaxShort=1 MaxLong=2 MaxBuys=3 MaxSells=4 ClipLimit=5 "
                                         "Strategy=false Netting=false MarginRiskStrategy=false "
                                         "AccountID=4294967295"));
    }
    std::string Module(const std::string& name) {
        return Element("Module", Element("Name", name));
    }

    // The contents of the four lists.
    struct Lists {
        std::string parameters;
        std::string limits;
        std::string modules;
        std::string outputs;
    };
    std::string InList(const std::string& list, const std::string& items) {
        return items.empty() ? "<" + list + "/>" : Element(list, items);
    }
    std::string Document(const Lists& lists, const std::string& script = "",
                         const std::string& orderType = "KESTRUM_ALGORITHM",
                         const std::string& hide = "false") {
        return Element("KestrumAlgorithmSpec",
                       Element("ScriptSourceCode", script) + InList("Parameters", lists.parameters) +
                           Element("SyntheticOrderType", orderType) + InList("Limits", lists.limits) +
                           InList("Modules", lists.modules) + InList("OutputParameters", lists.outputs) +
                           Element("HideParentOrder", hide));
    }

    const Lists FullLists = {Parameter("b") + Parameter("a"), Limit("P") + Limit("P"),
                             Module("M") + Module("m"), Output("o") + Output("a")};
    const std::string Full = Document(FullLists, "run()", "ICEBERG", "true");
    const std::string Other = Document({Parameter("x"), Limit("x"), Module("x"), Output("x")});

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
    const std::string text = Parameter("a", "Parameter", "TEXT");
    Read(spec, Element("x", Element("Parameters", text + "<y/>" + Parameter("c")) +
                                Element("Limits", Limit("Q")) + Element("Modules", Module("k")) +
                                Elements("SyntheticOrderType=none HideParentOrder=")));
    EXPECT_EQ(Written(spec),
              Document({FullLists.parameters + text + Parameter("c"), FullLists.limits + Limit("Q"),
                        Module("M") + Module("k") + Module("m"), FullLists.outputs},
                       "run()", "ICEBERG", "true"));
    EXPECT_EQ(spec.GetScriptParameterDefinition("a"), spec.GetScriptParameterDefinitions()[2].get());
}

TEST(nxKestrumAlgorithmSpecConvertFromXML, EndsAtAnItemThatCannotBeRead) {
    const std::string noOptional = Element("Parameter", Elements("Name=x ParameterType=PRICE"));
    const std::string badLimit = Element("Limit", Elements("ProductID=x MaxShort=-1"));
    const std::string noName = Element("Module", Elements("name=x"));
    const std::string badType = Parameter("x", "OutputParameter", "none");
    const Lists good = {Parameter("a"), Limit("P"), Module("m"), Output("o")};
    const struct {
        Lists lists;
        nxErrorEnum result;
        const char* logged;
        Lists kept;
    } cases[] = {
        {{Parameter("a") + noOptional + Parameter("c"), good.limits, good.modules, good.outputs},
         nxErrorEnum::ValueNotFound,
         "Failed to read parameter definition. Optional: Value not found",
         {good.parameters, "", "", ""}},
        {{good.parameters, Limit("P") + badLimit + Limit("Q"), good.modules, good.outputs},
         nxErrorEnum::ValueNotParsed,
         "Failed to read limit. MaxShort: Value not parsed",
         {good.parameters, good.limits, "", ""}},
        {{good.parameters, good.limits, Module("m") + noName + Module("z"), good.outputs},
         nxErrorEnum::ValueNotFound,
         "Failed to read module. Name: Value not found",
         {good.parameters, good.limits, good.modules, ""}},
        {{good.parameters, good.limits, good.modules, Output("o") + badType + Output("p")},
         nxErrorEnum::ValueNotParsed,
         "Failed to read parameter definition. ParameterType: Value not parsed",
         good},
    };
    for (const auto& [lists, result, logged, kept] : cases) {
        const nxCollectedLog log;
        nxKestrumAlgorithmSpec spec;
        EXPECT_EQ(spec.ConvertFromXML(Document(lists, "s", "KESTRUM_ALGORITHM", "true"), ""), result);
        EXPECT_EQ(log.EntriesAt(nxLogLevelEnum::Error), std::vector<std::string>{logged});
        EXPECT_EQ(Written(spec), Document(kept, "s"));
        ExpectOwnNames(spec);
    }
}

TEST(nxKestrumAlgorithmSpecScriptSourceCode, ComesBackByteForByte) {
    std::string code;
    while (code.size() < 300'000)
        code += "\tif a < b && \"c\" ]]>\r\n\n\r\u00E9\U0001F600 ";
    nxKestrumAlgorithmSpec spec, read;
    spec.SetScriptSourceCode(code);
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
    nxKestrumAlgorithmSpec spec, source;
    Read(source, Full);
    Read(spec, Other);
    {
        const nxCollectedLog log;
        Read(source, Element("x", Element("Parameters", Parameter("a"))));
        spec.SetScriptParameterDefinitions(source.GetScriptParameterDefinitions()); // "a" twice
        EXPECT_EQ(log.Entries(), Strings{"Paramter already exists with name: a"});
    }
    spec.SetScriptOutputParameterDefinitions(source.GetScriptOutputParameterDefinitions());
    spec.SetScriptOutputParameterDefinitions(spec.GetScriptOutputParameterDefinitions());
    spec.SetLimits(source.GetLimits());
    spec.SetModules(source.GetModules());
    source = nxKestrumAlgorithmSpec();
    EXPECT_EQ(Written(spec), Document(FullLists));
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
    nxKestrumAlgorithmSpec assigned;
    Read(assigned, Other);
    assigned = *original;
    const nxKestrumAlgorithmSpec& same = assigned;
    assigned = same;
    const std::unique_ptr<nxKestrumAlgorithmSpec> copied(original->CopyInstance());
    original->GetScriptParameterDefinition("a")->SetOptional(true);
    original->GetLimits()[0]->SetProductID("changed");
    original.reset();
    for (nxKestrumAlgorithmSpec* copy : {&assigned, copied.get()}) {
        EXPECT_EQ(Written(*copy), Full);
        ExpectOwnNames(*copy);
    }
}

TEST(nxKestrumAlgorithmSpecSystemParameters, AreOptionalReadOnlyAndSharedByAllSpecs) {
    struct Spec : nxKestrumAlgorithmSpec {
        using nxKestrumAlgorithmSpec::_GetSystemParameterDefinition;
    };
    const Definition* const definition = Spec()._GetSystemParameterDefinition("$classroomNumber");
    ASSERT_TRUE(definition);
    EXPECT_EQ(definition, Spec()._GetSystemParameterDefinition("$classroomNumber"));
    EXPECT_EQ(WrittenItem(*definition),
              Elements("Name=$classroomNumber ParameterType=UNSIGNED Optional=true SystemParameter=true "
                       "ReadOnly=true Description=") +
                  "<ValidValues/>");
    EXPECT_FALSE(Spec()._GetSystemParameterDefinition("$other"));
}
