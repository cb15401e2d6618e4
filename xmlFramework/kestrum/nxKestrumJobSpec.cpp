// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumJobSpec.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/kestrum/nxKestrumLimitList.h"
#include "xmlFramework/kestrum/nxKestrumUserString.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLFields.h"

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumJobSpec";

    // The user string in the form that documents hold.
    template <class String>
    class UserStringField {
    public:
        explicit UserStringField(String& userString) : _userString(userString) {}

        std::string ToText() const { return nxKestrumUserString::ToDocument(_userString); }
        nxErrorEnum FromText(const std::string& text) {
            _userString = nxKestrumUserString::FromDocument(text);
            return nxErrorEnum::OK;
        }

    private:
        String& _userString;
    };
} // namespace

// The limits stand between the two lists.
struct nxKestrumJobSpec::Fields {
    template <class Record, class Visitor>
    static void VisitBeforeLimits(Record& record, Visitor&& field) {
        field("AlgorithmSpecName", record._algorithmSpecName);
        field("Parameters", UserStringField(record._parameters));
    }
    template <class Record, class Visitor>
    static void VisitBehindLimits(Record& record, Visitor&& field) {
        field("AccountID", nxXMLFields::NullIfMalformed(record._accountID));
        field("MaxTrans", record._maxTransactions);
        field("MaxTransPS", record._maxTransactionsPerSecond);
        field("PreferredExchangeUser", record._preferredExchangeUser);
        field("BackTestingAccountID", nxXMLFields::NullIfMalformed(record._backTestingAccountID));
        field("AntiCrossPullOrders", record._antiCrossPullOrders);
        field("DisablePreLimitCheck", record._disablePreLimitCheck);
    }
};

const bool nxKestrumJobSpec::_registered = nxXMLDataObject::_Register(new nxKestrumJobSpec);

nxErrorEnum nxKestrumJobSpec::ConvertFromXML(const std::string& xml, const std::string& context) {
    nxXMLDocument document;
    const nxErrorEnum loaded = nxXMLConversion::Load(
        document, xml, {nxLogLevels::Error, SourceFile}, context,
        "Failed to convert XML data to Kestrum Job Spec. Unable to create XML document from XML string");
    if (!loaded.IsOK())
        return nxErrorEnum::InvalidData;

    const nxXMLElement root = document.GetRootElement();
    Fields::VisitBeforeLimits(*this, nxXMLFields::Reader(root));
    const nxErrorEnum result = nxKestrumLimitList::Read(root, _limits);
    Fields::VisitBehindLimits(*this, nxXMLFields::Reader(root));
    return result;
}

nxErrorEnum nxKestrumJobSpec::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save("KestrumJobSpec", xmlOut, [this](nxXMLElement& root) {
        Fields::VisitBeforeLimits(*this, nxXMLFields::Writer(root));
        const nxErrorEnum result = nxKestrumLimitList::Write(root, _limits);
        Fields::VisitBehindLimits(*this, nxXMLFields::Writer(root));
        return result;
    });
}

nxUnsignedValueWrapper nxKestrumJobSpec::GetDataCategoryTypeID() {
    return nxDataCategoryEnum::KestrumJobSpec;
}

nxXMLDataObject* nxKestrumJobSpec::CreateInstance() const {
    return new nxKestrumJobSpec;
}

nxKestrumJobSpec* nxKestrumJobSpec::CopyInstance() const {
    return new nxKestrumJobSpec(*this);
}

bool nxKestrumJobSpec::AddLimit(const nxKestrumLimit& limit) {
    _limits.Add(std::unique_ptr<nxKestrumLimit>(limit.CopyInstance()));
    return true;
}
