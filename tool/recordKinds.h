// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "tool/view.h"
#include "xmlFramework/xml/nxXMLDescription.h"

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

    // What the tool knows of one class of records.
    struct RecordKind {
        std::string_view className;
        std::string_view title; // what people call such a record
        std::string code;       // its category code, empty for a class without
        bool isRegistered;      // nxXMLDataObject::CreateInstance makes one for the code
        std::string root;       // the name of its documents' root element
        nxXMLDescription description;
        std::unique_ptr<Record> (*make)();
    };

    // All of them, in the order of their titles.
    const std::vector<RecordKind>& RecordKinds();

    // Null when there is none.
    const RecordKind* FindKindByRoot(std::string_view root);
    const RecordKind* FindKindByCode(std::string_view code);
} // namespace tool
