// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/spread/nxSyntheticSpreadOrderSpecLeg_XML.h"

#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <algorithm>
#include <concepts>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticSpreadOrderSpecLeg_XML";

    using Leg = nxSyntheticSpreadOrderSpecLeg_XML;
    using PayupMethod = nxSyntheticSpreadPayupMethodEnum;

    // The text forms of a leg's document, which differ from other records': wrappers by name when null or no
    // change, enumerations by their short descriptions.
    template <class T, T Null, T NoChange>
    std::string ToText(const nxValueWrapper<T, Null, NoChange>& value) {
        return value.GetAsString();
    }
    std::string ToText(const nxDecimal& value) {
        return value.GetAsLogString('.');
    }
    std::string ToText(const nxEnum& value) {
        return value.GetShortDescription();
    }

    template <class T, T Null, T NoChange>
    nxErrorEnum FromText(const std::string& text, nxValueWrapper<T, Null, NoChange>& value) {
        return value.SetFromString(text);
    }
    nxErrorEnum FromText(const std::string& text, nxDecimal& value) {
        return value.SetFromString(text, '.');
    }
    nxErrorEnum FromText(const std::string& text, nxEnum& value) {
        return value.SetFromShortDescriptionString(text) ? nxErrorEnum::OK : nxErrorEnum::ValueNotParsed;
    }

    template <class Value>
    bool IsUnset(const Value& value) {
        if constexpr (std::derived_from<Value, nxEnum>)
            return value.IsUndefined();
        else
            return value.IsNull();
    }

    // A setting that stands in every document.
    template <class Value>
    class Always {
    public:
        explicit Always(Value& value) : _value(value) {}

        std::string ToText() const { return ::ToText(_value); }
        // An element without text reads as the empty text, which makes a decimal null.
        nxErrorEnum ReadFrom(const nxXMLElement& element) { return FromText(element.GetTextValue(), _value); }

    protected:
        Value& _value;
    };

    // A setting that is left out where it is null or undefined; no change is written.
    template <class Value>
    class IfSet : public Always<Value> {
    public:
        explicit IfSet(Value& value) : Always<Value>(value) {}

        bool IsWritten() const { return !IsUnset(this->_value); }
    };

    constexpr const char* BandTicksNames[] = {"SensitivityTicks1", "SensitivityTicks2", "SensitivityTicks3",
                                              "SensitivityTicks4", "SensitivityTicks5"};
    constexpr const char* BandRangeNames[] = {"SensitivityRangeTicks1", "SensitivityRangeTicks2",
                                              "SensitivityRangeTicks3", "SensitivityRangeTicks4",
                                              "SensitivityRangeTicks5"};

    // Logs why a leg is not valid.
    template <class... Pieces>
    bool Refuse(const nxLogSite& site, const std::string& logPrefix, const Pieces&... pieces) {
        nxWriteLog(site, logPrefix, pieces...);
        return false;
    }

    // A piece of a message that is made only when the message is logged.
    auto LongDescriptionOf(const nxEnum& value) {
        return [&value] { return value.GetLongDescription(); };
    }

    // "Set" to something other than 0.
    bool IsPositive(const nxUnsignedValueWrapper& value) {
        return value.IsValid() && value != 0;
    }

    // What a log line says of a flag, a number or an enumeration.
    std::string LogText(bool value) {
        return nxStringHelper::GetAsString(value);
    }
    template <class T, T Null, T NoChange>
    std::string LogText(const nxValueWrapper<T, Null, NoChange>& value) {
        return value.GetAsString();
    }
    std::string LogText(const nxDecimal& value) {
        return value.GetAsLogString('.');
    }
    std::string LogText(const nxEnum& value) {
        return value.GetLongDescription();
    }
} // namespace

// The payup settings as documents hold them, beside "PayupTicks".
struct nxSyntheticSpreadOrderSpecLeg_XML::PayupForms {
    PayupMethod method;
    // The older form.
    bool conditional = false;
    bool cascade = false;
    bool cascadeFinesse = false;
    unsigned int finesseTicks = nxUnsignedValueWrapper::NullValue; // digits only, unlike the wrappers

    template <class Visitor>
    void Read(Visitor& field) {
        field("PayupMethod", Always(method));
        field("ConditionalPayup", conditional);
        field("CascadeConditionalPayup", cascade);
        field("CascadeFinessePayup", cascadeFinesse);
        field("FinessePayupTicks", finesseTicks);
    }

    // Gives the leg, whose other settings have been read, its method and ticks.
    void ApplyTo(Leg& leg) const {
        if (!method.IsUndefined()) {
            leg._payupMethod = method; // the older ticks do not count beside it
            return;
        }
        if (cascade || (leg._finesse && cascadeFinesse))
            leg._payupMethod = PayupMethod::Cascade;
        else
            leg._payupMethod = conditional ? PayupMethod::Conditional : PayupMethod::Plain;
        if (nxUnsignedValueWrapper(finesseTicks).IsValid() && !leg._payupTicks.IsValid())
            leg._payupTicks = static_cast<int>(finesseTicks);
    }

    static void Write(nxXMLFields::Writer& field, const Leg& leg) {
        const bool cascade = leg._payupMethod == PayupMethod::Cascade;
        field("PayupMethod", Always(leg._payupMethod));
        field("ConditionalPayup", leg._IsConditionalPayup());
        field("CascadeConditionalPayup", cascade);
        if (leg._finesse)
            field("CascadeFinessePayup", cascade);
        if (leg._payupTicks.IsValid() && leg._payupTicks >= 0)
            field("FinessePayupTicks", Always(leg._payupTicks)); // for readers of the older form
    }
};

// The other settings, in the order of the document. Calls `visitPayup` where the payup settings stand.
struct nxSyntheticSpreadOrderSpecLeg_XML::Fields {
    template <class Visitor, class VisitPayup>
    static void Visit(Leg& leg, Visitor& field, VisitPayup visitPayup) {
        field("WorkingLeg", leg._workingLeg);
        field("TailSize", IfSet(leg._tailSize));
        field("OrderType", Always(leg._orderType));
        field("RiskRatio", IfSet(leg._leaningLegRiskRatio));
        field("PessimisticVWAP", leg._pessimisticVWAP);
        field("PayupTicks", IfSet(leg._payupTicks));
        field("ConditionalTriggerVolume", IfSet(leg._conditionalTriggerVolume));
        field("ConditionalTriggerRatio", IfSet(leg._conditionalTriggerRatio));
        field("Finesse", leg._finesse);
        field("FinesseTriggerVolume", IfSet(leg._finesseTriggerVolume));
        field("FinesseTriggerRatio", IfSet(leg._finesseTriggerRatio));
        field("IsOpenAuctionModeLeg", leg._isAuctionModeLeg);
        field("InheritTimeRestrictionFromSpreadOrder", leg._inheritsTimeRestrictionFromSpreadOrder);
        field("AccountIDOverride", Always(leg._accountIDOverride));
        field("HedgeAggressionMethod", IfSet(leg._hedgeAggressionMethod));
        field("ScratchPayupTicks", Always(leg._scratchPayupTicks));
        visitPayup();
        for (std::size_t i = 0; i < leg._bands.size(); ++i) {
            field(BandTicksNames[i], IfSet(leg._bands[i].ticks));
            field(BandRangeNames[i], IfSet(leg._bands[i].rangeTicks));
        }
        field("ExecutionRestriction", IfSet(leg._executionRestriction));
    }
};

void nxSyntheticSpreadOrderSpecLeg_XML::SetPayupMethod(const nxSyntheticSpreadPayupMethodEnum& method) {
    _payupMethod = method.IsUndefined() || method.IsNoChange() ? PayupMethod(PayupMethod::Plain) : method;
}

nxErrorEnum nxSyntheticSpreadOrderSpecLeg_XML::ConvertFromXML(nxXMLElement& element,
                                                              const std::string& /*logPrefix*/) {
    PayupForms payup;
    nxXMLFields::ReadInDocumentOrder(element, [this, &payup](auto& field) {
        Fields::Visit(*this, field, [&payup, &field] { payup.Read(field); });
        field("IsAuctionModeLeg", _isAuctionModeLeg); // another name of "IsOpenAuctionModeLeg"
    });
    payup.ApplyTo(*this);
    return nxErrorEnum::OK;
}

nxErrorEnum nxSyntheticSpreadOrderSpecLeg_XML::ConvertToXML(nxXMLElement& element,
                                                            const std::string& /*logPrefix*/) {
    if (_payupMethod.IsUndefined())
        _payupMethod = PayupMethod::Plain;

    nxXMLFields::Writer field(element);
    Fields::Visit(*this, field, [this, &field] { PayupForms::Write(field, *this); });
    return nxErrorEnum::OK;
}

std::string nxSyntheticSpreadOrderSpecLeg_XML::GetAsLogString() const {
    std::string text;
    const auto add = [&text](const std::string& label, const auto& value) {
        text += ", " + label + ": " + LogText(value);
    };

    add("Working Leg", _workingLeg);
    if (_workingLeg) {
        add("Tail size", _tailSize);
        for (std::size_t i = 0; i < _bands.size(); ++i) {
            add("Sensitivity range " + std::to_string(i + 1), _bands[i].rangeTicks);
            add("Sensitivity ticks " + std::to_string(i + 1), _bands[i].ticks);
        }
    }
    add("Risk ratio", _leaningLegRiskRatio);
    add("Order type", _orderType);
    text += ", Payup ticks: " + (_payupTicks.IsValid() ? _payupTicks.GetAsString() : std::string());
    text += ", Payup method: " + _payupMethod.GetAsString();
    if (_IsConditionalPayup()) {
        add("Conditional trigger volume", _conditionalTriggerVolume);
        add("Conditional trigger ratio", _conditionalTriggerRatio);
    }
    add("Pessimistic VWAP", _pessimisticVWAP);
    add("Finesse", _finesse);
    if (_finesse) {
        add("Finesse trigger volume", _finesseTriggerVolume);
        add("Finesse trigger ratio", _finesseTriggerRatio);
    }
    add("Is auction mode leg", _isAuctionModeLeg);
    add("Hedge aggression method", _hedgeAggressionMethod);
    add("Scratch payup ticks", _scratchPayupTicks);
    add("Execution restriction", _executionRestriction);
    add("Inherits time restriction from spread order", _inheritsTimeRestrictionFromSpreadOrder);
    add("Account ID ovrride", _accountIDOverride); // log readers match this spelling
    return text;
}

bool nxSyntheticSpreadOrderSpecLeg_XML::IsValid(const std::string& logPrefix) const {
    if (!_IsFinesseValid(logPrefix) || !_IsConditionalPayupValid(logPrefix) ||
        !_IsFinesseVolumeEnough(logPrefix))
        return false;

    bool valid = true;
    for (std::size_t i = 0; i < _bands.size(); ++i) // every band, so that each problem is logged
        valid = _IsBandValid(i, logPrefix) && valid;
    return _IsExecutionRestrictionSupported(logPrefix) && valid;
}

bool nxSyntheticSpreadOrderSpecLeg_XML::_IsConditionalPayup() const {
    return _payupMethod == PayupMethod::Conditional || _payupMethod == PayupMethod::Cascade;
}

bool nxSyntheticSpreadOrderSpecLeg_XML::_IsFinesseValid(const std::string& logPrefix) const {
    if (!_finesse || IsPositive(_finesseTriggerVolume))
        return true;
    return Refuse(
        {nxLogLevels::Error, SourceFile}, logPrefix,
        "Finesse is enabled, but trigger volume is not set. Trigger volume: ", _finesseTriggerVolume);
}

bool nxSyntheticSpreadOrderSpecLeg_XML::_IsConditionalPayupValid(const std::string& logPrefix) const {
    if (!_IsConditionalPayup())
        return true;
    if (!_payupTicks.IsValid() || _payupTicks == 0) // negative ticks are meant
        return Refuse({nxLogLevels::Error, SourceFile}, logPrefix,
                      "Conditional/cascade payup is enabled, but payup ticks is not set. Payup ticks: ",
                      static_cast<int>(_payupTicks), ", Payup method: ", LongDescriptionOf(_payupMethod));
    if (!IsPositive(_conditionalTriggerVolume))
        return Refuse({nxLogLevels::Error, SourceFile}, logPrefix,
                      "Conditional/cascade payup is enabled, but trigger volume is not set. Trigger volume: ",
                      _conditionalTriggerVolume, ", Payup method: ", LongDescriptionOf(_payupMethod));
    return true;
}

bool nxSyntheticSpreadOrderSpecLeg_XML::_IsFinesseVolumeEnough(const std::string& logPrefix) const {
    const bool compared = _finesse && _IsConditionalPayup() && _finesseTriggerVolume.IsValid() &&
                          _conditionalTriggerVolume.IsValid();
    if (!compared || _finesseTriggerVolume >= _conditionalTriggerVolume)
        return true;
    return Refuse({nxLogLevels::Error, SourceFile}, logPrefix,
                  "Finesse trigger volume must be greater than or equal to conditional trigger volume. "
                  "Finesse trigger volume: ",
                  _finesseTriggerVolume, ", Conditional trigger volume: ", _conditionalTriggerVolume,
                  ", Payup method: ", LongDescriptionOf(_payupMethod));
}

bool nxSyntheticSpreadOrderSpecLeg_XML::_IsBandValid(std::size_t index, const std::string& logPrefix) const {
    const SensitivityBand& band = _bands[index];
    if (!band.rangeTicks.IsValid())
        return true;

    const auto number = static_cast<unsigned int>(index + 1);
    if (!band.ticks.IsValid())
        return Refuse({nxLogLevels::Error, SourceFile}, logPrefix, "Sensitivity range #", number,
                      " is set but doesn't have valid sensitivity ticks setting");
    if (band.rangeTicks != 0)
        return true;
    if (index > 0)
        return Refuse({nxLogLevels::Error, SourceFile}, logPrefix, "Sensitivity range #", number,
                      " is zero ticks wide");

    // The first band may be of zero width where it is the only one.
    const bool others = std::any_of(_bands.begin() + 1, _bands.end(), [](const SensitivityBand& other) {
        return other.rangeTicks.IsValid() || other.ticks.IsValid();
    });
    return !others || Refuse({nxLogLevels::Error, SourceFile}, logPrefix, "Sensitivity range #", number,
                             " is zero ticks wide (and other ranges are defined)");
}

bool nxSyntheticSpreadOrderSpecLeg_XML::_IsExecutionRestrictionSupported(const std::string& logPrefix) const {
    if (_executionRestriction == nxExecutionRestrictionEnum::UndefinedValue ||
        _executionRestriction == nxExecutionRestrictionEnum::NoRestriction)
        return true;
    return Refuse({nxLogLevels::Error, SourceFile}, logPrefix,
                  "Execution restriction is not supported: ", LongDescriptionOf(_executionRestriction));
}
