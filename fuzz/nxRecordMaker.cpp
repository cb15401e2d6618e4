// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "fuzz/nxRecordMaker.h"

#include "tests/support/nxRecordClasses.h"

#include <iterator>
#include <string_view>

namespace {
    using Kind = nxXMLFieldDescription::Kind;
    using ItemNames = nxXMLFieldDescription::ItemNames;
    using Type = nxXMLValueDescription::Type;

    std::string Enclosed(const std::string& name, const std::string& attributes, const std::string& content) {
        return "<" + name + attributes + (content.empty() ? "/>" : ">" + content + "</" + name + ">");
    }

    std::string Escaped(const std::string& text) {
        std::string xml;
        for (const char c : text)
            xml += std::string_view("<>&\"\t\n\r").find(c) == std::string_view::npos
                       ? std::string(1, c)
                       : "&#" + std::to_string(static_cast<int>(c)) + ";";
        return xml;
    }
} // namespace

const std::vector<nxRecordMaker::Form>& nxRecordMaker::Forms() {
    static const std::vector<Form> forms = [] {
        std::vector<Form> made;
        nxRecordClasses::All::ForEach([&made]<class Record>(std::type_identity<Record>) {
            made.push_back({nxRecordClasses::NameOf<Record>(), Record::GetDocumentDescription()});
        });
        return made;
    }();
    return forms;
}

std::string nxRecordMaker::Document(const Form& form) {
    return _Element(form.description.root, form.description.fields, {});
}

std::string nxRecordMaker::Field(const Form& form) {
    const Fields* fields = &form.description.fields;
    for (;;) {
        const nxXMLFieldDescription& field = (*fields)[Below(fields->size())];
        if (field.itemFields.empty() || Below(4) == 0)
            return _Field(field, _random.Key());
        fields = &field.itemFields;
    }
}

std::string nxRecordMaker::_Element(const std::string& name, const Fields& fields, const std::string& key) {
    std::string attributes;
    std::string content;
    for (const nxXMLFieldDescription& field : fields) {
        if (field.kind == Kind::Attribute)
            attributes += _Field(field, key);
        else if (Below(16) > 0)
            content += _Field(field, key);
        if (field.kind == Kind::Element && Below(32) == 0)
            content += _Field(field, key);
    }
    return Enclosed(name, attributes, content);
}

std::string nxRecordMaker::_Field(const nxXMLFieldDescription& field, const std::string& key) {
    if (field.kind == Kind::List)
        return Enclosed(field.name, {}, _Items(field));
    if (field.kind == Kind::Items)
        return _Items(field);
    const std::string value = field.isKey && !key.empty() ? key : _Value(field.value);
    return field.kind == Kind::Attribute ? " " + field.name + "=\"" + value + "\""
                                         : Enclosed(field.name, {}, value);
}

std::string nxRecordMaker::_Items(const nxXMLFieldDescription& field) {
    std::string items;
    const unsigned int count = Below(4);
    for (unsigned int i = 0; i < count; ++i)
        items += _Item(field, i);
    return items;
}

std::string nxRecordMaker::_Item(const nxXMLFieldDescription& field, unsigned int number) {
    std::string name = field.itemName;
    std::string key;
    if (field.itemNames == ItemNames::WithKey)
        name += key = _random.Key();
    else if (field.itemNames == ItemNames::WithNumber)
        name += std::to_string(number);
    return field.itemFields.empty() ? Enclosed(name, {}, _Value(field.value))
                                    : _Element(name, field.itemFields, key);
}

std::string nxRecordMaker::_Value(const nxXMLValueDescription& value) {
    static constexpr std::string_view Flags[] = {"true", "false", "1", "0", "TRUE"};
    static constexpr std::string_view Decimals[] = {"",      "0",     "1.50",          "-0.001",
                                                    "00.10", "-0.00", ".999999999999", "123456789012345678"};
    static constexpr std::string_view Times[] = {"", "00:00:00", "08:30:00.5", "23:59:59.999999999"};

    if (Below(16) == 0)
        return _AnyText();
    switch (value.type) {
    case Type::Text:
        return _AnyText();
    case Type::Texts:
        return _random.Key() + "," + _random.Key();
    case Type::Flag:
        return std::string(_One(Flags));
    case Type::Decimal:
        return std::string(_One(Decimals));
    case Type::Time:
        return std::string(_One(Times));
    case Type::Number:
        if (const unsigned int choice = Below(6); choice < 2)
            return choice == 0 ? value.minimum : value.maximum;
        else if (choice == 2 && !value.texts.empty())
            return _One(value.texts);
        return std::to_string(Below(1000));
    case Type::Enumeration:
        return Escaped(_One(value.texts));
    }
    return {};
}

std::string nxRecordMaker::_AnyText() {
    static constexpr std::string_view Hard[] = {
        "",     "a=1^^|^^b=^^|^^", "a=^^|",         "NULL", "NO_CHANGE", "-1", "4294967296",
        "<b/>", "a<!--b-->c",      "<![CDATA[a]]>", " a ",  "a,,b,",     "1e5"};
    return Below(3) == 0 ? std::string(_One(Hard)) : Escaped(_random.Text());
}
