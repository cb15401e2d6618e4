// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCSVFileRow.h"
#include "include/nxErrorEnum.h"
#include "xmlFramework/nxXMLFrameworkExport.h"
#include "xmlFramework/xml/nxXMLElement.h"

#include <string>
#include <vector>

class nxXMLNode;
class nxXMLSink;
struct nxXMLFieldDescription;
struct nxXMLItem;
struct nxXMLReadContext;

// One entry of the ISO 10383 register of market identifier codes. Dates are texts as the register has them.
class XMLFRAMEWORK_API nxMICDefinition {
public:
    // The columns of a CSV row, in this order: MIC, country, ISO country code, operating MIC, marker ("O" for
    // an operating MIC, "S" for a segment), name, acronym, city, website, status date, status ("ACTIVE" or
    // "DELETED"), creation date, comments.
    static constexpr unsigned int CSVColumnCount = 13;

    nxMICDefinition() = default;
    nxMICDefinition(const nxMICDefinition&) = default;
    nxMICDefinition& operator=(const nxMICDefinition&) = default;
    nxMICDefinition(nxMICDefinition&&) noexcept = default;
    nxMICDefinition& operator=(nxMICDefinition&&) noexcept = default;
    virtual ~nxMICDefinition();
    bool operator==(const nxMICDefinition&) const = default;

    // nxErrorEnum::InvalidData when the MIC is empty.
    virtual nxErrorEnum IsValid() const;

    const std::string& GetMIC() const { return _mic; }
    const std::string& GetCountry() const { return _country; }
    const std::string& GetIsoCountryCode() const { return _isoCountryCode; } // ISO 3166
    const std::string& GetOperatingMIC() const { return _operatingMIC; }
    bool GetIsOperatingMIC() const { return _isOperatingMIC; }
    const std::string& GetName() const { return _name; }
    const std::string& GetAcronym() const { return _acronym; }
    const std::string& GetCity() const { return _city; }
    const std::string& GetWebsite() const { return _website; }
    const std::string& GetStatusDate() const { return _statusDate; }
    bool GetIsActive() const { return _isActive; }
    const std::string& GetCreationDate() const { return _creationDate; }
    const std::string& GetComments() const { return _comments; }

    void SetMIC(const std::string& mic) { _mic = mic; }
    void SetCountry(const std::string& country) { _country = country; }
    void SetIsoCountryCode(const std::string& code) { _isoCountryCode = code; }
    void SetOperatingMIC(const std::string& mic) { _operatingMIC = mic; }
    void GetIsOperatingMIC(bool isOperatingMIC) {
        _isOperatingMIC = isOperatingMIC;
    } // sets, despite its name
    void SetName(const std::string& name) { _name = name; }
    void SetAcronym(const std::string& acronym) { _acronym = acronym; }
    void SetCity(const std::string& city) { _city = city; }
    void SetWebsite(const std::string& website) { _website = website; }
    void SetStatusDate(const std::string& date) { _statusDate = date; }
    void SetIsActive(bool isActive) { _isActive = isActive; }
    void SetCreationDate(const std::string& date) { _creationDate = date; }
    void SetComments(const std::string& comments) { _comments = comments; }

    // Takes all columns as they stand. nxErrorEnum::InputNotUsable, with nothing changed, for another number
    // of columns than CSVColumnCount.
    nxErrorEnum ConvertFromCSV(const nxCSVFileRow& row);
    // Takes the columns that are not empty, and appends to `changes` what each sets: "name='New name',
    // isActive=false". nxErrorEnum::InputNotUsable for another number of columns, nxErrorEnum::InvalidData
    // for a row of another MIC; nothing is changed then.
    nxErrorEnum UpdateFromCSV(const nxCSVFileRow& row, std::string& changes);
    // Replaces the columns of `row`. Texts are quoted where a CSV file needs it, so the row is ready to be
    // joined.
    nxErrorEnum ConvertToCSV(nxCSVFileRow& row) const;

    // The record as child elements of `element`, the item element of the list. Reading takes each child into
    // the field of its name, and leaves a field without a well-formed child as it was. Always OK; the second
    // argument is ignored.
    nxErrorEnum ConvertFromXML(nxXMLElement& element, const std::string& logPrefix);
    nxErrorEnum ConvertToXML(nxXMLElement& element, const std::string& logPrefix) const;

    std::string GetAsLogString() const;

private:
    friend nxXMLItem;
    struct Fields;

    nxErrorEnum _Read(const nxXMLNode& node, const nxXMLReadContext& context);
    void _Write(nxXMLSink& sink) const;
    static std::vector<nxXMLFieldDescription> _Describe();

    std::string _mic;
    std::string _country;
    std::string _isoCountryCode;
    std::string _operatingMIC;
    bool _isOperatingMIC = false;
    std::string _name;
    std::string _acronym;
    std::string _city;
    std::string _website;
    std::string _statusDate;
    bool _isActive = false;
    std::string _creationDate;
    std::string _comments;
};
