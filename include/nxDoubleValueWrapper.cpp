// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxDoubleValueWrapper.h"

#include "core/nxStringHelper.h"

nxValueStatusEnum nxDoubleValueWrapper::GetStatus() const {
    if (IsNull())
        return nxValueStatusEnum::Null;
    return IsNoChange() ? nxValueStatusEnum::NoChange : nxValueStatusEnum::Valid;
}

void nxDoubleValueWrapper::AppendAsString(std::string& text) const {
    if (IsValid())
        nxStringHelper::AppendAsString(text, _value);
}

std::string nxDoubleValueWrapper::GetAsString() const {
    std::string text;
    AppendAsString(text);
    return text;
}

std::string nxDoubleValueWrapper::GetAsLogString() const {
    // Null shows the digits of its reserved value: log readers know them.
    return IsNoChange() ? "NO_CHANGE" : nxStringHelper::GetAsString(_value);
}

nxErrorEnum nxDoubleValueWrapper::SetFromString(std::string_view text) {
    const nxErrorEnum result = nxStringHelper::SetFromString(text, _value, '.');
    if (!result.IsOK())
        SetNull();
    return result;
}
