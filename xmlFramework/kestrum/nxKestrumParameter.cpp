// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumParameter.h"

#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/kestrum/nxKestrumParameterTemplate.h"

#include <algorithm>
#include <iterator>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumParameter";

    struct Maker {
        unsigned int type;
        nxKestrumParameter* (*make)();
    };

    template <class Parameter>
    nxKestrumParameter* Make() {
        return new Parameter;
    }

    constexpr Maker Makers[] = {
        {nxKestrumParameterTypeEnum::Price, Make<nxKestrumPriceParameter>},
        {nxKestrumParameterTypeEnum::Unsigned, Make<nxKestrumUnsignedParameter>},
        {nxKestrumParameterTypeEnum::Quantity, Make<nxKestrumQuantityParameter>},
        {nxKestrumParameterTypeEnum::Text, Make<nxKestrumTextParameter>},
        {nxKestrumParameterTypeEnum::Decimal, Make<nxKestrumDecimalParameter>},
        {nxKestrumParameterTypeEnum::FloatingPoint, Make<nxKestrumFloatingPointParameter>},
        {nxKestrumParameterTypeEnum::Signed, Make<nxKestrumSignedParameter>},
        {nxKestrumParameterTypeEnum::Boolean, Make<nxKestrumBooleanParameter>},
        {nxKestrumParameterTypeEnum::Instrument, Make<nxKestrumInstrumentParameter>},
        {nxKestrumParameterTypeEnum::DateTime, Make<nxKestrumDateTimeParameter>},
        {nxKestrumParameterTypeEnum::Account, Make<nxKestrumAccountParameter>},
    };
} // namespace

nxKestrumParameter::~nxKestrumParameter() = default;

nxKestrumParameter* nxKestrumParameter::CreateInstance(const nxKestrumParameterTypeEnum& type) {
    const auto* const maker = std::ranges::find(Makers, type.GetEnumValue(), &Maker::type);
    if (maker != std::end(Makers))
        return maker->make();

    nxWriteLog({nxLogLevels::Error, SourceFile},
               "Failed to create nxKestrumParameter instance for parameterType: ", type);
    return nullptr;
}
