// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/spread/nxSyntheticSpreadOrderSpecLeg_XML.h"

#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

#include <algorithm>
#include <concepts>
#include <optional>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxSyntheticSpreadOrderSpecLeg_XML";

    using Leg = nxSyntheticSpreadOrderSpecLeg_XML;
    using PayupMethod = nxSyntheticSpreadPayupMethodEnum;

    // The text forms of a leg's document, which differ from other records': wrappers by name when null or no
    // change, enumerations by their short descriptions.
    template <class T, T Null, T NoChange>
    void AppendLegText(std::string& text, const nxValueWrapper<T, Null, NoChange>& value) {
        value.AppendAsString(text);
    }
    void AppendLegText(std::string& text, const nxDecimal& value) {
        value.AppendAsLogString(text, '.');
    }
    void AppendLegText(std::string& text, const nxEnum& value) {
        value.AppendShortDescription(text);
    }

    template <class Value>
    nxErrorEnum FromLegText(std::string_view text, Value& value) {
        return nxXMLFields::FromText(text, value);
    }
    template <std::derived_from<nxEnum> Value>
    nxErrorEnum FromLegText(std::string_view text, Value& value) {
        return value.SetFromShortDescriptionString(text) ? nxErrorEnum::OK : nxErrorEnum::ValueNotParsed;
    }

    template <class Value>
    nxXMLValueDescription DescribeLegText() {
        if constexpr (std::derived_from<Value, nxEnum>)
            return nxXMLFields::DescribeEnumeration(Value::Rows(), &nxEnumRow::shortDescription);
        else
            return nxXMLFields::ValueOf<Value>::Describe();
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

        void AppendText(std::string& text) const { AppendLegText(text, _value); }
        // An element without text reads as the empty text, which makes a decimal null.
        nxErrorEnum ReadFrom(const nxXMLNode& node, const nxXMLReadContext& /*context*/) {
            return FromLegText(node.GetText(), _value);
        }
        static nxXMLValueDescription DescribeValue() { return DescribeLegText<std::remove_const_t<Value>>(); }

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

    // A setting that stands in some documents, and here only while it is read or written.
    template <class Value>
    class Sometimes {
    public:
        explicit Sometimes(std::optional<Value>& value) : _value(value) {}

        bool IsWritten() const { return _value.has_value(); }
        void AppendText(std::string& text) const { nxXMLFields::AppendText(text, *_value); }
        nxErrorEnum FromText(std::string_view text) {
            Value value{};
            const nxErrorEnum result = nxXMLFields::FromText(text, value);
            if (result.IsOK())
                _value = value;
            return result;
        }
        static nxXMLValueDescription DescribeValue() { return nxXMLFields::ValueOf<Value>::Describe(); }

    private:
        std::optional<Value>& _value;
    };

    // Another name of a setting, under which it is only read.
    template <class Value>
    class OtherName {
    public:
        explicit OtherName(Value& value) : _value(value) {}

        static constexpr bool IsReadOnly = true;

        static bool IsWritten() { return false; }
        void AppendText(std::string& /*text*/) const {}
        static nxXMLValueDescription DescribeValue() { return nxXMLFields::ValueOf<Value>::Describe(); }
        nxErrorEnum FromText(std::string_view text) { return nxXMLFields::FromText(text, _value); }

    private:
        Value& _value;
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

// The payup settings as documents hold them, beside "PayupTicks": the method, and the older form of flags and
// ticks.
struct nxSyntheticSpreadOrderSpecLeg_XML::PayupForms {
    PayupMethod method;
    bool conditional = false;
    bool cascade = false;
    std::optional<bool> cascadeFinesse;
    std::optional<unsigned int> finesseTicks; // digits only, unlike the wrappers

    static PayupForms Of(const Leg& leg) {
        PayupForms forms{
            leg._payupMethod, leg._IsConditionalPayup(), leg._payupMethod == PayupMethod::Cascade, {}, {}};
        if (leg._finesse)
            forms.cascadeFinesse = forms.cascade;
        if (leg._payupTicks.IsValid() && leg._payupTicks >= 0)
            forms.finesseTicks = static_cast<unsigned int>(leg._payupTicks);
        return forms;
    }

    // Gives the leg, whose other settings have been read, its method and ticks.
    void ApplyTo(Leg& leg) const {
        if (!method.IsUndefined()) {
            leg._payupMethod = method; // the older ticks do not count beside it
            return;
        }
        if (cascade || (leg._finesse && cascadeFinesse.value_or(false)))
            leg._payupMethod = PayupMethod::Cascade;
        else
            leg._payupMethod = conditional ? PayupMethod::Conditional : PayupMethod::Plain;
        if (finesseTicks && nxUnsignedValueWrapper(*finesseTicks).IsValid() && !leg._payupTicks.IsValid())
            leg._payupTicks = static_cast<int>(*finesseTicks);
    }
};

struct nxSyntheticSpreadOrderSpecLeg_XML::Fields {
    template <class Visitor>
    static void Visit(Leg& leg, PayupForms& payup, Visitor&& field) {
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
        field("PayupMethod", Always(payup.method));
        field("ConditionalPayup", payup.conditional);
        field("CascadeConditionalPayup", payup.cascade);
        field("CascadeFinessePayup", Sometimes(payup.cascadeFinesse));
        field("FinessePayupTicks", Sometimes(payup.finesseTicks));
        for (std::size_t i = 0; i < leg._bands.size(); ++i) {
            field(BandTicksNames[i], IfSet(leg._bands[i].ticks));
            field(BandRangeNames[i], IfSet(leg._bands[i].rangeTicks));
        }
        field("ExecutionRestriction", IfSet(leg._executionRestriction));
        field("IsAuctionModeLeg", OtherName(leg._isAuctionModeLeg));
    }
};

void nxSyntheticSpreadOrderSpecLeg_XML::SetPayupMethod(const nxSyntheticSpreadPayupMethodEnum& method) {
    _payupMethod = method.IsUndefined() || method.IsNoChange() ? PayupMethod(PayupMethod::Plain) : method;
}

nxErrorEnum nxSyntheticSpreadOrderSpecLeg_XML::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    PayupForms payup;
    const nxErrorEnum result = nxXMLFields::ReadInDocumentOrder(
        node, context, [this, &payup](auto& field) { Fields::Visit(*this, payup, field); });
    payup.ApplyTo(*this);
    return result;
}

void nxSyntheticSpreadOrderSpecLeg_XML::_Write(nxXMLSink& sink) {
    if (_payupMethod.IsUndefined())
        _payupMethod = PayupMethod::Plain;
    PayupForms payup = PayupForms::Of(*this);
    Fields::Visit(*this, payup, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxSyntheticSpreadOrderSpecLeg_XML::_Describe() {
    nxSyntheticSpreadOrderSpecLeg_XML none;
    PayupForms payup;
    return nxXMLFields::Describe([&none, &payup](auto& field) { Fields::Visit(none, payup, field); });
}

nxErrorEnum nxSyntheticSpreadOrderSpecLeg_XML::ConvertFromXML(nxXMLElement& element,
                                                              const std::string& logPrefix) {
    return nxXMLConversion::ReadElement(*this, element, logPrefix);
}

nxErrorEnum nxSyntheticSpreadOrderSpecLeg_XML::ConvertToXML(nxXMLElement& element,
                                                            const std::string& /*logPrefix*/) {
    nxXMLConversion::WriteElement(*this, element); // whose document remembers what it could not carry
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
