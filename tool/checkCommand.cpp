// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/collectedLog.h"
#include "tool/commands.h"
#include "tool/printable.h"
#include "tool/recordFile.h"
#include "tool/terminal.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace {
    using namespace tool;

    struct Options {
        std::vector<std::string> files;
        std::string type;
        std::string algorithm;
    };

    using Algorithm = RecordOf<nxKestrumAlgorithmSpec>;
    using Job = RecordOf<nxKestrumJobSpec>;

    // Whether the job's parameters are what the algorithm takes; if not, `problem` says why.
    nxErrorEnum CheckParameters(const nxKestrumAlgorithmSpec& algorithm, const nxKestrumJobSpec& job,
                                std::string& problem) {
        std::vector<nxKestrumParameter*> parameters;
        const nxErrorEnum result = algorithm.ExtractParametersFromUserString(job.GetParameters(), parameters);
        const std::vector<std::unique_ptr<nxKestrumParameter>> owned(parameters.begin(), parameters.end());
        if (!result.IsOK()) {
            problem = "the parameters are malformed, or not those of the algorithm";
            if (!owned.empty() && owned.back()->IsNull())
                problem += "; the last one read is " + owned.back()->GetName();
            return result;
        }
        return algorithm.ValidateParameters(parameters, problem) ? nxErrorEnum::OK : nxErrorEnum::InvalidData;
    }

    // Prints what there is to say of the file. True when it is good.
    bool CheckFile(const std::string& path, const RecordKind* kind, const Algorithm* algorithm,
                   ProgressBar& progress) {
        RecordFile file = ReadRecord(path, kind);
        if (file.result.IsOK()) {
            file.result = file.record->IsValid();
            file.problem = "the record is read, but not valid";
        }
        const auto* const job = algorithm ? dynamic_cast<Job*>(file.record.get()) : nullptr;
        if (job && file.result.IsOK())
            file.result = CheckParameters(algorithm->Get(), job->Get(), file.problem);

        progress.Hide();
        if (!file.result.IsOK()) {
            std::cout << FailureLines(path, file.result, file.problem);
            return false;
        }
        std::cout << Printable(path) << ": OK (" << file.kind->title << ", "
                  << file.record->MakeView().summary << ")\n"
                  << TakeLogLines();
        return true;
    }

    ExitStatus Check(const Options& options) {
        const RecordKind* const kind = FindKindByCode(options.type);
        RecordFile algorithmFile;
        if (!options.algorithm.empty()) {
            algorithmFile = ReadRecordOrComplain(options.algorithm);
            if (!algorithmFile.record)
                return SomethingBad;
        }
        const auto* const algorithm = dynamic_cast<const Algorithm*>(algorithmFile.record.get());
        if (algorithmFile.record && !algorithm) {
            std::cerr << "xmlframework: " << Printable(options.algorithm) << " is no Kestrum algorithm\n";
            return WrongUse;
        }

        ExitStatus status = AllGood;
        ProgressBar progress(options.files.size());
        for (std::size_t i = 0; i < options.files.size(); ++i) {
            if (!CheckFile(options.files[i], kind, algorithm, progress))
                status = SomethingBad;
            progress.Show(i + 1);
        }
        return status;
    }

    std::vector<std::string> Codes() {
        std::vector<std::string> codes;
        for (const RecordKind& kind : RecordKinds()) {
            if (!kind.code.empty())
                codes.push_back(kind.code);
        }
        return codes;
    }
} // namespace

void tool::AddCheckCommand(CLI::App& program, Command& chosen) {
    auto* const command = program.add_subcommand("check", "Read files and say whether they are good");
    const auto options = std::make_shared<Options>();
    command->add_option("FILE", options->files, "Documents; - is standard input")->required();
    command->add_option("--type", options->type, "Category code of the records, whatever their root elements")
        ->check(CLI::IsMember(Codes()));
    command->add_option(
        "--algorithm", options->algorithm,
        "Algorithm specification against which the parameters of job specifications are checked");
    command->callback([options, &chosen] { chosen = [options] { return Check(*options); }; });
}
