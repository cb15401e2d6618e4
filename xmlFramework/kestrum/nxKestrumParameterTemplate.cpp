// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameterTemplate.h"

#include "core/nxStringHelper.h"

// The rules of each value type stand here once. FromText gives the parser's result; what becomes of the value
// after a failure is the same for all types and decided by the template.
namespace {
    nxErrorEnum FromText(const std::string& text, std::string& value) {
        value = text;
        return nxErrorEnum::OK;
    }
    void ToText(const std::string& value, std::string& out) {
        out = value;
    }
    bool IsNullValue(const std::string& value) {
        return value.empty();
    }
    void MakeNull(std::string& value) {
        value.clear();
    }

    nxErrorEnum FromText(const std::string& text, nxDecimal& value) {
        return value.SetFromString(text, '.');
    }
    void ToText(const nxDecimal& value, std::string& out) {
        out = value.GetAsString('.');
    }
    bool IsNullValue(const nxDecimal& value) {
        return value.IsNull();
    }
    void MakeNull(nxDecimal& value) {
        value.SetNull();
    }

    template <class T, T Null, T NoChange>
    nxErrorEnum FromText(const std::string& text, nxValueWrapper<T, Null, NoChange>& value) {
        T number{};
        const nxErrorEnum result = nxStringHelper::SetFromString(text, number);
        if (result.IsOK())
            value = number;
        return result;
    }
    template <class T, T Null, T NoChange>
    void ToText(const nxValueWrapper<T, Null, NoChange>& value, std::string& out) {
        out = value.IsValid() ? value.GetAsString() : std::string();
    }
    template <class T, T Null, T NoChange>
    bool IsNullValue(const nxValueWrapper<T, Null, NoChange>& value) {
        return value.IsNull(); // no change is not null
    }
    template <class T, T Null, T NoChange>
    void MakeNull(nxValueWrapper<T, Null, NoChange>& value) {
        value.SetNull();
    }

    nxErrorEnum FromText(const std::string& text, nxDoubleValueWrapper& value) {
        return value.SetFromString(text);
    }
    void ToText(const nxDoubleValueWrapper& value, std::string& out) {
        out = value.GetAsString();
    }
    bool IsNullValue(const nxDoubleValueWrapper& value) {
        return value.IsNull();
    }
    void MakeNull(nxDoubleValueWrapper& value) {
        value.SetNull();
    }

    nxErrorEnum FromText(const std::string& text, nxBoolEnum& value) {
        return value.SetFromString(text) ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
    }
    void ToText(const nxBoolEnum& value, std::string& out) {
        out = value.GetShortDescription();
    }
    bool IsNullValue(const nxBoolEnum& value) {
        return value.IsUndefined();
    }
    void MakeNull(nxBoolEnum& value) {
        value = nxBoolEnum();
    }

    nxErrorEnum FromText(const std::string& text, nxDateTime& value) {
        return nxDateTime::SetFromString(text, value);
    }
    void ToText(const nxDateTime& value, std::string& out) {
        out = value.GetAsString(nxDateTime::DocumentFormat);
    }
    bool IsNullValue(const nxDateTime& value) {
        return value.IsNull();
    }
    void MakeNull(nxDateTime& value) {
        value.SetNull();
    }
} // namespace

template <unsigned int ID, class T>
nxKestrumParameterTemplate<ID, T>::nxKestrumParameterTemplate() {
    _SetNull(_value);
}

template <unsigned int ID, class T>
nxKestrumParameterTemplate<ID, T>::nxKestrumParameterTemplate(const std::string& name, const T& value)
    : nxKestrumParameter(name), _value(value) {}

template <unsigned int ID, class T>
nxKestrumParameterTemplate<ID, T>* nxKestrumParameterTemplate<ID, T>::CopyInstance() const {
    return new nxKestrumParameterTemplate(*this);
}

template <unsigned int ID, class T>
nxKestrumParameterTypeEnum nxKestrumParameterTemplate<ID, T>::GetParameterType() const {
    return ID;
}

template <unsigned int ID, class T>
bool nxKestrumParameterTemplate<ID, T>::IsNull() const {
    return _IsNull(_value);
}

template <unsigned int ID, class T>
void nxKestrumParameterTemplate<ID, T>::SetNull() {
    _SetNull(_value);
}

template <unsigned int ID, class T>
void nxKestrumParameterTemplate<ID, T>::PersistValueToString(std::string& out) const {
    _GetAsString(_value, out);
}

template <unsigned int ID, class T>
nxErrorEnum nxKestrumParameterTemplate<ID, T>::PersistValueFromString(const std::string& text) {
    return _SetFromString(text, _value);
}

template <unsigned int ID, class T>
nxErrorEnum nxKestrumParameterTemplate<ID, T>::_SetFromString(const std::string& text, T& value) {
    const nxErrorEnum result = FromText(text, value);
    if (!result.IsOK())
        MakeNull(value);
    return result;
}

template <unsigned int ID, class T>
void nxKestrumParameterTemplate<ID, T>::_GetAsString(const T& value, std::string& out) const {
    ToText(value, out);
}

template <unsigned int ID, class T>
bool nxKestrumParameterTemplate<ID, T>::_IsNull(const T& value) const {
    return IsNullValue(value);
}

template <unsigned int ID, class T>
void nxKestrumParameterTemplate<ID, T>::_SetNull(T& value) const {
    MakeNull(value);
}

template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Price, nxDecimal>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Unsigned, nxUnsignedValueWrapper>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Quantity, nxUnsignedValueWrapper>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Text, std::string>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Decimal, nxDecimal>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::FloatingPoint, nxDoubleValueWrapper>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Signed, nxIntValueWrapper>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Boolean, nxBoolEnum>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Instrument, std::string>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::DateTime, nxDateTime>;
template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Account, std::string>;
