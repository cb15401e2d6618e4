// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxTime.h"
#include "core/nxTradingSessionTypeEnum.h"
#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// One weekly trading period: a session of one type, from a day and time in one time zone region to a day and
// time in another. Days are numbers in the week, 0 to 6.
class XMLFRAMEWORK_API nxTradingHoursPeriod {
public:
    nxTradingHoursPeriod() = default; // everything empty, null or undefined
    nxTradingHoursPeriod(const nxTradingHoursPeriod&) = default;
    nxTradingHoursPeriod& operator=(const nxTradingHoursPeriod&) = default;
    nxTradingHoursPeriod(nxTradingHoursPeriod&&) noexcept = default;
    nxTradingHoursPeriod& operator=(nxTradingHoursPeriod&&) noexcept = default;
    virtual ~nxTradingHoursPeriod();
    bool operator==(const nxTradingHoursPeriod&) const = default;

    // OK when the session type is set, there is a region and a time at one end at least, and both days are
    // set, at most 6 and in order: a period never wraps over the end of the week. Else
    // nxErrorEnum::InvalidData.
    virtual nxErrorEnum IsValid() const;
    bool IsEqual(const nxTradingHoursPeriod& other) const { return *this == other; } // in all members

    const std::string& GetStartTimeZoneRegion() const { return _startTimeZoneRegion; }
    const std::string& GetEndTimeZoneRegion() const { return _endTimeZoneRegion; }
    const nxTime& GetStartTime() const { return _startTime; }
    const nxTime& GetEndTime() const { return _endTime; }
    const nxUnsignedValueWrapper& GetStartDay() const { return _startDay; }
    const nxUnsignedValueWrapper& GetEndDay() const { return _endDay; }
    const nxTradingSessionTypeEnum& GetSessionType() const { return _sessionType; }

    void SetStartTimeZoneRegion(const std::string& region) { _startTimeZoneRegion = region; }
    void SetEndTimeZoneRegion(const std::string& region) { _endTimeZoneRegion = region; }
    void SetStartTime(const nxTime& time) { _startTime = time; }
    void SetEndTime(const nxTime& time) { _endTime = time; }
    void SetStartDay(const nxUnsignedValueWrapper& day) { _startDay = day; }
    void SetEndDay(const nxUnsignedValueWrapper& day) { _endDay = day; }
    void SetSessionType(const nxTradingSessionTypeEnum& type) { _sessionType = type; }

    // The period as child elements of `periodElement`. Reading expects them in the order in which they are
    // written, and leaves a member whose element is missing or malformed as it was. Always OK; the second
    // argument is ignored.
    nxErrorEnum ConvertFromXML(nxXMLElement& periodElement, const std::string& logPrefix);
    nxErrorEnum ConvertToXML(nxXMLElement& periodElement, const std::string& logPrefix) const;

    std::string GetAsLogString() const;

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    std::string _startTimeZoneRegion;
    std::string _endTimeZoneRegion;
    nxTime _startTime;
    nxTime _endTime;
    nxUnsignedValueWrapper _startDay;
    nxUnsignedValueWrapper _endDay;
    nxTradingSessionTypeEnum _sessionType;
};
