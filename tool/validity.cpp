// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/validity.h"

#include "tool/printable.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"
#include "xmlFramework/xml/nxXMLDocument.h"

namespace {
    using namespace tool;

    template <class Class>
    const Class* As(const Record& record) {
        const auto* const ours = dynamic_cast<const RecordOf<Class>*>(&record);
        return ours ? &ours->Get() : nullptr;
    }

    // Where in the document the first item without a key is; nothing when it has none there.
    std::string FindPlace(const std::string& contents, std::string_view list, std::string_view key) {
        nxXMLDocument document;
        if (!document.LoadFromString(contents).IsOK())
            return {};
        nxXMLElement items = document.GetRootElement().FindChildElement(list);
        std::size_t number = 1;
        for (nxXMLElement item = items.GetFirstChildElement(); item.IsValid();
             item = items.GetNextChildElement(), ++number) {
            if (item.FindChildElement(key).GetTextValue().empty())
                return ": item " + std::to_string(number) + " of " + std::string(list) + ", element '" +
                       item.GetName() + "'";
        }
        return {};
    }

    template <class Items>
    void FindWithoutKey(const Items& items, const RecordFile& file, const char* title, std::string_view list,
                        std::string_view key, std::vector<std::string>& reasons) {
        for (const auto& [itemKey, item] : items) {
            if (itemKey.empty())
                reasons.push_back(std::string(title) + " without " + std::string(key) +
                                  FindPlace(file.contents, list, key));
        }
    }

    // What IsValid asks of a period, one by one.
    std::vector<std::string> FindFaults(const nxTradingHoursPeriod& period) {
        constexpr unsigned int LastDay = 6;
        std::vector<std::string> faults;
        if (period.GetSessionType().IsUndefined() || period.GetSessionType().IsNoChange())
            faults.emplace_back("no session type");
        if (period.GetStartTimeZoneRegion().empty() && period.GetEndTimeZoneRegion().empty())
            faults.emplace_back("no time zone region");
        if (period.GetStartTime().IsNull() && period.GetEndTime().IsNull())
            faults.emplace_back("no time");
        bool hasDays = true;
        const auto look = [&](const char* name, const nxUnsignedValueWrapper& day) {
            hasDays = hasDays && day.IsValid() && day <= LastDay;
            if (!day.IsValid())
                faults.push_back(std::string("no ") + name + " day");
            else if (day > LastDay)
                faults.push_back(std::string(name) + " day " + day.GetAsString() + " is beyond 6");
        };
        look("start", period.GetStartDay());
        look("end", period.GetEndDay());
        if (hasDays && period.GetStartDay() > period.GetEndDay())
            faults.push_back("start day " + period.GetStartDay().GetAsString() + " is behind end day " +
                             period.GetEndDay().GetAsString());
        return faults;
    }

    void FindFaults(const nxTradingHoursSchemeList& list, std::vector<std::string>& reasons) {
        for (const auto& [name, scheme] : list.GetTradingHoursSchemes()) {
            std::size_t number = 0;
            for (const nxTradingHoursPeriod& period : scheme.GetTradingPeriods()) {
                ++number;
                if (period.IsValid().IsOK())
                    continue;
                std::string reason =
                    "trading hours scheme '" + Shortened(name) + "', period " + std::to_string(number) + ": ";
                const char* separator = "";
                for (const std::string& fault : FindFaults(period)) {
                    reason.append(separator).append(fault);
                    separator = ", ";
                }
                reasons.push_back(std::move(reason));
            }
        }
    }

    // Each leg says in the log what is wrong with it.
    nxErrorEnum Validate(const nxSyntheticSpreadOrderSpec_XML& spread) {
        if (spread.GetLegs().size() < 2)
            return spread.IsValid({});
        bool isValid = true;
        for (std::size_t i = 0; i < spread.GetLegs().size(); ++i)
            isValid = spread.GetLegs()[i]->IsValid("Leg-" + std::to_string(i) + ": ") && isValid;
        return isValid ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
    }
} // namespace

std::vector<std::string> tool::FindItemsWithoutKey(const RecordFile& file) {
    std::vector<std::string> reasons;
    if (const auto* const mics = As<nxMICDefinitionList>(*file.record))
        FindWithoutKey(mics->GetMICDefinitions(), file, "MIC definition", "MICDefinitions", "MIC", reasons);
    if (const auto* const exchanges = As<nxExchangeDefinitionList>(*file.record))
        FindWithoutKey(exchanges->GetExchangeDefinitions(), file, "exchange definition",
                       "ExchangeDefinitions", "Mnemonic", reasons);
    if (const auto* const hours = As<nxTradingHoursSchemeList>(*file.record))
        FindWithoutKey(hours->GetTradingHoursSchemes(), file, "trading hours scheme", "TradingHoursSchemes",
                       "SchemeName", reasons);
    return reasons;
}

Validity tool::FindValidity(const RecordFile& file) {
    if (const auto* const spread = As<nxSyntheticSpreadOrderSpec_XML>(*file.record))
        return {Validate(*spread), {}};

    Validity validity{file.record->IsValid(), FindItemsWithoutKey(file)};
    if (const auto* const hours = As<nxTradingHoursSchemeList>(*file.record))
        FindFaults(*hours, validity.reasons);
    const auto* const statistics = As<nxOrvalenPriceUsageStatistics>(*file.record);
    if (statistics && !validity.result.IsOK())
        validity.reasons.push_back("the user is not known: userID is " +
                                   statistics->GetUserID().GetAsString());
    if (validity.result.IsOK() && !validity.reasons.empty())
        validity.result = nxErrorEnum::InvalidData;
    return validity;
}
