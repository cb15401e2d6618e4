// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

// Small documents for the command `xmlframework`.

inline std::string Mapping(const std::string& path, const std::string& id) {
    return "<AlgoMapping><AlgoPath>" + path + "</AlgoPath><AlgoID>" + id + "</AlgoID></AlgoMapping>";
}
inline std::string MappingList(const std::string& mappings) {
    return "<AlgoIDMappingList><AlgoIDMappings>" + mappings + "</AlgoIDMappings></AlgoIDMappingList>";
}
inline std::string MICList(const std::string& items) {
    return "<MICDefinitionList><MICDefinitions>" + items + "</MICDefinitions></MICDefinitionList>";
}
