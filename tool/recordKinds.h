// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "tool/view.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tool {
    // A record of any class, with what the tool does with all of them.
    class Record {
    public:
        Record() = default;
        Record(const Record&) = delete;
        Record& operator=(const Record&) = delete;
        virtual ~Record() = default;

        virtual nxErrorEnum ConvertFromXML(const std::string& xml) = 0;
        virtual nxErrorEnum ConvertToXML(std::string& xmlOut) = 0;
        virtual nxErrorEnum IsValid() const = 0; // OK for classes that have no such thing
        virtual View MakeView() const = 0;
    };

    template <class Class>
    class RecordOf final : public Record {
    public:
        Class& Get() { return _record; }
        const Class& Get() const { return _record; }

        nxErrorEnum ConvertFromXML(const std::string& xml) override {
            return _record.ConvertFromXML(xml, std::string());
        }
        nxErrorEnum ConvertToXML(std::string& xmlOut) override {
            return _record.ConvertToXML(xmlOut, std::string());
        }
        nxErrorEnum IsValid() const override {
            if constexpr (requires { _record.IsValid(); })
                return _record.IsValid();
            else if constexpr (requires { _record.IsValid(std::string()); })
                return _record.IsValid(std::string());
            else
                return nxErrorEnum::OK;
        }
        View MakeView() const override { return tool::MakeView(_record); }

    private:
        Class _record;
    };

    // A list in a document, so that the record can be told as a tree. Fields that identify an item are empty
    // where there is none.
    struct ListShape {
        std::string_view
            name; // of the element around the items, or of the items where nothing is around them
        std::string_view keyField; // the child element or the attribute that identifies an item
        bool isBare = false;       // nothing is around the items
    };

    // What the tool knows of one class of records.
    struct RecordKind {
        std::string_view className;
        std::string_view title; // what people call such a record
        std::string code;       // its category code, empty for a class without
        bool isRegistered;      // nxXMLDataObject::CreateInstance makes one for the code
        std::string root;       // the name of its documents' root element
        std::unique_ptr<Record> (*make)();
        std::vector<ListShape> lists;
        std::vector<std::string_view> attributes; // that elements of its documents have
    };

    // All of them, in the order of their titles.
    const std::vector<RecordKind>& RecordKinds();

    // Null when there is none.
    const RecordKind* FindKindByRoot(std::string_view root);
    const RecordKind* FindKindByCode(std::string_view code);
} // namespace tool
