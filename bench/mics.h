// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "bench/job.h"

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// Market identifier codes as plain data: the neutral form that every peer fills and writes.
namespace bench {
    struct Mic {
        std::string mic;
        std::string country;
        std::string isoCountryCode;
        std::string operatingMic;
        bool isOperatingMic = false;
        std::string name;
        std::string acronym;
        std::string city;
        std::string website;
        std::string statusDate;
        bool isActive = false;
        std::string creationDate;
        std::string comments;
    };

    using Mics = std::map<std::string, Mic>;

    // The element of one field and where its value goes; exactly one of the two members is set.
    struct MicField {
        const char* name;
        std::string Mic::*text;
        bool Mic::*flag;
    };

    inline constexpr std::array<MicField, 13> MicFields = {{
        {"MIC", &Mic::mic, nullptr},
        {"Country", &Mic::country, nullptr},
        {"ISOCountryCode", &Mic::isoCountryCode, nullptr},
        {"OperatingMIC", &Mic::operatingMic, nullptr},
        {"IsOperatingMIC", nullptr, &Mic::isOperatingMic},
        {"Name", &Mic::name, nullptr},
        {"Acronym", &Mic::acronym, nullptr},
        {"City", &Mic::city, nullptr},
        {"Website", &Mic::website, nullptr},
        {"StatusDate", &Mic::statusDate, nullptr},
        {"IsActive", nullptr, &Mic::isActive},
        {"CreationDate", &Mic::creationDate, nullptr},
        {"Comments", &Mic::comments, nullptr},
    }};

    inline constexpr const char* MicRootName = "MICDefinitionList";
    inline constexpr const char* MicContainerName = "MICDefinitions";
    inline constexpr std::string_view MicItemPrefix = "MICDefinition-";

    // The field whose element has this name; null when there is none.
    inline const MicField* FindMicField(std::string_view name) {
        for (const MicField& field : MicFields)
            if (name == field.name)
                return &field;
        return nullptr;
    }

    inline bool IsMicItemName(std::string_view name) {
        return name.size() > MicItemPrefix.size() && name.starts_with(MicItemPrefix);
    }

    inline void SetMicField(Mic& mic, const MicField& field, std::string_view text) {
        if (field.text != nullptr)
            mic.*field.text = text;
        else
            mic.*field.flag = text == "true";
    }

    inline const char* FlagText(bool flag) {
        return flag ? "true" : "false";
    }

    inline const char* MicFieldText(const Mic& mic, const MicField& field) {
        return field.text != nullptr ? (mic.*field.text).c_str() : FlagText(mic.*field.flag);
    }

    // Every field of every record, each behind its length, so that two texts are equal only for equal
    // records.
    std::string Canonical(const Mics& mics);

    // "mics": a register of 2,017 entries; "mic": a list of one. The same on every call and every machine.
    std::vector<Document<Mics>> MicDocuments();
} // namespace bench
