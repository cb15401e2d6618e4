// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursScheme.h"

#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLLists.h"

#include <algorithm>
#include <functional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxTradingHoursScheme";
} // namespace

struct nxTradingHoursScheme::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("SchemeName", record._schemeName, Key());
        field("Periods", ListOf<Leading>("Period", record._periods));
    }
};

nxTradingHoursScheme::~nxTradingHoursScheme() = default;

nxErrorEnum nxTradingHoursScheme::IsValid() const {
    return _schemeName.empty() ? nxErrorEnum::InvalidData : nxErrorEnum::OK;
}

bool nxTradingHoursScheme::IsEqual(const nxTradingHoursScheme& other) const {
    return _schemeName == other._schemeName &&
           std::ranges::equal(_periods, other._periods, std::mem_fn(&nxTradingHoursPeriod::IsEqual));
}

nxErrorEnum nxTradingHoursScheme::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    const nxErrorEnum result = nxXMLFields::ReadNext(node, context, [this](auto& field) {
                                   Fields::Visit(*this, field);
                               }).GetResult();
    if (!result.IsOK())
        nxWriteLog({nxLogLevels::Error, SourceFile}, context.logPrefix,
                   "Failed to convert XML data to trading hours period. "
                   "Failed to create trading hours scheme from XML");
    return result;
}

void nxTradingHoursScheme::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxTradingHoursScheme::_Describe() {
    const nxTradingHoursScheme none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

nxErrorEnum nxTradingHoursScheme::ConvertFromXML(nxXMLElement& schemeElement, const std::string& logPrefix) {
    return nxXMLConversion::ReadElement(*this, schemeElement, logPrefix);
}

nxErrorEnum nxTradingHoursScheme::ConvertToXML(nxXMLElement& schemeElement,
                                               const std::string& /*logPrefix*/) const {
    nxXMLConversion::WriteElement(*this, schemeElement); // whose document remembers what it could not carry
    return nxErrorEnum::OK;
}

std::string nxTradingHoursScheme::GetAsLogString() const {
    return "SchemeName: " + _schemeName;
}
