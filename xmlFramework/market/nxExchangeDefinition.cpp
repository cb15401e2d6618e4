// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxExchangeDefinition.h"

#include "core/nxStringParser.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <algorithm>

namespace {
    constexpr char ListSeparator = ',';

    // A comma goes before an item only where there is text before it, so an empty first item leaves no trace:
    // files have always been written so.
    void AppendJoined(std::string& text, const std::vector<std::string>& items) {
        const std::size_t start = text.size();
        for (const std::string& item : items) {
            if (text.size() != start)
                text += ListSeparator;
            text += item;
        }
    }

    // A list of texts as one text.
    template <class List>
    class CommaSeparated {
    public:
        explicit CommaSeparated(List& list) : _list(list) {}

        void AppendText(std::string& text) const { AppendJoined(text, _list); }
        // An element without text empties the list, too.
        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& /*context*/) {
            _list.clear();
            _list.reserve(static_cast<std::size_t>(std::ranges::count(node.GetText(), ListSeparator)) + 1);
            nxStringParser::ForEachSubstring(node.GetText(), ListSeparator, [this](std::string_view item) {
                _list.emplace_back(nxStringHelper::Trimmed(item));
            });
            return nxErrorEnum::OK;
        }
        static nxXMLValueDescription DescribeValue() {
            return {nxXMLValueDescription::Type::Texts, {}, {}, {}};
        }

    private:
        List& _list;
    };
} // namespace

struct nxExchangeDefinition::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("Mnemonic", record._mnemonic, nxXMLFields::Key());
        field("Description", record._description);
        field("IsExchange", record._isExchange);
        field("IsPriceSource", record._isPriceSource);
        field("IsOrderDestination", record._isOrderDestination);
        field("MICs", CommaSeparated(record._mics));
        field("PriceStreams", CommaSeparated(record._priceStreams));
    }
};

nxExchangeDefinition::~nxExchangeDefinition() = default;

nxErrorEnum nxExchangeDefinition::IsValid() const {
    return _mnemonic.empty() ? nxErrorEnum::InvalidData : nxErrorEnum::OK;
}

nxErrorEnum nxExchangeDefinition::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    return nxXMLFields::ReadInDocumentOrder(node, context,
                                            [this](auto& field) { Fields::Visit(*this, field); });
}

void nxExchangeDefinition::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxExchangeDefinition::_Describe() {
    const nxExchangeDefinition none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

nxErrorEnum nxExchangeDefinition::ConvertFromXML(nxXMLElement& element, const std::string& logPrefix) {
    return nxXMLConversion::ReadElement(*this, element, logPrefix);
}

nxErrorEnum nxExchangeDefinition::ConvertToXML(nxXMLElement& element,
                                               const std::string& /*logPrefix*/) const {
    nxXMLConversion::WriteElement(*this, element); // whose document remembers what it could not carry
    return nxErrorEnum::OK;
}

std::string nxExchangeDefinition::GetAsLogString() const {
    const auto flag = [](bool value) { return value ? "true, " : "false, "; };
    std::string text = "Mnemonic: " + _mnemonic + ", Description: " + _description + ", ";
    text.append("Is exchange: ").append(flag(_isExchange));
    text.append("Is price source: ").append(flag(_isPriceSource));
    text.append("Is order destination: ").append(flag(_isOrderDestination));
    // Nothing has ever stood between the two lists; log readers expect it so.
    AppendJoined(text += "MICs: ", _mics);
    AppendJoined(text += "Price streams: ", _priceStreams);
    return text;
}
