// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// makeMaterial FOLDER
//
// What the fuzzer of records starts from, made of what the records and their pages say:
//
//   FOLDER/fuzz_records.dict   names of elements and attributes and texts of values, as libFuzzer reads them
//   FOLDER/fuzz_records/       the examples of docs/formats, and a document of each record

#include "fuzz/nxRecordMaker.h"
#include "tests/support/nxFormatExamples.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>

namespace {
    using Words = std::set<std::string>;

    void CollectWords(const std::vector<nxXMLFieldDescription>& fields, Words& words) {
        for (const nxXMLFieldDescription& field : fields) {
            words.insert({field.name, field.itemName, field.value.minimum, field.value.maximum,
                          field.value.null, field.value.noChange});
            words.insert(field.value.texts.begin(), field.value.texts.end());
            CollectWords(field.itemFields, words);
        }
    }

    std::string Quoted(const std::string& word) {
        std::string quoted = "\"";
        for (const char c : word) {
            if (c == '"' || c == '\\')
                quoted += '\\';
            quoted += c;
        }
        return quoted + "\"\n";
    }

    std::string Dictionary() {
        Words words;
        for (const nxRecordMaker::Form& form : nxRecordMaker::Forms()) {
            words.insert(form.description.root);
            CollectWords(form.description.fields, words);
        }
        words.erase("");
        std::string dictionary;
        for (const std::string& word : words)
            dictionary += Quoted(word);
        return dictionary;
    }

    void Write(const std::filesystem::path& path, const std::string& text) {
        std::ofstream file(path, std::ios::binary);
        if (!(file << text).flush())
            throw std::runtime_error("cannot write " + path.string());
    }

    void WriteSeeds(const std::filesystem::path& folder) {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        for (const std::string& page : nxFormatExamples::Pages()) {
            for (const auto& example : nxFormatExamples::ExamplesOf(page))
                Write(folder / (page + "-" + std::to_string(example.line)), example.record + example.xml);
        }
        nxRecordMaker maker(1);
        for (const nxRecordMaker::Form& form : nxRecordMaker::Forms())
            Write(folder / form.name, form.name + maker.Document(form));
    }
} // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    try {
        const std::filesystem::path folder = argv[1];
        WriteSeeds(folder / "fuzz_records");
        Write(folder / "fuzz_records.dict", Dictionary());
        return testing::Test::HasFailure() ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
