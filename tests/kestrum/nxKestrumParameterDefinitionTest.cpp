// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameterDefinition.h"

#include "tests/support/nxPrint.h"
#include "xmlFramework/xml/nxXMLDocument.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {
    using Type = nxKestrumParameterTypeEnum;

    std::string Written(const nxKestrumParameterDefinition& definition) {
        nxXMLDocument document;
        document.CreateDocument("P");
        nxXMLElement element = document.GetRootElement();
        EXPECT_EQ(definition.ConvertToXML(element), nxErrorEnum::OK);
        std::string xml;
        EXPECT_EQ(document.SaveToString(xml), nxErrorEnum::OK);
        return xml;
    }

    nxErrorEnum Read(nxKestrumParameterDefinition& definition, const std::string& xml) {
        nxXMLDocument document;
        EXPECT_EQ(document.LoadFromString(xml), nxErrorEnum::OK) << xml;
        nxXMLElement element = document.GetRootElement();
        return definition.ConvertFromXML(element);
    }

    nxKestrumParameterDefinition Sample() {
        nxKestrumParameterDefinition definition("Side", Type::Text, false);
        definition.SetReadOnly(false);
        definition.SetDescription("Buy & sell");
        definition.SetValidValues({"Buy", "", "Sell", "Buy"});
        return definition;
    }

    constexpr char SampleXML[] =
        "<P><Name>Side</Name><ParameterType>TEXT</ParameterType><Optional>false</Optional>"
        "<SystemParameter>false</SystemParameter><ReadOnly>false</ReadOnly>"
        "<Description>Buy &amp; sell</Description>"
        "<ValidValues><ValidValue>Buy</ValidValue><ValidValue></ValidValue><ValidValue>Sell</ValidValue>"
        "<ValidValue>Buy</ValidValue></ValidValues></P>";
    constexpr char DefaultXML[] = "<P><Name></Name><ParameterType>UNDEFINED</ParameterType>"
                                  "<Optional>true</Optional><SystemParameter>false</SystemParameter>"
                                  "<ReadOnly>true</ReadOnly><Description></Description><ValidValues/></P>";
} // namespace

TEST(nxKestrumParameterDefinitionConvertToXML, WritesEveryFieldInOrder) {
    EXPECT_EQ(Written(Sample()), SampleXML);
    EXPECT_EQ(Written(nxKestrumParameterDefinition()), DefaultXML);
    EXPECT_TRUE(nxKestrumParameterDefinition("n", Type::Price, false).GetReadOnly());
}

TEST(nxKestrumParameterDefinitionConvertToXML, ReturnsTheFirstFailure) {
    nxXMLElement none;
    EXPECT_EQ(Sample().ConvertToXML(none), nxErrorEnum::ValueNotFound);

    nxKestrumParameterDefinition definition = Sample();
    definition.SetDescription("\x01");
    nxXMLDocument document;
    document.CreateDocument("P");
    nxXMLElement element = document.GetRootElement();
    EXPECT_EQ(definition.ConvertToXML(element), nxErrorEnum::XMLTextNotCarried);
    EXPECT_FALSE(element.FindChildElement("ValidValues").IsValid());
}

TEST(nxKestrumParameterDefinitionConvertFromXML, ReadsBackWhatWasWritten) {
    nxKestrumParameterDefinition definition;
    EXPECT_EQ(Read(definition, SampleXML), nxErrorEnum::OK);
    EXPECT_EQ(Written(definition), SampleXML);

    const std::unique_ptr<nxKestrumParameterDefinition> copy(definition.CopyInstance());
    EXPECT_EQ(Read(definition, SampleXML), nxErrorEnum::OK);
    EXPECT_EQ(definition.GetValidValues().size(), 8U) << "values are added to those held";
    EXPECT_EQ(Written(*copy), SampleXML);
}

TEST(nxKestrumParameterDefinitionConvertFromXML, EndsAtARequiredFieldThatIsMissingOrMalformed) {
    constexpr char Rest[] = "<ReadOnly>false</ReadOnly><ValidValues><ValidValue>v</ValidValue></ValidValues>";
    const struct {
        const char* children;
        nxErrorEnum result;
        const char* name;
        unsigned int type;
    } cases[] = {
        {"<ParameterType>PRICE</ParameterType><Optional>false</Optional>", nxErrorEnum::ValueNotFound, "", 0},
        {"<Name/><ParameterType>PRICE</ParameterType><Optional>false</Optional>", nxErrorEnum::ValueNotFound,
         "", 0},
        {"<Name>n</Name><Optional>false</Optional>", nxErrorEnum::ValueNotFound, "n", 0},
        {"<Name>n</Name><ParameterType>9601</ParameterType><Optional>false</Optional>",
         nxErrorEnum::ValueNotParsed, "n", 0},
        {"<Name>n</Name><ParameterType>PRICE</ParameterType>", nxErrorEnum::ValueNotFound, "n", Type::Price},
        {"<Name>n</Name><ParameterType>PRICE</ParameterType><Optional>no</Optional>",
         nxErrorEnum::ValueNotParsed, "n", Type::Price},
    };
    for (const auto& [children, result, name, type] : cases) {
        nxKestrumParameterDefinition definition;
        EXPECT_EQ(Read(definition, std::string("<P>") + children + Rest + "</P>"), result) << children;
        EXPECT_EQ(definition.GetName(), name);
        EXPECT_EQ(definition.GetParameterType().GetEnumValue(), type);
        EXPECT_TRUE(definition.GetOptional() && definition.GetReadOnly()) << children;
        EXPECT_TRUE(definition.GetValidValues().empty()) << children;
    }
}

TEST(nxKestrumParameterDefinitionConvertFromXML, KeepsOtherFieldsThatAreMissingOrMalformed) {
    const std::string required =
        "<Optional>0</Optional><ParameterType>PRICE</ParameterType><Name>n</Name><Name>later</Name>";
    for (const char* children :
         {"", "<ReadOnly>no</ReadOnly><SystemParameter/><Description><![CDATA[x]]></Description>"}) {
        nxKestrumParameterDefinition definition;
        definition.SetDescription("before");
        EXPECT_EQ(Read(definition, "<P>" + required + children + "</P>"), nxErrorEnum::OK);
        EXPECT_EQ(Written(definition),
                  "<P><Name>n</Name><ParameterType>PRICE</ParameterType><Optional>false</Optional>"
                  "<SystemParameter>false</SystemParameter><ReadOnly>true</ReadOnly>"
                  "<Description>before</Description><ValidValues/></P>");
    }
}

TEST(nxKestrumParameterDefinitionConvertFromXML, TakesValidValuesUpToAChildOfAnotherName) {
    const struct {
        const char* validValues;
        std::vector<std::string> values;
    } cases[] = {
        {"<ValidValues/>", {}},
        {"<ValidValues><!--c-->text<ValidValue>a</ValidValue><ValidValue/><ValidValue> </ValidValue>"
         "</ValidValues><ValidValues><ValidValue>b</ValidValue></ValidValues>",
         {"a", "", " "}},
        {"<ValidValues><ValidValue>a</ValidValue><x/><ValidValue>b</ValidValue></ValidValues>", {"a"}},
        {"<ValidValues><validValue>a</validValue><ValidValue>b</ValidValue></ValidValues>", {}},
    };
    for (const auto& [validValues, values] : cases) {
        nxKestrumParameterDefinition definition;
        EXPECT_EQ(Read(definition, std::string("<P><Name>n</Name><ParameterType>PRICE</ParameterType>"
                                               "<Optional>true</Optional>") +
                                       validValues + "</P>"),
                  nxErrorEnum::OK);
        EXPECT_EQ(definition.GetValidValues(), values) << validValues;
    }
}
