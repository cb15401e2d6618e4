// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Describes an algorithm, fills a job for it, sends both through XML, and checks the job's parameters against
// the algorithm as whoever starts the job does.

#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/kestrum/nxKestrumParameterTemplate.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {
    using Type = nxKestrumParameterTypeEnum;

    nxKestrumAlgorithmSpec MakeAlgorithm() {
        nxKestrumAlgorithmSpec algorithm;
        algorithm.SetScriptSourceCode("while remaining > 0 && price <= limit:\n\tbuy(clip)\n");
        algorithm.AddScriptParameterDefinition({"Limit", Type::Price, false});
        algorithm.AddScriptParameterDefinition({"Contracts", Type::Quantity, false});
        nxKestrumParameterDefinition style("Style", Type::Text, true);
        style.SetValidValues({"passive", "eager"});
        algorithm.AddScriptParameterDefinition(style);
        algorithm.AddModule("schedule");
        return algorithm;
    }

    nxKestrumJobSpec MakeJob() {
        const nxKestrumPriceParameter limit("Limit", nxDecimal(10150, 2));
        const nxKestrumQuantityParameter contracts("Contracts", 40);
        nxKestrumTextParameter style; // not set, so it does not get into the user string
        style.SetName("Style");

        std::string userString;
        const std::vector<const nxKestrumParameter*> parameters{&limit, &contracts, &style};
        nxKestrumAlgorithmSpec::AddParametersToUserString(parameters, userString);

        nxKestrumJobSpec job;
        job.SetAlgorithmSpecName("buy & hold");
        job.SetParameters(userString);
        job.SetAccountID(4711);
        nxKestrumLimit contextLimit("", 0, 40, 40, 0, 5, "", 4711);
        contextLimit.SetContextLimit();
        job.AddLimit(contextLimit);
        return job;
    }

    // Writes one record and reads it into another. False, said on standard error, when either fails.
    template <class Record>
    bool SendThroughXML(Record& sent, Record& received) {
        std::string xml;
        nxErrorEnum result = sent.ConvertToXML(xml, "");
        if (result.IsOK())
            result = received.ConvertFromXML(xml, "kestrum_job: ");
        if (!result.IsOK())
            std::cerr << "not sent: " << result.GetLongDescription() << '\n';
        return result.IsOK();
    }

    // Prints the parameters of a user string, and whether a job can be started with them.
    bool CheckParameters(const nxKestrumAlgorithmSpec& algorithm, const std::string& userString) {
        std::vector<nxKestrumParameter*> parameters;
        const nxErrorEnum result = algorithm.ExtractParametersFromUserString(userString, parameters);
        // They are ours, also those that came before a failure.
        const std::vector<std::unique_ptr<nxKestrumParameter>> owned(parameters.begin(), parameters.end());

        for (const auto& parameter : owned) {
            std::string text;
            parameter->PersistValueToString(text);
            std::cout << "  " << parameter->GetName() << " = " << text << " ("
                      << parameter->GetParameterType().GetShortDescription() << ")\n";
        }
        std::string problem;
        const bool good = result.IsOK() && algorithm.ValidateParameters(parameters, problem);
        if (!result.IsOK())
            problem = result.GetLongDescription();
        std::cout << (good ? "  can be started" : "  " + problem) << '\n';
        return good;
    }
} // namespace

int main() {
    nxKestrumAlgorithmSpec algorithm = MakeAlgorithm();
    nxKestrumAlgorithmSpec receivedAlgorithm;
    nxKestrumJobSpec job = MakeJob();
    nxKestrumJobSpec receivedJob;
    if (!SendThroughXML(algorithm, receivedAlgorithm) || !SendThroughXML(job, receivedJob))
        return 1;
    if (receivedAlgorithm.GetScriptSourceCode() != algorithm.GetScriptSourceCode() ||
        receivedJob.GetParameters() != job.GetParameters() || receivedJob.GetLimits().size() != 1)
        return 1;

    std::cout << receivedJob.GetAlgorithmSpecName() << ":\n";
    const bool complete = CheckParameters(receivedAlgorithm, receivedJob.GetParameters());
    std::cout << "without contracts:\n";
    const bool incomplete = CheckParameters(receivedAlgorithm, "Limit=101.50\x01");
    return complete && !incomplete ? 0 : 1;
}
