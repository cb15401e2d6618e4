// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/kestrum/nxKestrumJobSpec.h"

#include "core/nxDataCategoryEnum.h"
#include "include/nxLogLevels.h"
#include "xmlFramework/kestrum/nxKestrumLimitList.h"
#include "xmlFramework/kestrum/nxKestrumUserString.h"
#include "xmlFramework/xml/nxXMLConversion.h"

#include <tuple>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxKestrumJobSpec";

    // The user string in the form that documents hold.
    template <class String>
    class UserStringField {
    public:
        explicit UserStringField(String& userString) : _userString(userString) {}

        void AppendText(std::string& text) const { text += nxKestrumUserString::ToDocument(_userString); }
        nxErrorEnum FromText(std::string_view text) {
            _userString = nxKestrumUserString::FromDocument(std::string(text));
            return nxErrorEnum::OK;
        }
        static nxXMLValueDescription DescribeValue() { return {}; } // a text

    private:
        String& _userString;
    };
} // namespace

struct nxKestrumJobSpec::Fields {
    static constexpr const char* Root = "KestrumJobSpec";

    template <class Record, class Visitor>
    static void Visit(Record& record, Visitor&& field) {
        using namespace nxXMLFields;
        field("AlgorithmSpecName", record._algorithmSpecName);
        field("Parameters", UserStringField(record._parameters));
        nxKestrumLimitList::Visit(record._limits, field);
        field("AccountID", NullIfMalformed(record._accountID));
        field("MaxTrans", record._maxTransactions);
        field("MaxTransPS", record._maxTransactionsPerSecond);
        field("PreferredExchangeUser", record._preferredExchangeUser);
        field("BackTestingAccountID", NullIfMalformed(record._backTestingAccountID));
        field("AntiCrossPullOrders", record._antiCrossPullOrders);
        field("DisablePreLimitCheck", record._disablePreLimitCheck);
    }
};

const bool nxKestrumJobSpec::_registered = nxXMLDataObject::_Register(new nxKestrumJobSpec);

nxErrorEnum nxKestrumJobSpec::ConvertFromXML(const std::string& xml, const std::string& context) {
    return nxXMLConversion::ReadDocument(
        xml,
        {Fields::Root,
         {nxLogLevels::Error, SourceFile},
         context,
         "Failed to convert XML data to Kestrum Job Spec. Unable to create XML document from XML string"},
        [this](const nxXMLNode& root, const nxXMLReadContext& readContext) {
            return nxXMLFields::ReadFirst(root, readContext,
                                          [this](auto& field) { Fields::Visit(*this, field); })
                .GetResult();
        });
}

nxErrorEnum nxKestrumJobSpec::ConvertToXML(std::string& xmlOut, const std::string&) {
    return nxXMLConversion::Save(
        Fields::Root, xmlOut, [this](nxXMLSink& sink) { Fields::Visit(*this, nxXMLFields::Writer(sink)); });
}

bool nxKestrumJobSpec::operator==(const nxKestrumJobSpec& other) const {
    const auto values = [](const nxKestrumJobSpec& spec) {
        return std::tie(spec._algorithmSpecName, spec._parameters, spec._limits, spec._accountID,
                        spec._backTestingAccountID, spec._maxTransactions, spec._maxTransactionsPerSecond,
                        spec._preferredExchangeUser, spec._antiCrossPullOrders, spec._disablePreLimitCheck);
    };
    return values(*this) == values(other);
}

nxXMLDescription nxKestrumJobSpec::GetDocumentDescription() {
    const nxKestrumJobSpec none;
    return {Fields::Root, nxXMLFields::Describe([&none](auto& field) { Fields::Visit(none, field); })};
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
