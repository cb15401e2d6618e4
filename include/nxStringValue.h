// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxValueStatusEnum.h"
#include "include/nxInitializers.h"

#include <string>
#include <utility>

// A text that can also be null or "no change".
class nxStringValue {
public:
    nxStringValue() = default; // null
    nxStringValue(std::string value) : _value(std::move(value)), _status(nxValueStatusEnum::Valid) {}
    nxStringValue(const char* value) : nxStringValue(std::string(value)) {}
    nxStringValue(nxNullInitalizer) {}
    nxStringValue(nxNoChangeInitalizer) : _status(nxValueStatusEnum::NoChange) {}

    bool IsNull() const { return _status == nxValueStatusEnum::Null; }
    bool IsNoChange() const { return _status == nxValueStatusEnum::NoChange; }
    bool IsValid() const { return _status == nxValueStatusEnum::Valid; }
    nxValueStatusEnum GetStatus() const { return _status; }
    const std::string& GetValue() const { return _value; } // empty unless valid

    bool operator==(const nxStringValue&) const = default;

private:
    std::string _value;
    nxValueStatusEnum _status = nxValueStatusEnum::Null;
};
