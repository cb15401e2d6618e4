// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "tests/support/nxRandomText.h"
#include "xmlFramework/xml/nxXMLDescription.h"

#include <string>
#include <vector>

// Makes documents of records by their descriptions: most fields hold a value of their type, some another one,
// some stand twice or not at all.
class nxRecordMaker {
public:
    struct Form {
        std::string name; // which stands before the document in an input of the fuzzer
        nxXMLDescription description;
    };
    static const std::vector<Form>& Forms();

    explicit nxRecordMaker(unsigned int seed) : _random(seed) {}

    unsigned int Below(std::size_t bound) { return _random.Below(static_cast<unsigned int>(bound)); }
    std::string Document(const Form& form);
    // Any field that the form has at any depth.
    std::string Field(const Form& form);

private:
    using Fields = std::vector<nxXMLFieldDescription>;

    std::string _Element(const std::string& name, const Fields& fields, const std::string& key);
    std::string _Field(const nxXMLFieldDescription& field, const std::string& key);
    std::string _Items(const nxXMLFieldDescription& field);
    std::string _Item(const nxXMLFieldDescription& field, unsigned int number);
    std::string _Value(const nxXMLValueDescription& value);
    std::string _AnyText();
    template <class Choices>
    auto _One(const Choices& choices) {
        return choices[Below(std::size(choices))];
    }

    nxRandomText _random;
};
