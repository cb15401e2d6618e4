// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursPeriod.h"

#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr unsigned int LastDayOfWeek = 6;
} // namespace

struct nxTradingHoursPeriod::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("SessionType", record._sessionType);
        field("StartTimeZoneRegion", record._startTimeZoneRegion);
        field("StartTime", record._startTime);
        field("StartDay", record._startDay);
        field("EndTimeZoneRegion", record._endTimeZoneRegion);
        field("EndTime", record._endTime);
        field("EndDay", record._endDay);
    }
};

nxTradingHoursPeriod::~nxTradingHoursPeriod() = default;

nxErrorEnum nxTradingHoursPeriod::IsValid() const {
    const bool hasType = !_sessionType.IsUndefined() && !_sessionType.IsNoChange();
    const bool hasRegion = !_startTimeZoneRegion.empty() || !_endTimeZoneRegion.empty();
    const bool hasTime = !_startTime.IsNull() || !_endTime.IsNull();
    const bool hasDays = _startDay <= _endDay && _endDay <= LastDayOfWeek; // null and no change are far above
    return hasType && hasRegion && hasTime && hasDays ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
}

nxErrorEnum nxTradingHoursPeriod::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    return nxXMLFields::ReadNext(node, context, [this](auto& field) { Fields::Visit(*this, field); })
        .GetResult();
}

void nxTradingHoursPeriod::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxTradingHoursPeriod::_Describe() {
    const nxTradingHoursPeriod none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

nxErrorEnum nxTradingHoursPeriod::ConvertFromXML(nxXMLElement& periodElement, const std::string& logPrefix) {
    return nxXMLConversion::ReadElement(*this, periodElement, logPrefix);
}

nxErrorEnum nxTradingHoursPeriod::ConvertToXML(nxXMLElement& periodElement,
                                               const std::string& /*logPrefix*/) const {
    nxXMLConversion::WriteElement(*this, periodElement); // whose document remembers what it could not carry
    return nxErrorEnum::OK;
}

std::string nxTradingHoursPeriod::GetAsLogString() const {
    std::string text = _startDay.GetAsString();
    if (_endDay != _startDay)
        text.append("-").append(_endDay.GetAsString());
    text.append(" ").append(_sessionType.GetLongDescription());
    text.append(" ").append(_startTimeZoneRegion);
    text.append(" ").append(_startTime.GetAsLogString()).append(" - ");
    if (_endTimeZoneRegion != _startTimeZoneRegion)
        text.append(_endTimeZoneRegion).append(" ");
    return text + _endTime.GetAsLogString();
}
