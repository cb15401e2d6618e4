// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// How libFuzzer changes an input of fuzz_records: by its own means, or by what a record's description knows.

#include "fuzz/nxRecordMaker.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed);

namespace {
    using Form = nxRecordMaker::Form;

    // Where an element begins; the end where none does.
    std::size_t AnyElement(const std::string& xml, nxRecordMaker& maker) {
        std::vector<std::size_t> starts;
        for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
            if (at + 1 < xml.size() && xml[at + 1] != '/')
                starts.push_back(at);
        }
        return starts.empty() ? xml.size() : starts[maker.Below(starts.size())];
    }

    // The element that begins there; where its end is hidden, only its start tag.
    std::string ElementAt(const std::string& xml, std::size_t start) {
        const std::size_t tagEnd = std::min(xml.find('>', start), xml.size() - 1) + 1;
        const std::string name = xml.substr(start + 1, xml.find_first_of(" />", start) - start - 1);
        const std::size_t end = xml[tagEnd - 2] == '/' ? std::string::npos : xml.find("</" + name, tagEnd);
        return xml.substr(start, (end == std::string::npos ? tagEnd : xml.find('>', end) + 1) - start);
    }

    // With an element at another place, twice, replaced or gone, or with another one.
    std::string Bent(std::string xml, const Form& form, nxRecordMaker& maker) {
        const std::size_t start = AnyElement(xml, maker);
        if (start == xml.size())
            return maker.Document(form);
        const std::string element = ElementAt(xml, start);
        if (maker.Below(2) == 0)
            xml.erase(start, element.size());
        const unsigned int choice = maker.Below(3);
        if (choice == 0)
            xml.insert(AnyElement(xml, maker), element);
        else if (choice == 1)
            xml.insert(start, maker.Field(form));
        return xml;
    }

    std::size_t Give(const std::string& output, std::uint8_t* data, std::size_t maxSize) {
        const std::size_t size = std::min(output.size(), maxSize);
        std::copy_n(output.begin(), size, data);
        return size;
    }
} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed) {
    nxRecordMaker maker(seed);
    const std::vector<Form>& forms = nxRecordMaker::Forms();
    const std::string input(reinterpret_cast<const char*>(data), size);
    const auto found =
        std::ranges::find_if(forms, [&input](const Form& form) { return input.starts_with(form.name); });
    const unsigned int choice = maker.Below(8);
    if (found == forms.end() || choice == 0) {
        const Form& form = forms[maker.Below(forms.size())];
        return Give(form.name + maker.Document(form), data, maxSize);
    }

    const std::size_t start = found->name.size();
    if (choice < 5 && start < maxSize)
        return start + LLVMFuzzerMutate(data + start, size - start, maxSize - start);
    return Give(found->name + Bent(input.substr(start), *found, maker), data, maxSize);
}
