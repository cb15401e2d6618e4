// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "tool/recordKinds.h"

#include "core/nxDataCategoryEnum.h"
#include "xmlFramework/kestrum/nxKestrumAlgorithmSpec.h"
#include "xmlFramework/kestrum/nxKestrumJobSpec.h"
#include "xmlFramework/kestrum/nxKestrumModuleSpec.h"
#include "xmlFramework/kestrum/nxKestrumUserLimit.h"
#include "xmlFramework/market/nxAlgoIDMappingList.h"
#include "xmlFramework/market/nxBrokerMap.h"
#include "xmlFramework/market/nxExchangeDefinitionList.h"
#include "xmlFramework/market/nxMICDefinitionList.h"
#include "xmlFramework/market/nxOrvalenPriceUsageStatistics.h"
#include "xmlFramework/market/nxSyntheticPriceServerInstanceList.h"
#include "xmlFramework/market/nxTradingHoursSchemeList.h"
#include "xmlFramework/market/nxUserTextList.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <algorithm>
#include <utility>

namespace {
    using namespace tool;

    bool IsRegistered(const nxUnsignedValueWrapper& code) {
        return std::unique_ptr<nxXMLDataObject>(nxXMLDataObject::CreateInstance(code)) != nullptr;
    }

    template <class Class>
    RecordKind MakeKind(std::string_view className, std::string_view title) {
        Class empty;
        nxXMLDescription description = Class::GetDocumentDescription();
        RecordKind kind{className, title, {}, false, description.root, std::move(description), [] {
                            return std::unique_ptr<Record>(std::make_unique<RecordOf<Class>>());
                        }};
        if constexpr (requires { empty.GetDataCategoryTypeID(); }) {
            const nxUnsignedValueWrapper code = empty.GetDataCategoryTypeID();
            kind.code = nxDataCategoryEnum(code).GetAsString();
            kind.isRegistered = IsRegistered(code);
        }
        return kind;
    }

    template <class Value>
    const RecordKind* Find(Value RecordKind::*member, std::string_view value) {
        const auto found = std::ranges::find(RecordKinds(), value, member);
        return found == RecordKinds().end() ? nullptr : &*found;
    }
} // namespace

const std::vector<RecordKind>& tool::RecordKinds() {
    static const std::vector<RecordKind> kinds{
        MakeKind<nxAlgoIDMappingList>("nxAlgoIDMappingList", "algo ID mapping list"),
        MakeKind<nxBrokerMap>("nxBrokerMap", "broker map"),
        MakeKind<nxExchangeDefinitionList>("nxExchangeDefinitionList", "exchange definition list"),
        MakeKind<nxKestrumAlgorithmSpec>("nxKestrumAlgorithmSpec", "Kestrum algorithm specification"),
        MakeKind<nxKestrumJobSpec>("nxKestrumJobSpec", "Kestrum job specification"),
        MakeKind<nxKestrumModuleSpec>("nxKestrumModuleSpec", "Kestrum module specification"),
        MakeKind<nxKestrumUserLimit>("nxKestrumUserLimit", "Kestrum user limit"),
        MakeKind<nxMICDefinitionList>("nxMICDefinitionList", "MIC definition list"),
        MakeKind<nxOrvalenPriceUsageStatistics>("nxOrvalenPriceUsageStatistics", "price usage statistics"),
        MakeKind<nxSyntheticPriceServerInstanceList>("nxSyntheticPriceServerInstanceList",
                                                     "synthetic price server instance list"),
        MakeKind<nxSyntheticSpreadOrderSpec_XML>("nxSyntheticSpreadOrderSpec_XML",
                                                 "synthetic spread order specification"),
        MakeKind<nxTradingHoursSchemeList>("nxTradingHoursSchemeList", "trading hours scheme list"),
        MakeKind<nxUserTextList>("nxUserTextList", "user text list"),
    };
    return kinds;
}

const RecordKind* tool::FindKindByRoot(std::string_view root) {
    return Find(&RecordKind::root, root);
}

const RecordKind* tool::FindKindByCode(std::string_view code) {
    return code.empty() ? nullptr : Find(&RecordKind::code, code);
}
