// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxLogLevelEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxLogLevelEnum::UndefinedValue, "UNDEFINED", "undefined", "Undefined"},
        {nxLogLevelEnum::NoChangeValue, "NO_CHANGE", "no change", "No change"},
        {nxLogLevelEnum::Trace, "TRACE", "trace", "Per-item progress"},
        {nxLogLevelEnum::Debug, "DEBUG", "debug", "What developers look at"},
        {nxLogLevelEnum::Detail, "DETAIL", "detail", "Detail of normal work"},
        {nxLogLevelEnum::Info, "INFO", "info", "Normal work"},
        {nxLogLevelEnum::Notice, "NOTICE", "notice", "Normal, but worth noting"},
        {nxLogLevelEnum::Warning, "WARNING", "warning", "Something to look into"},
        {nxLogLevelEnum::Error, "ERROR", "error", "An operation failed"},
        {nxLogLevelEnum::Fatal, "FATAL", "fatal", "The process cannot do its work"},
    };
    static_assert(nxEnumTableIsSound(Table, nxLogLevelEnum::MinValue, nxLogLevelEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxLogLevelEnum::Rows() {
    return Table;
}
