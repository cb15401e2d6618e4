// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

// Builds a spread of two legs, validates it, sends it through XML, and sees what is said of one that is
// wrong.

#include "core/nxLogManager.h"
#include "include/nxLog.h"
#include "include/nxLogDevice.h"
#include "xmlFramework/spread/nxSyntheticSpreadOrderSpec_XML.h"

#include <iostream>
#include <memory>
#include <string>

namespace {
    // Validation says in the log what is wrong.
    class PrintingDevice : public nxLogDevice {
    public:
        void Write(const nxLog& record) override { std::cout << record.GetLogEntry() << '\n'; }
    };

    std::unique_ptr<nxSyntheticSpreadOrderSpecLeg_XML> MakeQuotedLeg() {
        auto leg = std::make_unique<nxSyntheticSpreadOrderSpecLeg_XML>();
        leg->SetWorkingLeg(true);
        leg->SetOrderType(nxOrderTypeEnum::Limit);
        leg->SetTailSize(10);
        leg->SetSensitivityRangeTicks_1(4);
        leg->SetSensitivityTicks_1(1);
        return leg;
    }

    std::unique_ptr<nxSyntheticSpreadOrderSpecLeg_XML> MakeHedgeLeg() {
        auto leg = std::make_unique<nxSyntheticSpreadOrderSpecLeg_XML>();
        leg->SetOrderType(nxOrderTypeEnum::Limit);
        leg->SetPayupMethod(nxSyntheticSpreadPayupMethodEnum::Conditional);
        leg->SetPayupTicks(2);
        leg->SetConditionalTriggerVolume(25);
        leg->SetHedgeAggressionMethod(nxSpreadMachineHedgeAggressionMethodEnum::Join);
        return leg;
    }
} // namespace

int main() {
    nxLogManager::SetDevices({std::make_shared<PrintingDevice>()});

    nxSyntheticSpreadOrderSpec_XML spread;
    spread.SetSpecName("June - September");
    spread.GetLegs().push_back(MakeQuotedLeg());
    spread.GetLegs().push_back(MakeHedgeLeg());

    std::string xml;
    nxSyntheticSpreadOrderSpec_XML received;
    if (!spread.ConvertToXML(xml, "").IsOK() || !received.ConvertFromXML(xml, "spread_order: ").IsOK())
        return 1;
    for (std::size_t i = 0; i < spread.GetLegs().size(); ++i) {
        if (!received.GetLegs().at(i)->IsEqual(*spread.GetLegs()[i]))
            return 1;
    }
    const nxErrorEnum good = received.IsValid("spread_order: ");
    std::cout << received.GetSpecName() << ": " << good.GetAsString() << ", working legs "
              << received.GetWorkingLegCount() << " of " << received.GetLegs().size() << '\n';

    received.GetLegs()[1]->SetConditionalTriggerVolume(0);
    const nxErrorEnum bad = received.IsValid("spread_order: ");
    std::cout << "without a trigger volume: " << bad.GetAsString() << '\n';
    return good.IsOK() && !bad.IsOK() ? 0 : 1;
}
