// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "xmlFramework/xml/nxXMLDataObject.h"

#include "core/nxDataCategoryEnum.h"
#include "core/nxStringHelper.h"
#include "include/nxLogLevels.h"
#include "include/nxWriteLog.h"

#include <dlfcn.h>

#include <map>
#include <memory>

namespace {
    constexpr char SourceFile[] = "xmlFramework/trunk/nxXMLDataObject";

    // Never destroyed: prototypes live as long as the process, and records are made while it winds down, too.
    std::map<unsigned int, nxXMLDataObject*>& Registry() {
        static auto& registry = *new std::map<unsigned int, nxXMLDataObject*>;
        return registry;
    }

    // The first word of an object with virtual operations leads to its class's table of them.
    const void* TableOf(const nxXMLDataObject& record) {
        return *reinterpret_cast<const void* const*>(&record);
    }

    // A prototype stays, so its code must, too: what registers a record of its own stays loaded, whoever
    // closes it. Ourselves we may be unloaded, as the registry goes with us.
    void KeepLoaded(const nxXMLDataObject& prototype) {
        Dl_info theirs{};
        Dl_info ours{};
        const bool areKnown = ::dladdr(TableOf(prototype), &theirs) != 0 && ::dladdr(SourceFile, &ours) != 0;
        if (areKnown && theirs.dli_fbase != ours.dli_fbase)
            ::dlopen(theirs.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
    }

    std::string CodeCharacters(unsigned int code) {
        std::string characters;
        for (unsigned int shift = 32; shift > 0;) {
            shift -= 8;
            const char character = static_cast<char>(code >> shift & 0xFFU);
            if (character == '\0')
                break;
            characters += character;
        }
        return nxStringHelper::GetRightTrimmed(characters);
    }

    std::string CodeText(const nxUnsignedValueWrapper& code) {
        if (!code.IsValid())
            return code.GetAsString();
        const nxDataCategoryEnum category(code);
        return category.IsUndefined() ? CodeCharacters(code) : category.GetShortDescription();
    }
} // namespace

nxXMLDataObject::~nxXMLDataObject() = default;

nxXMLDataObject* nxXMLDataObject::CreateInstance(const nxUnsignedValueWrapper& id) {
    const auto entry = Registry().find(id);
    return entry != Registry().end() ? entry->second->CreateInstance() : nullptr;
}

bool nxXMLDataObject::_Register(nxXMLDataObject* prototype) {
    std::unique_ptr<nxXMLDataObject> owned(prototype);
    const nxUnsignedValueWrapper code = owned->GetDataCategoryTypeID();
    if (Registry().try_emplace(code, owned.get()).second) {
        KeepLoaded(*owned);
        owned.release(); // NOLINT(bugprone-unused-return-value): the registry has it
        return true;
    }

    nxWriteLog(
        {nxLogLevels::Error, SourceFile},
        "Attempt to register duplicate nxXMLDataObject object instance for category ID: ",
        [&code] { return CodeText(code); }, " (", code, ")");
    return false;
}
