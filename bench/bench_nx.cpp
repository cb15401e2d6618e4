// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// The library itself, on its own records.

#include "bench/job.h"
#include "bench/mics.h"
#include "xmlFramework/market/nxMICDefinition.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <memory>
#include <stdexcept>

namespace {
    using bench::Mic;
    using bench::Mics;

    void RequireOK(const nxErrorEnum& result) {
        if (!result.IsOK())
            throw std::runtime_error("the library answers " + result.GetAsString());
    }

    void ReadMics(const std::string& text, nxMICDefinitionList& list) {
        RequireOK(list.ConvertFromXML(text, ""));
    }

    void WriteMics(nxMICDefinitionList& list, std::string& text) {
        RequireOK(list.ConvertToXML(text, ""));
    }

    void FromPlain(const Mics& mics, nxMICDefinitionList& list) {
        for (const auto& [code, mic] : mics) {
            auto definition = std::make_shared<nxMICDefinition>();
            definition->SetMIC(mic.mic);
            definition->SetCountry(mic.country);
            definition->SetIsoCountryCode(mic.isoCountryCode);
            definition->SetOperatingMIC(mic.operatingMic);
            definition->GetIsOperatingMIC(mic.isOperatingMic);
            definition->SetName(mic.name);
            definition->SetAcronym(mic.acronym);
            definition->SetCity(mic.city);
            definition->SetWebsite(mic.website);
            definition->SetStatusDate(mic.statusDate);
            definition->SetIsActive(mic.isActive);
            definition->SetCreationDate(mic.creationDate);
            definition->SetComments(mic.comments);
            list.GetMICDefinitions().emplace(code, std::move(definition));
        }
    }

    void ToPlain(nxMICDefinitionList& list, Mics& mics) {
        for (const auto& [code, definition] : list.GetMICDefinitions()) {
            Mic mic;
            mic.mic = definition->GetMIC();
            mic.country = definition->GetCountry();
            mic.isoCountryCode = definition->GetIsoCountryCode();
            mic.operatingMic = definition->GetOperatingMIC();
            mic.isOperatingMic = definition->GetIsOperatingMIC();
            mic.name = definition->GetName();
            mic.acronym = definition->GetAcronym();
            mic.city = definition->GetCity();
            mic.website = definition->GetWebsite();
            mic.statusDate = definition->GetStatusDate();
            mic.isActive = definition->GetIsActive();
            mic.creationDate = definition->GetCreationDate();
            mic.comments = definition->GetComments();
            mics.emplace(code, std::move(mic));
        }
    }
} // namespace

int main(int argc, char** argv) {
    const bench::Codec<Mics, nxMICDefinitionList> mics{ReadMics, WriteMics, FromPlain, ToPlain};
    std::vector<bench::Job> jobs;
    for (const auto& document : bench::MicDocuments())
        jobs.push_back(bench::MakeJob(document, mics));
    return bench::RunStack(argc, argv, "XMLFramework", jobs);
}
