// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxDecimal.h"
#include "core/nxStringHelper.h"
#include "core/nxTime.h"
#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "include/nxWriteLog.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <concepts>
#include <string>
#include <string_view>

// The verbs with which records read and write their fields: one text child per field. Private to the library.
//
// A record states its fields once, as a function that hands each field's name and member to a visitor:
//
//     template <class Record, class Visitor>
//     static void Visit(Record& record, Visitor&& field)
//     {
//         field("Name", record._name);
//         field("IsActive", record._isActive);
//     }
//
// and reads and writes itself by visiting with a reader or a writer from here.
namespace nxXMLFields {
    // A field that brings its own text form.
    template <class T>
    concept WritesText = requires(const T& field) {
        { field.ToText() } -> std::convertible_to<std::string>;
    };
    template <class T>
    concept ReadsText = requires(T& field, const std::string& text) {
        { field.FromText(text) } -> std::same_as<nxErrorEnum>;
    };

    // A field that is more than a text: it reads and writes its element itself.
    template <class T>
    concept ReadsElement = requires(T& field, const nxXMLElement& element) {
        { field.ReadFrom(element) } -> std::same_as<nxErrorEnum>;
    };
    template <class T>
    concept WritesElement = requires(const T& field, nxXMLElement& element) {
        { field.WriteTo(element) } -> std::same_as<nxErrorEnum>;
    };
    // A field that is not always written.
    template <class T>
    concept HasCondition = requires(const T& field) {
        { field.IsWritten() } -> std::same_as<bool>;
    };

    // The text of a value in a document.
    inline const std::string& ToText(const std::string& value) {
        return value;
    }
    inline std::string ToText(const nxDecimal& value) {
        return value.GetAsString('.');
    }
    // The plain number, null and no-change as their reserved values.
    template <class T, T Null, T NoChange>
    std::string ToText(const nxValueWrapper<T, Null, NoChange>& value) {
        return nxStringHelper::GetAsString(static_cast<T>(value));
    }
    template <WritesText T>
    std::string ToText(const T& value) {
        return value.ToText();
    }
    template <class T>
    std::string ToText(const T& value) {
        return nxStringHelper::GetAsString(value);
    }

    // The value that a text in a document stands for. On failure the value is untouched.
    inline nxErrorEnum FromText(const std::string& text, nxDecimal& value) {
        return value.SetFromString(text, '.');
    }
    template <class T, T Null, T NoChange>
    nxErrorEnum FromText(const std::string& text, nxValueWrapper<T, Null, NoChange>& value) {
        return value.SetFromString(text);
    }
    template <ReadsText T>
    nxErrorEnum FromText(const std::string& text, T& value) {
        return value.FromText(text);
    }
    template <class T>
    nxErrorEnum FromText(const std::string& text, T& value) {
        return nxStringHelper::SetFromString(text, value);
    }

    // Reads an element's text into a field. On failure the field is untouched: nxErrorEnum::ValueNotFound
    // without a text, nxErrorEnum::ValueNotParsed for a text that is no value of the field's type.
    inline nxErrorEnum ReadValue(const nxXMLElement& element, std::string& field) {
        return element.GetText(field);
    }
    template <class T>
    nxErrorEnum ReadValue(const nxXMLElement& element, T& field) {
        std::string text;
        const nxErrorEnum result = element.GetText(text);
        return result.IsOK() ? FromText(text, field) : result;
    }

    template <ReadsElement T>
    nxErrorEnum ReadValue(const nxXMLElement& element, T& field) {
        return element.IsValid() ? field.ReadFrom(element) : nxErrorEnum::ValueNotFound;
    }

    // Reads the first child of that name.
    template <class T>
    nxErrorEnum ReadChild(const nxXMLElement& parent, std::string_view name, T&& field) {
        return ReadValue(parent.FindChildElement(name), field);
    }

    // Appends a child of that name, unless the field says that it is not to be written.
    template <class T>
    nxErrorEnum WriteChild(nxXMLElement& parent, std::string_view name, const T& field) {
        if constexpr (HasCondition<T>) {
            if (!field.IsWritten())
                return nxErrorEnum::OK;
        }
        if constexpr (WritesElement<T>) {
            nxXMLElement element = parent.AddChildElement(name);
            return field.WriteTo(element);
        } else {
            return parent.AddChildValue(name, std::string_view(ToText(field)));
        }
    }

    // Visitor that appends each field as a child. Its results may be dropped: a document that could not take
    // a value says so when it is saved.
    class Writer {
    public:
        explicit Writer(nxXMLElement& parent) : _parent(parent) {}

        template <class T, class... Traits>
        nxErrorEnum operator()(std::string_view name, const T& field, const Traits&... /*traits*/) {
            return WriteChild(_parent, name, field);
        }

    private:
        nxXMLElement& _parent;
    };

    // Visitor that reads each field from the first child of its name.
    class Reader {
    public:
        explicit Reader(const nxXMLElement& parent) : _parent(parent) {}

        template <class T>
        nxErrorEnum operator()(std::string_view name, T&& field) {
            return ReadChild(_parent, name, field);
        }

    private:
        const nxXMLElement& _parent;
    };

    // Visitor around another one that goes on only until the first failure, and keeps it.
    template <class Visitor>
    class UntilFailure {
    public:
        explicit UntilFailure(Visitor visitor) : _visitor(visitor) {}

        template <class T>
        void operator()(std::string_view name, T&& field) {
            if (!_result.IsOK())
                return;
            _result = _visitor(name, field);
            _field = name;
        }
        const nxErrorEnum& GetResult() const { return _result; }
        // Logs `message` with the field that failed and why, if one did.
        const nxErrorEnum& GetResultLogged(const nxLogSite& site, const char* message) const {
            if (!_result.IsOK())
                nxWriteLog(site, message, _field, ": ", _result.GetShortDescription());
            return _result;
        }

    private:
        Visitor _visitor;
        nxErrorEnum _result;
        std::string _field; // visited last
    };

    // A number that becomes null when its text is malformed, "NULL" and "NO_CHANGE" included: documents hold
    // the digits of the reserved values. A missing child still leaves it as it was.
    template <class Wrapper>
    class NullIfMalformed {
    public:
        explicit NullIfMalformed(Wrapper& value) : _value(value) {}

        std::string ToText() const { return nxXMLFields::ToText(_value); }
        nxErrorEnum FromText(const std::string& text) {
            auto number = Wrapper::NullValue;
            const nxErrorEnum result = nxStringHelper::SetFromString(text, number);
            _value = result.IsOK() ? number : Wrapper::NullValue;
            return result;
        }

    private:
        Wrapper& _value;
    };

    // Visitor that reads each field from the next child of that name behind the child that it found before,
    // or from the first one where it found none before.
    class NextReader {
    public:
        explicit NextReader(const nxXMLElement& parent) : _parent(parent) {}

        template <class T>
        nxErrorEnum operator()(std::string_view name, T&& field) {
            return ReadValue(Find(name), field);
        }
        const nxXMLElement& Find(std::string_view name) {
            _found = _found.IsValid() ? _parent.FindNextChildElement(name, _found)
                                      : _parent.FindChildElement(name);
            return _found;
        }

    private:
        const nxXMLElement& _parent;
        nxXMLElement _found;
    };

    // Calls `use` with each child element in document order.
    template <class Use>
    void ForEachChild(nxXMLElement parent, Use use) {
        parent.ResetCurrentChildElement();
        for (nxXMLElement child = parent.GetNextChildElement(); child.IsValid();
             child = parent.GetNextChildElement())
            use(child);
    }

    // The same for those of one name.
    template <class Use>
    void ForEachChild(const nxXMLElement& parent, std::string_view name, Use use) {
        ForEachChild(parent, [&](nxXMLElement& child) {
            if (child.HasName(name))
                use(child);
        });
    }

    // Calls `use` with each child from the first one on, as long as they are named `name`, up to the first
    // failure, which is returned.
    template <class Use>
    nxErrorEnum ForEachLeadingChild(nxXMLElement parent, std::string_view name, Use use) {
        parent.ResetCurrentChildElement();
        for (nxXMLElement child = parent.GetNextChildElement(name); child.IsValid();
             child = parent.GetNextChildElement(name)) {
            const nxErrorEnum result = use(child);
            if (!result.IsOK())
                return result;
        }
        return nxErrorEnum::OK;
    }

    // Reads the items of a list: calls `readItem` with each child `itemName` of the first child `listName`,
    // in document order, up to the first failure, which is returned. Without such a list there are no items.
    template <class ReadItem>
    nxErrorEnum ReadList(const nxXMLElement& parent, std::string_view listName, std::string_view itemName,
                         ReadItem readItem) {
        nxErrorEnum result;
        ForEachChild(parent.FindChildElement(listName), itemName, [&](nxXMLElement& child) {
            if (result.IsOK())
                result = readItem(child);
        });
        return result;
    }

    // Writes a list: a child `listName`, always, with a child `itemName` for each item, filled by
    // `writeItem`, up to the first failure, which is returned.
    template <class Items, class WriteItem>
    nxErrorEnum WriteList(nxXMLElement& parent, std::string_view listName, std::string_view itemName,
                          const Items& items, WriteItem writeItem) {
        nxXMLElement list = parent.AddChildElement(listName);
        for (const auto& item : items) {
            nxXMLElement element = list.AddChildElement(itemName);
            const nxErrorEnum result = writeItem(element, item);
            if (!result.IsOK())
                return result;
        }
        return nxErrorEnum::OK;
    }

    // Visitor for ReadInDocumentOrder.
    class Walk {
    public:
        explicit Walk(const nxXMLElement& parent) : _parent(parent) {
            _parent.ResetCurrentChildElement();
            Advance();
        }

        bool AtEnd() const { return !_child.IsValid(); }
        unsigned int GetPosition() const { return _position; }
        void Advance() {
            _child = _parent.GetNextChildElement();
            ++_position;
        }

        template <class T, class... Traits>
        void operator()(std::string_view name, T&& field, const Traits&... /*traits*/) {
            for (; _child.HasName(name); Advance())
                ReadValue(_child, field);
        }

    private:
        nxXMLElement _parent;
        nxXMLElement _child;
        unsigned int _position = 0;
    };

    // Reads all fields of a record from the children of `parent`, in document order: each child goes into the
    // field of its name, so the last of several wins; children of other names are skipped. A field without a
    // child, or with one that has no text or a malformed one, keeps its value. `visitFields` hands the fields
    // to the visitor it is given.
    //
    // A round through the fields takes every child that stands in the fields' order, so documents as records
    // write them need one round.
    template <class VisitFields>
    void ReadInDocumentOrder(const nxXMLElement& parent, VisitFields visitFields) {
        Walk walk(parent);
        while (!walk.AtEnd()) {
            const unsigned int before = walk.GetPosition();
            visitFields(walk);
            if (walk.GetPosition() == before) // no field has that name
                walk.Advance();
        }
    }
} // namespace nxXMLFields
