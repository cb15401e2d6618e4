// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "core/nxCSVFileReader.h"
#include "tool/commands.h"
#include "tool/micRegister.h"
#include "tool/printable.h"
#include "tool/recordFile.h"
#include "tool/rewriting.h"
#include "xmlFramework/market/nxMICDefinitionList.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <set>

namespace {
    using namespace tool;

    constexpr char UTF8Option[] = "utf-8";
    constexpr char Windows1252Option[] = "windows-1252";

    struct Options {
        Rewriting xml{{}, std::string(StandardStream)};
        std::string csv;
        std::string encoding; // empty: to be detected
    };

    using MICs = RecordOf<nxMICDefinitionList>;

    std::optional<MICRegister> ReadRegisterOrComplain(const Options& options) {
        std::string csv;
        std::string problem;
        const nxErrorEnum result = ReadInput(options.csv, csv, problem);
        if (!result.IsOK()) {
            std::cerr << FailureLines(options.csv, result, problem);
            return std::nullopt;
        }

        std::optional<TextEncoding> encoding;
        if (!options.encoding.empty())
            encoding = options.encoding == UTF8Option ? TextEncoding::UTF8 : TextEncoding::Windows1252;
        MICRegister mics = ReadMICRegister(csv, encoding);
        if (mics.problem.empty())
            return mics;
        std::cerr << FailureLines(options.csv, nxErrorEnum::InputNotUsable, mics.problem);
        return std::nullopt;
    }

    // Its record is null, which is said on standard error, when the file holds no MIC definition list.
    RecordFile ReadMICsOrComplain(const std::string& path, nxMICDefinitionList*& mics) {
        RecordFile file = ReadRecordOrComplain(path);
        if (auto* const ours = dynamic_cast<MICs*>(file.record.get())) {
            mics = &ours->Get();
            return file;
        }
        if (file.record)
            std::cerr << FailureLines(path, nxErrorEnum::InvalidData, "this is no MIC definition list");
        file.record = nullptr;
        return file;
    }

    ExitStatus WriteMICs(const std::string& from, const std::string& to, Record& mics, ExitStatus status) {
        std::string xml;
        const bool isWritten = WriteXML(from, mics, *FindKindByCode("XMIC"), xml) && WriteOutput(to, xml);
        return isWritten ? status : SomethingBad;
    }

    // Adds a definition. A row that is not full becomes an unusable one.
    bool Add(const MICRegister::Row& row, nxMICDefinitionList& mics, MICRegister& source) {
        auto definition = std::make_shared<nxMICDefinition>();
        definition->ConvertFromCSV(row.columns);
        if (std::string missing = FindMissingValue(row); !missing.empty()) {
            source.unusableRows.push_back({row.line, std::move(missing), definition->GetMIC()});
            return false;
        }
        mics.GetMICDefinitions().emplace(definition->GetMIC(), definition);
        return true;
    }

    // What the register holds that the definitions cannot, and how many of its rows were used.
    ExitStatus Report(const std::string& path, MICRegister& source) {
        std::ranges::stable_sort(source.unusableRows, {}, &MICRegister::UnusableRow::line);
        const std::string name = DisplayName(path);
        for (const auto& row : source.unusableRows)
            std::cerr << name << ':' << row.line << ": row not used: " << Printable(row.reason) << '\n';

        if (!source.headingsNotHeld.empty()) {
            std::cerr << name << ": note: a MIC definition does not hold these columns:";
            for (const std::string& heading : source.headingsNotHeld)
                std::cerr << (&heading == &source.headingsNotHeld.front() ? " " : ", ") << Printable(heading);
            std::cerr << '\n';
        }
        if (!source.hasCountry)
            std::cerr << name << ": note: this layout has no country names\n";

        const std::size_t unusable = source.unusableRows.size();
        const std::size_t rows = source.rows.size() + unusable;
        std::cerr << name << ": " << rows << " rows in " << GetName(source.encoding) << ", "
                  << rows - unusable << " used, " << unusable << " not used\n";
        return unusable == 0 ? AllGood : SomeLeftOut;
    }

    ExitStatus Import(const Options& options) {
        std::optional<MICRegister> source = ReadRegisterOrComplain(options);
        if (!source)
            return SomethingBad;

        MICs mics;
        std::erase_if(source->rows,
                      [&](const MICRegister::Row& row) { return !Add(row, mics.Get(), *source); });
        const ExitStatus status = Report(options.csv, *source);
        return WriteMICs(options.csv, options.xml.output, mics, status);
    }

    // The row with only those columns that say something else than the definition does, so that an update
    // tells true changes.
    nxCSVFileRow Differences(const nxCSVFileRow& row, const nxMICDefinition& definition) {
        nxCSVFileRow held;
        definition.ConvertToCSV(held);
        nxCSVFileRow differences;
        differences.AddColumn(row.GetColValue(0)); // the MIC
        for (unsigned int i = 1; i < row.GetColCount(); ++i) {
            const std::string text = row.GetColValue(i);
            differences.AddColumn(nxCSVFileReader::GetAsCSVColumn(text) == held.GetColValue(i) ? "" : text);
        }
        return differences;
    }

    // Brings definitions up to date and tells of each that changes.
    class Updater {
    public:
        Updater(nxMICDefinitionList& mics, std::ostream& report) : _mics(mics), _report(report) {}

        // False when the row is not used.
        bool Update(const MICRegister::Row& row, MICRegister& source) {
            const std::string mic = row.columns.GetColValue(0);
            const auto known = _mics.GetMICDefinitions().find(mic);
            if (known == _mics.GetMICDefinitions().end())
                return AddNew(mic, row, source);

            std::string changes;
            known->second->UpdateFromCSV(Differences(row.columns, *known->second), changes);
            if (changes.empty())
                return true;
            _report << mic << ": " << Printable(changes) << '\n';
            ++_changed;
            return true;
        }

        // The definitions of which the register says nothing, not even in a row that cannot be used.
        void TellGone(const MICRegister& source) {
            std::set<std::string> seen;
            for (const auto& row : source.rows)
                seen.insert(row.columns.GetColValue(0));
            for (const auto& row : source.unusableRows)
                seen.insert(row.mic);
            for (const auto& [mic, definition] : _mics.GetMICDefinitions()) {
                if (seen.contains(mic))
                    continue;
                _report << Printable(mic) << ": gone from the register, kept\n";
                ++_gone;
            }
        }

        void TellTotals() { _report << _changed << " changed, " << _new << " new, " << _gone << " gone\n"; }

    private:
        bool AddNew(const std::string& mic, const MICRegister::Row& row, MICRegister& source) {
            if (!Add(row, _mics, source))
                return false;
            _report << mic << ": new, name='" << Printable(_mics.GetMICDefinitions()[mic]->GetName())
                    << "'\n";
            ++_new;
            return true;
        }

        nxMICDefinitionList& _mics;
        std::ostream& _report;
        std::size_t _changed = 0;
        std::size_t _new = 0;
        std::size_t _gone = 0;
    };

    ExitStatus Update(const Options& options) {
        nxMICDefinitionList* mics = nullptr;
        const RecordFile file = ReadMICsOrComplain(options.xml.input, mics);
        const std::optional<ExitStatus> judged = file.record ? JudgeLosses(options.xml, file) : std::nullopt;
        std::optional<MICRegister> source = judged ? ReadRegisterOrComplain(options) : std::nullopt;
        if (!source)
            return SomethingBad;

        // Standard output is for what the command makes: the document, or else the list of changes.
        Updater updater(*mics, IsStandardOutput(options.xml.output) ? std::cerr : std::cout);
        std::erase_if(source->rows,
                      [&](const MICRegister::Row& row) { return !updater.Update(row, *source); });
        updater.TellGone(*source);
        updater.TellTotals();
        const ExitStatus status = std::max(*judged, Report(options.csv, *source));
        return WriteMICs(options.xml.input, options.xml.output, *file.record, status);
    }

    // Documents may hold MICs that a register does not.
    ExitStatus ReportRefused(const std::string& path, const std::string& csv) {
        const MICRegister again = ReadMICRegister(csv, TextEncoding::UTF8);
        for (const auto& row : again.unusableRows)
            std::cerr << DisplayName(path) << ": note: no import will use this row: " << Printable(row.reason)
                      << '\n';
        return again.unusableRows.empty() ? AllGood : SomeLeftOut;
    }

    ExitStatus Export(const Options& options) {
        nxMICDefinitionList* mics = nullptr;
        const RecordFile file = ReadMICsOrComplain(options.xml.input, mics);
        const std::optional<ExitStatus> judged = file.record ? JudgeLosses(options.xml, file) : std::nullopt;
        if (!judged)
            return SomethingBad;
        const std::string csv = WriteMICRegister(*mics);
        const ExitStatus status = std::max(*judged, ReportRefused(options.xml.input, csv));
        return WriteOutput(options.xml.output, csv) ? status : SomethingBad;
    }

    using Job = ExitStatus (*)(const Options&);

    std::shared_ptr<Options> SetJob(CLI::App& command, Command& chosen, Job job) {
        const auto options = std::make_shared<Options>();
        command.callback([options, &chosen, job] { chosen.run = [options, job] { return job(*options); }; });
        return options;
    }

    void AddXML(CLI::App& command, Options& options) {
        command.add_option("MICS.xml", options.xml.input, "MIC definition list; - is standard input")
            ->required();
    }
    void AddRegister(CLI::App& command, Options& options) {
        command.add_option("REGISTER.csv", options.csv, "Register as published; - is standard input")
            ->required();
        command
            .add_option("--encoding", options.encoding, "The register's encoding, instead of detecting it")
            ->check(CLI::IsMember({UTF8Option, Windows1252Option}));
    }
    void AddOutput(CLI::App& command, Options& options) {
        command.add_option("-o,--output", options.xml.output, "File to write instead of standard output");
    }
} // namespace

void tool::AddMICCommands(CLI::App& program, Command& chosen) {
    CLI::App& mic = *program.add_subcommand("mic", "Market identifier codes: the ISO 10383 register");
    mic.require_subcommand(1);

    CLI::App& import = *mic.add_subcommand("import", "Make a MIC definition list of a register");
    const auto importOptions = SetJob(import, chosen, Import);
    AddRegister(import, *importOptions);
    AddOutput(import, *importOptions);

    CLI::App& update = *mic.add_subcommand("update", "Bring a MIC definition list up to date by a register");
    const auto updateOptions = SetJob(update, chosen, Update);
    AddXML(update, *updateOptions);
    AddRegister(update, *updateOptions);
    AddOutput(update, *updateOptions);
    update.add_flag("--lossy", updateOptions->xml.isLossy,
                    "Write over MICS.xml even where the list does not hold all of it");

    CLI::App& publish = *mic.add_subcommand("export", "Make a register of a MIC definition list");
    const auto publishOptions = SetJob(publish, chosen, Export);
    AddXML(publish, *publishOptions);
    AddOutput(publish, *publishOptions);
}
