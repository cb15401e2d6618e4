// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameterDefinition.h"

#include "tests/support/nxRecordText.h"

#include <memory>
#include <string>

namespace {
    using namespace nxRecordText;
    using Type = nxKestrumParameterTypeEnum;

    nxKestrumParameterDefinition Sample() {
        nxKestrumParameterDefinition definition("Side", Type::Text, false);
        definition.SetReadOnly(false);
        definition.SetDescription("any");
        definition.SetValidValues({"Buy", "", "Sell", "Buy"});
        return definition;
    }
    const std::string SampleValues = Elements("ValidValue=Buy ValidValue= ValidValue=Sell ValidValue=Buy");
    const std::string SampleFields = Elements("Name=Side ParameterType=TEXT Optional=false "
                                              "SystemParameter=false ReadOnly=false Description=any");
} // namespace

TEST(nxKestrumParameterDefinitionConvertToXML, WritesEveryFieldInOrder) {
    EXPECT_EQ(WrittenItem(Sample()), SampleFields + Element("ValidValues", SampleValues));
    EXPECT_EQ(WrittenItem(nxKestrumParameterDefinition()),
              Elements("Name= ParameterType=UNDEFINED Optional=true SystemParameter=false ReadOnly=true "
                       "Description=") +
                  "<ValidValues/>");
    EXPECT_TRUE(nxKestrumParameterDefinition("n", Type::Price, false).GetReadOnly());
}

TEST(nxKestrumParameterDefinitionConvertToXML, ReturnsTheFirstFailure) {
    nxXMLElement none;
    EXPECT_EQ(Sample().ConvertToXML(none), nxErrorEnum::ValueNotFound);

    nxKestrumParameterDefinition definition = Sample();
    definition.SetDescription("\x01");
    nxXMLDocument document;
    EXPECT_EQ(document.CreateDocument("P"), nxErrorEnum::OK);
    nxXMLElement element = document.GetRootElement();
    EXPECT_EQ(definition.ConvertToXML(element), nxErrorEnum::XMLTextNotCarried);
    EXPECT_FALSE(element.FindChildElement("ValidValues").IsValid());

    definition = Sample();
    definition.SetValidValues({"a", "\x01", "b"});
    nxXMLDocument other;
    EXPECT_EQ(other.CreateDocument("P"), nxErrorEnum::OK);
    element = other.GetRootElement();
    EXPECT_EQ(definition.ConvertToXML(element), nxErrorEnum::XMLTextNotCarried);
    std::vector<std::string> values;
    nxXMLElement list = element.FindChildElement("ValidValues");
    for (nxXMLElement value = list.GetFirstChildElement(); value.IsValid();
         value = list.GetNextChildElement())
        values.push_back(value.GetTextValue());
    EXPECT_EQ(values, std::vector<std::string>{"a"});
}

TEST(nxKestrumParameterDefinitionConvertFromXML, AddsValidValuesToThoseHeld) {
    nxKestrumParameterDefinition definition = Sample();
    const std::unique_ptr<nxKestrumParameterDefinition> copy(definition.CopyInstance());
    EXPECT_EQ(ReadItem(definition, SampleFields + Element("ValidValues", SampleValues)), nxErrorEnum::OK);
    EXPECT_EQ(WrittenItem(definition), SampleFields + Element("ValidValues", SampleValues + SampleValues));
    EXPECT_EQ(WrittenItem(*copy), WrittenItem(Sample()));
}

TEST(nxKestrumParameterDefinitionConvertFromXML, EndsAtARequiredFieldThatIsMissingOrMalformed) {
    const std::string rest =
        Elements("ReadOnly=false Description=d") + Element("ValidValues", Elements("ValidValue=v"));
    const struct {
        const char* elements;
        nxErrorEnum result;
        const char* read;
    } cases[] = {
        {"ParameterType=PRICE Optional=false", nxErrorEnum::ValueNotFound, "Name= ParameterType=UNDEFINED"},
        {"Name= ParameterType=PRICE Optional=false", nxErrorEnum::ValueNotFound,
         "Name= ParameterType=UNDEFINED"},
        {"Name=n Optional=false", nxErrorEnum::ValueNotFound, "Name=n ParameterType=UNDEFINED"},
        {"Name=n ParameterType=9601 Optional=false", nxErrorEnum::ValueNotParsed,
         "Name=n ParameterType=UNDEFINED"},
        {"Name=n ParameterType=PRICE", nxErrorEnum::ValueNotFound, "Name=n ParameterType=PRICE"},
        {"Name=n ParameterType=PRICE Optional=no", nxErrorEnum::ValueNotParsed, "Name=n ParameterType=PRICE"},
    };
    for (const auto& [elements, result, read] : cases) {
        nxKestrumParameterDefinition definition;
        EXPECT_EQ(ReadItem(definition, Elements(elements) + rest), result) << elements;
        EXPECT_EQ(WrittenItem(definition),
                  Elements(read) +
                      Elements("Optional=true SystemParameter=false ReadOnly=true Description=") +
                      "<ValidValues/>");
    }
}

TEST(nxKestrumParameterDefinitionConvertFromXML, TakesTheFirstFieldAndValidValuesUpToAnotherChild) {
    const std::string required = Elements("Optional=0 ParameterType=PRICE Name=n Name=later");
    const struct {
        std::string children;
        std::string values;
    } cases[] = {
        {"<ReadOnly>no</ReadOnly><SystemParameter/><Description><![CDATA[x]]></Description>", ""},
        {"<ValidValues><!--c-->text<ValidValue>a</ValidValue><ValidValue/><ValidValue> </ValidValue>"
         "</ValidValues><ValidValues><ValidValue>b</ValidValue></ValidValues>",
         "<ValidValue>a</ValidValue><ValidValue></ValidValue><ValidValue> </ValidValue>"},
        {Element("ValidValues", Elements("ValidValue=a x= ValidValue=b")), Elements("ValidValue=a")},
        {Element("ValidValues", Elements("validValue=a ValidValue=b")), ""},
    };
    for (const auto& [children, values] : cases) {
        nxKestrumParameterDefinition definition;
        definition.SetDescription("before");
        EXPECT_EQ(ReadItem(definition, required + children), nxErrorEnum::OK);
        EXPECT_EQ(WrittenItem(definition),
                  Elements("Name=n ParameterType=PRICE Optional=false SystemParameter=false ReadOnly=true "
                           "Description=before") +
                      (values.empty() ? "<ValidValues/>" : Element("ValidValues", values)));
    }
}
