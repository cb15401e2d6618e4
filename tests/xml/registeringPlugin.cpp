// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDataObject.h"

namespace {
    class Record : public nxXMLDataObject {
    public:
        nxErrorEnum ConvertFromXML(const std::string&, const std::string&) override {
            return nxErrorEnum::OK;
        }
        nxErrorEnum ConvertToXML(std::string&, const std::string&) override { return nxErrorEnum::OK; }
        nxUnsignedValueWrapper GetDataCategoryTypeID() override { return 0x504C5547; } // PLUG
        nxXMLDataObject* CreateInstance() const override { return new Record; }
        Record* CopyInstance() const override { return new Record(*this); }

        static bool Register() { return _Register(new Record); }
    };

    const bool registered = Record::Register();
} // namespace

extern "C" __attribute__((visibility("default"))) bool nxPluginIsRegistered();

extern "C" bool nxPluginIsRegistered() {
    return registered;
}
