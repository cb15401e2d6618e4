// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxStringHelper.h"
#include "tool/checkOutcome.h"
#include "tool/commands.h"
#include "tool/inputFiles.h"
#include "tool/parallel.h"
#include "tool/printable.h"
#include "tool/recordFile.h"
#include "tool/terminal.h"
#include "tool/validity.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <new>
#include <thread>

namespace {
    using namespace tool;

    constexpr char Text[] = "text";
    constexpr char JSON[] = "json";

    struct Options {
        std::vector<std::string> files;
        std::string type;
        std::string algorithm;
        bool isStrict = false;
        bool isComplete = false;
        std::size_t jobs = 1;
        bool isQuiet = false;
        std::string format = Text;
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

    // One file in question.
    class Checker {
    public:
        Checker(const Options& options, const nxKestrumAlgorithmSpec* algorithm)
            : _options(options), _kind(FindKindByCode(options.type)), _algorithm(algorithm) {}

        CheckOutcome Check(const std::string& path) const {
            RecordFile file = ReadRecord(path, _kind);
            if (_kind)
                ForgetRootName(file.findings);
            CheckOutcome outcome;
            outcome.path = path;
            outcome.result = file.result;
            outcome.findings = std::move(file.findings);
            outcome.isStrict = _options.isStrict || _options.isComplete;
            outcome.isComplete = _options.isComplete;
            if (!file.problem.empty())
                outcome.problems.push_back(file.problem);
            outcome.log = file.log.shown;
            if (file.record)
                CheckRecord(file, outcome);
            outcome.contents = std::move(file.contents);
            return outcome;
        }

    private:
        // The one that a record of the kind would have; it does not matter.
        static void ForgetRootName(std::vector<nxXMLFinding>& findings) {
            std::erase_if(findings, [](const nxXMLFinding& finding) {
                return finding.kind == nxXMLFinding::Kind::UnknownElement &&
                       finding.path.find('/', 1) == std::string::npos;
            });
        }

        void CheckRecord(const RecordFile& file, CheckOutcome& outcome) const {
            outcome.kind = file.kind->title;
            outcome.summary = file.record->MakeView().summary;
            const Validity validity = FindValidity(file);
            outcome.result = validity.result;
            if (!validity.result.IsOK()) {
                outcome.problems.emplace_back("the record is read, but not valid");
                outcome.problems.insert(outcome.problems.end(), validity.reasons.begin(),
                                        validity.reasons.end());
            }
            const auto* const job = _algorithm ? dynamic_cast<Job*>(file.record.get()) : nullptr;
            std::string problem;
            if (job && outcome.result.IsOK())
                outcome.result = CheckParameters(*_algorithm, job->Get(), problem);
            if (!problem.empty())
                outcome.problems.push_back(problem);
            std::ranges::move(TakeLog().shown, std::back_inserter(outcome.log));
            CheckLosses(file, outcome);
        }

        static void CheckLosses(const RecordFile& file, CheckOutcome& outcome) {
            const bool hasLosses =
                file.log.hasErrors || std::ranges::any_of(outcome.findings, [&](const nxXMLFinding& finding) {
                    return outcome.Counts(finding);
                });
            if (!hasLosses)
                return;
            if (outcome.result.IsOK())
                outcome.result = nxErrorEnum::InvalidData;
            outcome.problems.emplace_back(
                "the record is read, but does not hold just what the document says");
        }

        const Options& _options;
        const RecordKind* _kind;
        const nxKestrumAlgorithmSpec* _algorithm;
    };

    // Prints what is to be seen of the outcomes, and counts them.
    class Printer {
    public:
        Printer(const Options& options, std::size_t files) : _options(options), _progress(files) {}

        struct Line {
            bool isGood;
            std::string text;
        };
        Line Format(const CheckOutcome& outcome) const {
            const bool isGood = outcome.result.IsOK();
            if (isGood && _options.isQuiet)
                return {isGood, {}};
            return {isGood, _options.format == JSON ? FormatJSON(outcome) : FormatText(outcome)};
        }
        void Print(const Line& line) {
            ++(line.isGood ? _good : _bad);
            if (!line.text.empty()) {
                _progress.Hide();
                std::cout << line.text;
            }
            _progress.Show(_good + _bad);
        }
        void PrintTotals() {
            const bool isWanted =
                _options.format == Text && _good + _bad > 1 && (!_options.isQuiet || _bad > 0);
            if (isWanted)
                std::cout << _good + _bad << " files: " << _good << " OK, " << _bad << " FAILED\n";
        }
        bool IsAllGood() const { return _bad == 0; }

    private:
        const Options& _options;
        ProgressBar _progress;
        std::size_t _good = 0;
        std::size_t _bad = 0;
    };

    // A file that takes more memory than there is keeps nobody from the others.
    Printer::Line CheckAndFormat(const std::string& path, const Checker& checker, const Printer& printer) {
        try {
            return printer.Format(checker.Check(path));
        } catch (const std::bad_alloc&) {
            static_cast<void>(TakeLog());
            CheckOutcome outcome;
            outcome.path = path;
            outcome.result = nxErrorEnum::InputNotUsable;
            outcome.problems.emplace_back("there is not enough memory");
            return printer.Format(outcome);
        }
    }

    ExitStatus CheckFiles(const Options& options, const nxKestrumAlgorithmSpec* algorithm) {
        const InputFiles files = FindInputFiles(options.files);
        for (const std::string& problem : files.problems)
            std::cerr << "xmlframework: " << problem << '\n';

        const Checker checker(options, algorithm);
        Printer printer(options, files.paths.size());
        const std::size_t threads = options.jobs > 0 ? options.jobs : std::thread::hardware_concurrency();
        WorkInOrder(
            files.paths.size(), threads,
            [&](std::size_t i) { return CheckAndFormat(files.paths[i], checker, printer); },
            [&](const Printer::Line& line) { printer.Print(line); });
        printer.PrintTotals();
        return printer.IsAllGood() && files.problems.empty() ? AllGood : SomethingBad;
    }

    ExitStatus Check(const Options& options) {
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
        return CheckFiles(options, algorithm ? &algorithm->Get() : nullptr);
    }

    // What is wrong with a number of jobs; nothing when it is one.
    std::string CheckJobs(const std::string& text) {
        constexpr unsigned int Most = 1024;
        unsigned int jobs = 0;
        return nxStringHelper::SetFromString(text, jobs).IsOK() && jobs <= Most
                   ? std::string()
                   : "'" + text + "' is no number from 0 to " + std::to_string(Most);
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
    command
        ->add_option(
            "FILE", options->files,
            "Documents; folders, for all *.xml in them; @LIST, for the paths in a file, one a line; - and "
            "@- are standard input")
        ->required();
    command->add_option("--type", options->type, "Category code of the records, whatever their root elements")
        ->check(CLI::IsMember(Codes()));
    command->add_option(
        "--algorithm", options->algorithm,
        "Algorithm specification against which the parameters of job specifications are checked");
    command->add_flag("--strict", options->isStrict, "A file is bad when the record does not hold all of it");
    command->add_flag("--complete", options->isComplete,
                      "--strict, and a file is bad when it leaves something to its default");
    command
        ->add_option("-j,--jobs", options->jobs,
                     "How many files to read at once, up to 1024; 0: as many as there are cores")
        ->check(CheckJobs)
        ->capture_default_str();
    command->add_flag("-q,--quiet", options->isQuiet, "Print only what is bad");
    command->add_option("--format", options->format, "text, or json: one object a line for each file")
        ->check(CLI::IsMember({Text, JSON}))
        ->capture_default_str();
    command->callback([options, &chosen] { chosen.run = [options] { return Check(*options); }; });
}
