// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxTradingHoursScheme.h"

#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <algorithm>
#include <functional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxTradingHoursScheme";
    constexpr char Name[] = "SchemeName";
    constexpr char List[] = "Periods";
    constexpr char Item[] = "Period";
} // namespace

nxTradingHoursScheme::~nxTradingHoursScheme() = default;

nxErrorEnum nxTradingHoursScheme::IsValid() const {
    return _schemeName.empty() ? nxErrorEnum::InvalidData : nxErrorEnum::OK;
}

bool nxTradingHoursScheme::IsEqual(const nxTradingHoursScheme& other) const {
    return _schemeName == other._schemeName &&
           std::ranges::equal(_periods, other._periods, std::mem_fn(&nxTradingHoursPeriod::IsEqual));
}

nxErrorEnum nxTradingHoursScheme::ConvertFromXML(nxXMLElement& schemeElement, const std::string& logPrefix) {
    nxXMLFields::NextReader next(schemeElement);
    next(Name, _schemeName);
    const nxErrorEnum result =
        nxXMLFields::ForEachLeadingChild(next.Find(List), Item, [this, &logPrefix](nxXMLElement& element) {
            nxTradingHoursPeriod period;
            const nxErrorEnum converted = period.ConvertFromXML(element, logPrefix);
            if (converted.IsOK())
                AddTradingPeriod(period);
            return converted;
        });
    if (!result.IsOK())
        nxWriteLog({nxLogLevels::Error, SourceFile}, logPrefix,
                   "Failed to convert XML data to trading hours period. "
                   "Failed to create trading hours scheme from XML");
    return result;
}

nxErrorEnum nxTradingHoursScheme::ConvertToXML(nxXMLElement& schemeElement,
                                               const std::string& logPrefix) const {
    nxXMLFields::WriteChild(schemeElement, Name, _schemeName);
    return nxXMLFields::WriteList(schemeElement, List, Item, _periods,
                                  [&logPrefix](nxXMLElement& element, const nxTradingHoursPeriod& period) {
                                      return period.ConvertToXML(element, logPrefix);
                                  });
}

std::string nxTradingHoursScheme::GetAsLogString() const {
    return "SchemeName: " + _schemeName;
}
