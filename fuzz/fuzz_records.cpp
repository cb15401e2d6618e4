// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// A record's name and a text for it to read. All ways of reading agree about it; what a record read from any
// text, it writes to a text that reads and writes back the same; and what a report says nothing of is
// written.

#include "core/nxStringHelper.h"
#include "fuzz/nxFuzz.h"
#include "tests/support/nxRecordClasses.h"
#include "xmlFramework/xml/nxXMLDocument.h"
#include "xmlFramework/xml/nxXMLReport.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {
    using nxFuzz::Require;
    using Fields = std::vector<nxXMLFieldDescription>;
    using Findings = std::vector<nxXMLFinding>;
    using Names = std::set<std::string>;
    using Value = std::pair<std::string, std::string>; // name and text

    bool IsFailureOfReading(const nxErrorEnum& result) {
        constexpr unsigned int Failures[] = {nxErrorEnum::InvalidData, nxErrorEnum::ValueNotFound,
                                             nxErrorEnum::ValueNotParsed, nxErrorEnum::XMLParseFailed};
        return std::ranges::find(Failures, result.GetEnumValue()) != std::end(Failures);
    }

    bool IsDocument(const std::string& xml) {
        return nxXMLDocument().LoadFromString(xml).IsOK();
    }

    bool HasLoss(const Findings& findings) {
        return std::ranges::any_of(findings, &nxXMLFinding::IsLoss);
    }

    // An item without a key is written as an element that ends the list when it is read.
    template <class Record>
    bool HasAllKeys(const Record& record) {
        if constexpr (std::is_same_v<Record, nxMICDefinitionList> ||
                      std::is_same_v<Record, nxExchangeDefinitionList>)
            return record.IsValid().IsOK();
        else
            return true;
    }

    // An empty item that leads a list of texts leaves no trace when it is written, and neither do a broker's
    // names of before and which of two brokers was the last to take a name.
    template <class Record>
    bool ComesBackEqual(const Record& record, bool isLossless) {
        if constexpr (std::is_same_v<Record, nxBrokerMap>)
            return isLossless;
        if constexpr (std::is_same_v<Record, nxExchangeDefinitionList>) {
            const auto leadsEmpty = [](const auto& items) { return !items.empty() && items.front().empty(); };
            return std::ranges::none_of(record.GetExchangeDefinitions(), [&](const auto& item) {
                return leadsEmpty(item.second->GetMICs()) || leadsEmpty(item.second->GetPriceStreams());
            });
        }
        return true;
    }

    // Plain documents go past the parser, unless they declare an encoding by another name.
    std::string ForParser(const std::string& xml) {
        return xml.starts_with('<') && !xml.starts_with("<?xml")
                   ? R"(<?xml version="1.0" encoding="UTF8"?>)" + xml
                   : xml;
    }

    // The names under which texts are read and written as they are, and those of other values.
    void CollectNames(const Fields& fields, Names& texts, Names& others) {
        for (const nxXMLFieldDescription& field : fields) {
            const bool isList = !field.itemName.empty();
            const bool isText = field.value.type == nxXMLValueDescription::Type::Text && !field.isReadOnly &&
                                field.itemNames == nxXMLFieldDescription::ItemNames::Fixed &&
                                field.itemFields.empty();
            (isText ? texts : others).insert(isList ? field.itemName : field.name);
            CollectNames(field.itemFields, texts, others);
        }
    }

    template <class Record>
    const Names& TextNames() {
        static const Names names = [] {
            Names texts;
            Names others;
            CollectNames(Record::GetDocumentDescription().fields, texts, others);
            std::erase_if(texts, [&others](const std::string& name) { return others.contains(name); });
            return texts;
        }();
        return names;
    }

    // A comment hides the text behind it. Nothing is done where one may be none.
    std::string WithoutComments(std::string xml) {
        if (xml.find("<![") != std::string::npos || xml.find("<?") != std::string::npos)
            return xml;
        for (std::size_t at = xml.find("<!--"); at != std::string::npos; at = xml.find("<!--", at))
            xml.erase(at, xml.find("-->", at) + 3 - at);
        return xml;
    }

    void AddText(const std::string& name, const std::string& text, std::vector<Value>& values) {
        if (const std::string_view trimmed = nxStringHelper::Trimmed(text); !trimmed.empty())
            values.emplace_back(name, trimmed);
    }

    // The texts of these names in a document without a loss, which is no deeper than its record.
    void CollectTexts(nxXMLElement element, const Names& names, std::vector<Value>& values) {
        for (const std::string& name : names) {
            std::string text;
            if (element.HasName(name) && element.GetText(text).IsOK())
                AddText(name, text, values);
            if (element.GetAttribute(name, text).IsOK())
                AddText(name, text, values);
        }
        for (nxXMLElement child = element.GetFirstChildElement(); child.IsValid();
             child = element.GetNextChildElement())
            CollectTexts(child, names, values);
    }

    template <class Record>
    std::vector<Value> TextsOf(const std::string& xml) {
        nxXMLDocument document;
        Require(document.LoadFromString(WithoutComments(xml)).IsOK());
        std::vector<Value> values;
        CollectTexts(document.GetRootElement(), TextNames<Record>(), values);
        std::ranges::sort(values);
        return values;
    }

    template <class Record>
    void CheckWriting(Record& record, const std::string& xml, bool isLossless) {
        // A key may be no XML name, which is the one thing that is read but not written.
        std::string written = "untouched";
        if (const nxErrorEnum result = record.ConvertToXML(written, ""); !result.IsOK()) {
            Require(result == nxErrorEnum(nxErrorEnum::XMLTextNotCarried) && written == "untouched");
            return;
        }
        if (isLossless)
            Require(std::ranges::includes(TextsOf<Record>(written), TextsOf<Record>(xml)));

        Record again;
        nxXMLReport report;
        Require(report.Read(again, written, "").IsOK());
        if (ComesBackEqual(record, isLossless))
            Require(again == record && !HasLoss(report.GetFindings()));
        std::string rewritten;
        Require(again.ConvertToXML(rewritten, "").IsOK() && rewritten == written);

        const std::unique_ptr<Record> copy(new Record(record));
        Require(*copy == record && copy->ConvertToXML(rewritten, "").IsOK() && rewritten == written);
    }

    template <class Record>
    void Check(const std::string& xml) {
        Record record;
        const nxErrorEnum read = record.ConvertFromXML(xml, "");
        Require(read.IsOK() || IsFailureOfReading(read));

        Record reported;
        nxXMLReport report;
        Require(report.Read(reported, xml, "") == read && reported == record);
        for (const nxXMLFinding& finding : report.GetFindings())
            Require(!finding.GetMessage().empty() && finding.GetCode() != nullptr);
        const bool isDocument = IsDocument(xml);
        Require(isDocument == std::ranges::none_of(report.GetFindings(), [](const nxXMLFinding& finding) {
                    return finding.kind == nxXMLFinding::Kind::NotWellFormed;
                }));
        Require(isDocument || !read.IsOK());

        Record parsed;
        Require(parsed.ConvertFromXML(ForParser(xml), "") == read && parsed == record);

        if (read.IsOK() && HasAllKeys(record))
            CheckWriting(record, xml, !HasLoss(report.GetFindings()));
    }

    struct Kind {
        std::string name;
        void (*check)(const std::string& xml);
    };

    std::vector<Kind> MakeKinds() {
        std::vector<Kind> kinds;
        nxRecordClasses::All::ForEach([&kinds]<class Record>(std::type_identity<Record>) {
            kinds.push_back({nxRecordClasses::NameOf<Record>(), Check<Record>});
        });
        return kinds;
    }
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<Kind> kinds = MakeKinds();
    const std::string input(reinterpret_cast<const char*>(data), size);
    for (const Kind& kind : kinds) {
        if (input.starts_with(kind.name))
            kind.check(input.substr(kind.name.size()));
    }
    return 0;
}
