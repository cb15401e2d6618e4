// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "xmlFramework/market/nxTradingHoursPeriod.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// A named list of weekly trading periods.
class XMLFRAMEWORK_API nxTradingHoursScheme {
public:
    nxTradingHoursScheme() = default;
    nxTradingHoursScheme(const nxTradingHoursScheme&) = default;
    nxTradingHoursScheme& operator=(const nxTradingHoursScheme&) = default;
    nxTradingHoursScheme(nxTradingHoursScheme&&) noexcept = default;
    nxTradingHoursScheme& operator=(nxTradingHoursScheme&&) noexcept = default;
    virtual ~nxTradingHoursScheme();
    bool operator==(const nxTradingHoursScheme&) const = default;

    // nxErrorEnum::InvalidData when the name is empty. The periods are not looked at.
    virtual nxErrorEnum IsValid() const;
    // Whether the names are equal, and the periods in order.
    bool IsEqual(const nxTradingHoursScheme& other) const;

    const std::string& GetSchemeName() const { return _schemeName; }
    void SetSchemeName(const std::string& name) { _schemeName = name; }
    const std::vector<nxTradingHoursPeriod>& GetTradingPeriods() const { return _periods; }
    void AddTradingPeriod(const nxTradingHoursPeriod& period) { _periods.push_back(period); }

    // The scheme as child elements of `schemeElement`. Reading adds to the periods held; the first child of
    // "Periods" with another name than "Period" ends them.
    nxErrorEnum ConvertFromXML(nxXMLElement& schemeElement, const std::string& logPrefix);
    nxErrorEnum ConvertToXML(nxXMLElement& schemeElement, const std::string& logPrefix) const;

    std::string GetAsLogString() const;

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    std::string _schemeName;
    std::vector<nxTradingHoursPeriod> _periods;
};
