// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Holds the schemas to what the records read: xmllint (of libxml2-utils) judges by the schema, and the report
// of a reading by the record.

#include "tests/support/nxCollectedLog.h"
#include "tests/support/nxFormatExamples.h"
#include "tests/support/nxToolProcess.h"
#include "xmlFramework/xml/nxXMLDescription.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {
    using Kind = nxXMLFieldDescription::Kind;
    using ItemNames = nxXMLFieldDescription::ItemNames;
    using Type = nxXMLValueDescription::Type;
    using Fields = std::vector<nxXMLFieldDescription>;

    // What is changed in a sample: the value, the name or the field at a place, counted from 0 in the
    // document's order.
    struct Change {
        enum class What { Nothing, Value, Name, LeftOut };

        What what = What::Nothing;
        int place = 0;
        std::string text = {}; // the value
    };

    // A document with every field of a record once, less what is changed.
    class Sample {
    public:
        explicit Sample(const nxXMLDescription& description, Change change = {})
            : _change(std::move(change)) {
            Element(description.root, description.fields);
        }

        const std::string& GetText() const { return _text; }
        int GetValueCount() const { return _values; }
        int GetNameCount() const { return _names; }
        int GetFieldCount() const { return _fields; }
        bool IsRequiredLeftOut() const { return _isRequiredLeftOut; }
        // Whether the changed name is in an item whose own name a schema cannot say.
        bool IsBeyondSchema() const { return _isBeyondSchema; }

    private:
        void Element(const std::string& name, Fields fields) {
            const std::string written = Name(name);
            std::erase_if(fields, [this](const auto& field) { return IsLeftOut(field); });
            _text += "<" + written;
            for (const auto& field : fields) {
                if (field.kind == Kind::Attribute)
                    _text.append(" ").append(Name(field.name)).append("='" + Value(field) + "'");
            }
            _text += ">";
            for (const auto& field : fields)
                Child(field);
            _text += "</" + written + ">";
        }
        void Child(const nxXMLFieldDescription& field) {
            if (field.kind == Kind::Element)
                Text(field.name, field);
            else if (field.kind == Kind::Items)
                Item(field);
            else if (field.kind == Kind::List) {
                const std::string written = Name(field.name);
                _text += "<" + written + ">";
                Item(field);
                _text += "</" + written + ">";
            }
        }
        void Item(const nxXMLFieldDescription& list) {
            const bool before = std::exchange(_isInNamedItem, list.itemNames == ItemNames::WithKey ||
                                                                  list.itemNames == ItemNames::WithNumber);
            if (list.itemFields.empty())
                Text(list.itemName, list);
            else
                Element(list.itemName + (_isInNamedItem ? "0" : ""), list.itemFields);
            _isInNamedItem = before;
        }
        void Text(const std::string& name, const nxXMLFieldDescription& field) {
            const std::string written = Name(name);
            _text.append("<" + written + ">").append(Value(field)).append("</" + written + ">");
        }

        bool IsLeftOut(const nxXMLFieldDescription& field) {
            const bool isLeftOut = _change.what == Change::What::LeftOut && _fields == _change.place;
            ++_fields;
            _isRequiredLeftOut |= isLeftOut && field.isRequired;
            return isLeftOut;
        }
        std::string Name(const std::string& name) {
            if (_change.what != Change::What::Name || _names++ != _change.place)
                return name;
            _isBeyondSchema = _isInNamedItem;
            return "x" + name;
        }
        std::string Value(const nxXMLFieldDescription& field) {
            const bool isChanged = _change.what == Change::What::Value && _values == _change.place;
            ++_values;
            return isChanged ? _change.text : Plain(field.value);
        }
        static std::string Plain(const nxXMLValueDescription& value) {
            if (value.type == Type::Enumeration)
                return value.texts.back();
            if (value.type == Type::Time)
                return "08:30:00";
            return value.type == Type::Flag || value.type == Type::Number ? "1" : "0";
        }

        Change _change;
        std::string _text;
        int _values = 0;
        int _names = 0;
        int _fields = 0;
        bool _isInNamedItem = false;
        bool _isBeyondSchema = false;
        bool _isRequiredLeftOut = false;
    };

    Fields Reversed(Fields fields) {
        std::ranges::reverse(fields);
        for (auto& field : fields)
            field.itemFields = Reversed(field.itemFields);
        return fields;
    }

    std::set<std::string> ExampleRecords() {
        std::set<std::string> records;
        for (const std::string& page : nxFormatExamples::Pages()) {
            for (const auto& example : nxFormatExamples::ExamplesOf(page))
                records.insert(example.record);
        }
        return records;
    }

    // What a record makes of a document: the codes of what it does not take.
    std::set<std::string> Findings(const std::string& record, const std::string& xml) {
        return nxFormatExamples::WithRecord(record, [&xml](auto& object) {
            nxXMLReport report;
            (void)report.Read(object, xml, "");
            std::set<std::string> codes;
            for (const nxXMLFinding& finding : report.GetFindings())
                codes.insert(finding.GetCode());
            return codes;
        });
    }
} // namespace

// Of each record, known by its name in the examples of the format pages.
class nxSchema : public nxTool, public testing::WithParamInterface<std::string> {
protected:
    void SetUp() override {
        nxTool::SetUp();
        if (_RunProgram({"xmllint", "--version"}).status != 0)
            GTEST_SKIP() << "xmllint is not installed";
        _description = nxFormatExamples::WithRecord(
            GetParam(), [](auto& record) { return record.GetDocumentDescription(); });
        _RunQuietly({"schema", GetParam(), "-o", "schema.xsd"});
    }

    // Of each document, whether the schema takes it.
    std::vector<bool> _Judge(const std::vector<std::string>& documents) const {
        Arguments arguments{"xmllint", "--noout", "--schema", "schema.xsd"};
        for (const std::string& document : documents) {
            arguments.push_back(std::to_string(arguments.size()) + ".xml");
            _Write(arguments.back(), document);
        }
        const Outcome outcome = _RunProgram(arguments);
        std::vector<bool> verdicts;
        for (auto name = arguments.begin() + 4; name != arguments.end(); ++name) {
            const bool isValid = outcome.err.find("\n" + *name + " validates\n") != std::string::npos ||
                                 outcome.err.starts_with(*name + " validates\n");
            EXPECT_TRUE(isValid || outcome.err.find(*name + " fails to validate\n") != std::string::npos)
                << outcome.err;
            verdicts.push_back(isValid);
        }
        return verdicts;
    }

    nxXMLDescription _description;

private:
    nxCollectedLog _log; // which says what the findings say
};

TEST_P(nxSchema, TakesWhatTheFormatPagesShowAndTheLibraryWrites) {
    const nxXMLDescription reversed{_description.root, Reversed(_description.fields)};
    std::vector<std::string> documents{Sample(_description).GetText(), Sample(reversed).GetText()};
    for (const std::string& page : nxFormatExamples::Pages()) {
        for (const auto& example : nxFormatExamples::ExamplesOf(page)) {
            std::string written;
            if (example.record != GetParam())
                continue;
            ASSERT_TRUE(nxFormatExamples::ReadAndWrite(example.record, example.xml, written).IsOK());
            documents.push_back(written);
            if (Findings(example.record, example.xml).count("no-value") == 0)
                documents.push_back(example.xml);
        }
    }
    const std::vector<bool> verdicts = _Judge(documents);
    for (std::size_t i = 0; i < documents.size(); ++i)
        EXPECT_TRUE(verdicts[i]) << documents[i];
}

TEST_P(nxSchema, RefusesEveryNameThatTheRecordDoesNotKnow) {
    std::vector<std::string> documents;
    std::vector<bool> expected;
    const int count = Sample(_description, {Change::What::Name, -1}).GetNameCount();
    for (int place = 0; place < count; ++place) {
        const Sample sample(_description, {Change::What::Name, place});
        documents.push_back(sample.GetText());
        expected.push_back(sample.IsBeyondSchema());
    }
    EXPECT_EQ(_Judge(documents), expected) << testing::PrintToString(documents);
}

TEST_P(nxSchema, RefusesADocumentWithoutWhatIsRequired) {
    std::vector<std::string> documents;
    std::vector<bool> expected;
    for (int place = 0; place < Sample(_description).GetFieldCount(); ++place) {
        const Sample sample(_description, {Change::What::LeftOut, place});
        documents.push_back(sample.GetText());
        expected.push_back(!sample.IsRequiredLeftOut());
    }
    EXPECT_EQ(_Judge(documents), expected) << testing::PrintToString(documents);
}

TEST_P(nxSchema, TakesTheValuesThatTheRecordTakes) {
    const char* const texts[] = {"0",
                                 "1",
                                 "007",
                                 "-1",
                                 "-0",
                                 "+1",
                                 "1.50",
                                 "-1.5",
                                 "1.",
                                 ".5",
                                 "1,5",
                                 "1e3",
                                 "0x1",
                                 "2147483647",
                                 "2147483648",
                                 "-2147483648",
                                 "-2147483649",
                                 "4294967295",
                                 "4294967296",
                                 "18446744073709551615",
                                 "18446744073709551616",
                                 "true",
                                 "FaLSe",
                                 "yes",
                                 "2",
                                 "NULL",
                                 "NO_CHANGE",
                                 "null",
                                 "UNDEFINED",
                                 "Undefined",
                                 "No change",
                                 "Limit",
                                 "LIMIT",
                                 "~bad~",
                                 "23:59:59.123456789",
                                 "08:30:00.1234567890",
                                 "08:30:00.",
                                 "24:00:00",
                                 "08:60:00",
                                 "08:30",
                                 "8:30:00"};
    std::vector<std::string> documents;
    std::vector<bool> expected;
    for (int place = 0; place < Sample(_description).GetValueCount(); ++place) {
        for (const char* const text : texts) {
            documents.push_back(Sample(_description, {Change::What::Value, place, text}).GetText());
            expected.push_back(!Findings(GetParam(), documents.back()).contains("no-value"));
        }
    }
    const std::vector<bool> verdicts = _Judge(documents);
    for (std::size_t i = 0; i < documents.size(); ++i)
        EXPECT_EQ(verdicts[i], expected[i]) << documents[i];
}

INSTANTIATE_TEST_SUITE_P(Records, nxSchema, testing::ValuesIn(ExampleRecords()),
                         [](const auto& record) { return record.param; });
