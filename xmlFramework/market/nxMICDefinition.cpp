// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/market/nxMICDefinition.h"

#include "core/nxCSVFileReader.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    // What CSV rows say of a field: its label among the changes of an update, null for the key, which an
    // update never changes, and the two texts of a flag.
    struct CSVColumn {
        const char* label = nullptr;
        const char* trueText = "";
        const char* falseText = "";
    };
    struct CSVKey : CSVColumn, nxXMLFields::Key {};

    class CSVReader {
    public:
        explicit CSVReader(const nxCSVFileRow& row) : _row(row) {}

        void operator()(const char* /*name*/, std::string& field, const CSVColumn& /*column*/) {
            field = _row.GetColValue(_index++);
        }
        void operator()(const char* /*name*/, bool& field, const CSVColumn& column) {
            field = _row.GetColValue(_index++) == column.trueText;
        }

    private:
        const nxCSVFileRow& _row;
        unsigned int _index = 0;
    };

    class CSVUpdater {
    public:
        CSVUpdater(const nxCSVFileRow& row, std::string& changes) : _row(row), _changes(changes) {}

        void operator()(const char* /*name*/, std::string& field, const CSVColumn& column) {
            const std::string value = _row.GetColValue(_index++);
            if (value.empty() || !column.label)
                return;
            field = value;
            AddChange(column.label, "'" + value + "'");
        }
        void operator()(const char* /*name*/, bool& field, const CSVColumn& column) {
            const std::string value = _row.GetColValue(_index++);
            if (value.empty())
                return;
            field = value == column.trueText;
            AddChange(column.label, field ? "true" : "false");
        }

    private:
        void AddChange(const char* label, const std::string& value) {
            if (!_changes.empty())
                _changes += ", ";
            _changes.append(label).append("=").append(value);
        }

        const nxCSVFileRow& _row;
        std::string& _changes;
        unsigned int _index = 0;
    };

    class CSVWriter {
    public:
        explicit CSVWriter(nxCSVFileRow& row) : _row(row) {}

        void operator()(const char* /*name*/, const std::string& field, const CSVColumn& /*column*/) {
            _row.AddColumn(nxCSVFileReader::GetAsCSVColumn(field));
        }
        void operator()(const char* /*name*/, bool field, const CSVColumn& column) {
            _row.AddColumn(field ? column.trueText : column.falseText);
        }

    private:
        nxCSVFileRow& _row;
    };
} // namespace

// The fields in the order of the CSV columns, which is also that of the XML elements.
struct nxMICDefinition::Fields {
    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        field("MIC", record._mic, CSVKey());
        field("Country", record._country, CSVColumn{"country"});
        field("ISOCountryCode", record._isoCountryCode, CSVColumn{"isoCountryCode"});
        field("OperatingMIC", record._operatingMIC, CSVColumn{"operatingMIC"});
        field("IsOperatingMIC", record._isOperatingMIC, CSVColumn{"isOperatingMIC", "O", "S"});
        field("Name", record._name, CSVColumn{"name"});
        field("Acronym", record._acronym, CSVColumn{"acronym"});
        field("City", record._city, CSVColumn{"city"});
        field("Website", record._website, CSVColumn{"website"});
        field("StatusDate", record._statusDate, CSVColumn{"statusDate"});
        field("IsActive", record._isActive, CSVColumn{"isActive", "ACTIVE", "DELETED"});
        field("CreationDate", record._creationDate, CSVColumn{"creationDate"});
        field("Comments", record._comments, CSVColumn{"comments"});
    }
};

nxMICDefinition::~nxMICDefinition() = default;

nxErrorEnum nxMICDefinition::IsValid() const {
    return _mic.empty() ? nxErrorEnum::InvalidData : nxErrorEnum::OK;
}

nxErrorEnum nxMICDefinition::ConvertFromCSV(const nxCSVFileRow& row) {
    if (row.GetColCount() != CSVColumnCount)
        return nxErrorEnum::InputNotUsable;
    Fields::Visit(*this, CSVReader(row));
    return nxErrorEnum::OK;
}

nxErrorEnum nxMICDefinition::UpdateFromCSV(const nxCSVFileRow& row, std::string& changes) {
    if (row.GetColCount() != CSVColumnCount)
        return nxErrorEnum::InputNotUsable;
    if (row.GetColValue(0) != _mic)
        return nxErrorEnum::InvalidData;
    Fields::Visit(*this, CSVUpdater(row, changes));
    return nxErrorEnum::OK;
}

nxErrorEnum nxMICDefinition::ConvertToCSV(nxCSVFileRow& row) const {
    row.Clear();
    Fields::Visit(*this, CSVWriter(row));
    return nxErrorEnum::OK;
}

nxErrorEnum nxMICDefinition::_Read(const nxXMLNode& node, const nxXMLReadContext& context) {
    return nxXMLFields::ReadInDocumentOrder(node, context,
                                            [this](auto& field) { Fields::Visit(*this, field); });
}

void nxMICDefinition::_Write(nxXMLSink& sink) const {
    Fields::Visit(*this, nxXMLFields::Writer(sink));
}

std::vector<nxXMLFieldDescription> nxMICDefinition::_Describe() {
    const nxMICDefinition none;
    return nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); });
}

nxErrorEnum nxMICDefinition::ConvertFromXML(nxXMLElement& element, const std::string& logPrefix) {
    return nxXMLConversion::ReadElement(*this, element, logPrefix);
}

nxErrorEnum nxMICDefinition::ConvertToXML(nxXMLElement& element, const std::string& /*logPrefix*/) const {
    nxXMLConversion::WriteElement(*this, element); // whose document remembers what it could not carry
    return nxErrorEnum::OK;
}

std::string nxMICDefinition::GetAsLogString() const {
    // "Country" has always shown the ISO code; log readers expect it, and the separator at the end.
    return "MIC: " + _mic + ", Name: " + _name + ", Operating MIC: " + _operatingMIC +
           ", Country: " + _isoCountryCode + ", ";
}
