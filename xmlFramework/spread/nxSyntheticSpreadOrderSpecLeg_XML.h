// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDecimal.h"
#include "core/nxExecutionRestrictionEnum.h"
#include "core/nxOrderTypeEnum.h"
#include "core/nxSpreadMachineHedgeAggressionMethodEnum.h"
#include "core/nxSyntheticSpreadPayupMethodEnum.h"
#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <array>
#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// The settings of one leg of a synthetic spread order. Reading takes whatever a document holds; IsValid says
// whether the settings make sense together. Volumes and sizes are in contracts, payups and sensitivities in
// ticks.
class XMLFRAMEWORK_API nxSyntheticSpreadOrderSpecLeg_XML {
public:
    // Whether this is the leg that is quoted, rather than one that hedges it.
    bool GetWorkingLeg() const { return _workingLeg; }
    void SetWorkingLeg(bool workingLeg) { _workingLeg = workingLeg; }
    const nxOrderTypeEnum& GetOrderType() const { return _orderType; }
    void SetOrderType(const nxOrderTypeEnum& orderType) { _orderType = orderType; }
    const nxUnsignedValueWrapper& GetLeaningLegRiskRatio() const { return _leaningLegRiskRatio; }
    void SetLeaningLegRiskRatio(const nxUnsignedValueWrapper& ratio) { _leaningLegRiskRatio = ratio; }
    const nxUnsignedValueWrapper& GetTailSize() const { return _tailSize; }
    void SetTailSize(const nxUnsignedValueWrapper& size) { _tailSize = size; }
    const nxIntValueWrapper& GetPayupTicks() const { return _payupTicks; } // may be negative
    void SetPayupTicks(const nxIntValueWrapper& ticks) { _payupTicks = ticks; }
    const nxSyntheticSpreadPayupMethodEnum& GetPayupMethod() const { return _payupMethod; }
    // Undefined and no-change are stored as the plain method.
    void SetPayupMethod(const nxSyntheticSpreadPayupMethodEnum& method);
    const nxUnsignedValueWrapper& GetConditionalTriggerVolume() const { return _conditionalTriggerVolume; }
    void SetConditionalTriggerVolume(const nxUnsignedValueWrapper& volume) {
        _conditionalTriggerVolume = volume;
    }
    const nxDecimal& GetConditionalTriggerRatio() const { return _conditionalTriggerRatio; }
    void SetConditionalTriggerRatio(const nxDecimal& ratio) { _conditionalTriggerRatio = ratio; }
    bool GetPessimisticVWAP() const { return _pessimisticVWAP; }
    void SetPessimisticVWAP(bool pessimisticVWAP) { _pessimisticVWAP = pessimisticVWAP; }
    bool GetFinesse() const { return _finesse; }
    void SetFinesse(bool finesse) { _finesse = finesse; }
    const nxUnsignedValueWrapper& GetFinesseTriggerVolume() const { return _finesseTriggerVolume; }
    void SetFinesseTriggerVolume(const nxUnsignedValueWrapper& volume) { _finesseTriggerVolume = volume; }
    const nxDecimal& GetFinesseTriggerRatio() const { return _finesseTriggerRatio; }
    void SetFinesseTriggerRatio(const nxDecimal& ratio) { _finesseTriggerRatio = ratio; }
    bool GetIsAuctionModeLeg() const { return _isAuctionModeLeg; }
    void SetIsAuctionModeLeg(bool isAuctionModeLeg) { _isAuctionModeLeg = isAuctionModeLeg; }
    const nxSpreadMachineHedgeAggressionMethodEnum& GetHedgeAggressionMethod() const {
        return _hedgeAggressionMethod;
    }
    void SetHedgeAggressionMethod(const nxSpreadMachineHedgeAggressionMethodEnum& method) {
        _hedgeAggressionMethod = method;
    }
    const nxIntValueWrapper& GetScratchPayupTicks() const { return _scratchPayupTicks; }
    void SetScratchPayupTicks(const nxIntValueWrapper& ticks) { _scratchPayupTicks = ticks; }

    // Five bands, each with a width and a number of ticks.
    const nxUnsignedValueWrapper& GetSensitivityRangeTicks_1() const { return _bands[0].rangeTicks; }
    const nxUnsignedValueWrapper& GetSensitivityRangeTicks_2() const { return _bands[1].rangeTicks; }
    const nxUnsignedValueWrapper& GetSensitivityRangeTicks_3() const { return _bands[2].rangeTicks; }
    const nxUnsignedValueWrapper& GetSensitivityRangeTicks_4() const { return _bands[3].rangeTicks; }
    const nxUnsignedValueWrapper& GetSensitivityRangeTicks_5() const { return _bands[4].rangeTicks; }
    const nxUnsignedValueWrapper& GetSensitivityTicks_1() const { return _bands[0].ticks; }
    const nxUnsignedValueWrapper& GetSensitivityTicks_2() const { return _bands[1].ticks; }
    const nxUnsignedValueWrapper& GetSensitivityTicks_3() const { return _bands[2].ticks; }
    const nxUnsignedValueWrapper& GetSensitivityTicks_4() const { return _bands[3].ticks; }
    const nxUnsignedValueWrapper& GetSensitivityTicks_5() const { return _bands[4].ticks; }
    void SetSensitivityRangeTicks_1(const nxUnsignedValueWrapper& ticks) { _bands[0].rangeTicks = ticks; }
    void SetSensitivityRangeTicks_2(const nxUnsignedValueWrapper& ticks) { _bands[1].rangeTicks = ticks; }
    void SetSensitivityRangeTicks_3(const nxUnsignedValueWrapper& ticks) { _bands[2].rangeTicks = ticks; }
    void SetSensitivityRangeTicks_4(const nxUnsignedValueWrapper& ticks) { _bands[3].rangeTicks = ticks; }
    void SetSensitivityRangeTicks_5(const nxUnsignedValueWrapper& ticks) { _bands[4].rangeTicks = ticks; }
    void SetSensitivityTicks_1(const nxUnsignedValueWrapper& ticks) { _bands[0].ticks = ticks; }
    void SetSensitivityTicks_2(const nxUnsignedValueWrapper& ticks) { _bands[1].ticks = ticks; }
    void SetSensitivityTicks_3(const nxUnsignedValueWrapper& ticks) { _bands[2].ticks = ticks; }
    void SetSensitivityTicks_4(const nxUnsignedValueWrapper& ticks) { _bands[3].ticks = ticks; }
    void SetSensitivityTicks_5(const nxUnsignedValueWrapper& ticks) { _bands[4].ticks = ticks; }

    bool GetInheritsTimeRestrictionFromSpreadOrder() const { return _inheritsTimeRestrictionFromSpreadOrder; }
    void SetInheritsTimeRestrictionFromSpreadOrder(bool inherits) {
        _inheritsTimeRestrictionFromSpreadOrder = inherits;
    }
    const nxUnsignedValueWrapper& GetAccountIDOverride() const { return _accountIDOverride; }
    void SetAccountIDOverride(const nxUnsignedValueWrapper& accountID) { _accountIDOverride = accountID; }
    const nxExecutionRestrictionEnum& GetExecutionRestriction() const { return _executionRestriction; }
    void SetExecutionRestriction(const nxExecutionRestrictionEnum& restriction) {
        _executionRestriction = restriction;
    }

    // Whether every setting is the same. Null equals null and differs from no change.
    bool operator==(const nxSyntheticSpreadOrderSpecLeg_XML&) const = default;
    bool IsEqual(const nxSyntheticSpreadOrderSpecLeg_XML& other) const { return *this == other; }

    // The leg as child elements of `element`; always OK, and nothing is logged. Documents hold the payup
    // settings in two forms: "PayupMethod" and "PayupTicks", and an older one of flags and
    // "FinessePayupTicks", which is read only where "PayupMethod" is missing. Both are written. Writing
    // stores the plain method in a leg whose method is undefined.
    nxErrorEnum ConvertFromXML(nxXMLElement& element, const std::string& logPrefix);
    nxErrorEnum ConvertToXML(nxXMLElement& element, const std::string& logPrefix);

    // Whether the settings make sense together. What does not is logged, after `logPrefix`. (For the shapes
    // of IsValid see docs/errors.md.)
    bool IsValid(const std::string& logPrefix) const;

    std::string GetAsLogString() const;

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink);
    static std::vector<nxXMLFieldDescription> _Describe();
    struct PayupForms;

    struct SensitivityBand {
        nxUnsignedValueWrapper rangeTicks;
        nxUnsignedValueWrapper ticks;
        bool operator==(const SensitivityBand&) const = default;
    };

    bool _IsConditionalPayup() const; // the conditional or the cascade method
    bool _IsFinesseValid(const std::string& logPrefix) const;
    bool _IsConditionalPayupValid(const std::string& logPrefix) const;
    bool _IsFinesseVolumeEnough(const std::string& logPrefix) const;
    bool _IsBandValid(std::size_t index, const std::string& logPrefix) const;
    bool _IsExecutionRestrictionSupported(const std::string& logPrefix) const;

    bool _workingLeg = false;
    nxOrderTypeEnum _orderType;
    nxUnsignedValueWrapper _leaningLegRiskRatio;
    nxUnsignedValueWrapper _tailSize;
    nxIntValueWrapper _payupTicks;
    nxSyntheticSpreadPayupMethodEnum _payupMethod = nxSyntheticSpreadPayupMethodEnum::Plain;
    nxUnsignedValueWrapper _conditionalTriggerVolume;
    nxDecimal _conditionalTriggerRatio;
    bool _pessimisticVWAP = false;
    bool _finesse = false;
    nxUnsignedValueWrapper _finesseTriggerVolume;
    nxDecimal _finesseTriggerRatio;
    bool _isAuctionModeLeg = false;
    nxSpreadMachineHedgeAggressionMethodEnum _hedgeAggressionMethod;
    nxIntValueWrapper _scratchPayupTicks;
    std::array<SensitivityBand, 5> _bands;
    bool _inheritsTimeRestrictionFromSpreadOrder = false;
    nxUnsignedValueWrapper _accountIDOverride;
    nxExecutionRestrictionEnum _executionRestriction;
};
