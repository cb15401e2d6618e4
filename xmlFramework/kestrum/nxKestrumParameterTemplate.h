// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxBoolEnum.h"
#include "core/nxDateTime.h"
#include "core/nxDecimal.h"
#include "include/nxDoubleValueWrapper.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/kestrum/nxKestrumParameter.h"

#include <string>

// The parameter of the type numbered `ID`, with a value of type `T`. Null unless constructed with a value:
//
//     nxKestrumPriceParameter price("Limit price", nxDecimal(10150, 2)); // 101.50
//
// Texts by value type:
//
// nxDecimal: digits with '.'; the empty text for null.
//
// nxUnsignedValueWrapper, nxIntValueWrapper: decimal digits. Null and no change are written as the empty
// text, which is not read: only digits are, those of the reserved values included.
//
// nxDoubleValueWrapper: as the integers, in the form of nxStringHelper::GetAsString(double).
//
// std::string: the text as it stands; the empty text is null.
//
// nxBoolEnum: its short description, "true" or "false" (see docs/enumerations.md). Undefined is null.
//
// nxDateTime: written as nxDateTime::DocumentFormat, to the second, and as the empty text for null; read in
// any form that nxDateTime reads.
template <unsigned int ID, class T>
class XMLFRAMEWORK_API nxKestrumParameterTemplate : public nxKestrumParameter {
public:
    nxKestrumParameterTemplate();
    nxKestrumParameterTemplate(const std::string& name, const T& value);
    nxKestrumParameterTemplate(const nxKestrumParameterTemplate&) = default;
    nxKestrumParameterTemplate& operator=(const nxKestrumParameterTemplate&) = default;

    nxKestrumParameterTemplate* CopyInstance() const override;
    nxKestrumParameterTypeEnum GetParameterType() const override;
    bool IsNull() const override;
    void SetNull() override;
    void PersistValueToString(std::string& out) const override;
    nxErrorEnum PersistValueFromString(const std::string& text) override;

    const T& GetValue() const { return _value; }
    void SetValue(const T& value) { _value = value; }

protected:
    // The rules of the value type, on any value of it.
    nxErrorEnum _SetFromString(const std::string& text, T& value);
    void _GetAsString(const T& value, std::string& out) const;
    bool _IsNull(const T& value) const;
    void _SetNull(T& value) const;

private:
    T _value;
};

using nxKestrumPriceParameter = nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Price, nxDecimal>;
using nxKestrumUnsignedParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Unsigned, nxUnsignedValueWrapper>;
using nxKestrumQuantityParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Quantity, nxUnsignedValueWrapper>;
using nxKestrumTextParameter = nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Text, std::string>;
using nxKestrumDecimalParameter = nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Decimal, nxDecimal>;
using nxKestrumFloatingPointParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::FloatingPoint, nxDoubleValueWrapper>;
using nxKestrumSignedParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Signed, nxIntValueWrapper>;
using nxKestrumBooleanParameter = nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Boolean, nxBoolEnum>;
using nxKestrumInstrumentParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Instrument, std::string>;
using nxKestrumDateTimeParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::DateTime, nxDateTime>;
using nxKestrumAccountParameter =
    nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Account, std::string>;

extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Price, nxDecimal>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Unsigned,
                                                 nxUnsignedValueWrapper>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Quantity,
                                                 nxUnsignedValueWrapper>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Text, std::string>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Decimal, nxDecimal>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::FloatingPoint,
                                                 nxDoubleValueWrapper>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Signed, nxIntValueWrapper>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Boolean, nxBoolEnum>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Instrument, std::string>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::DateTime, nxDateTime>;
extern template class nxKestrumParameterTemplate<nxKestrumParameterTypeEnum::Account, std::string>;
