// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxErrorEnum.h"
#include "include/nxValueWrapper.h"
#include "xmlFramework/nxXMLFrameworkExport.h"

#include <string>

// Base of every top-level record: what travels as one XML text under a category code of its own.
//
// A category code is four ASCII characters in an unsigned number, the first in the most significant byte. The
// record classes register one empty prototype each while the library is loaded, so that CreateInstance can
// make a record of the right class for a code. A record is used by one thread at a time; CreateInstance may
// be called from any thread.
class XMLFRAMEWORK_API nxXMLDataObject {
public:
    virtual ~nxXMLDataObject();

    // Reads the record from `xml`, which is UTF-8 unless its XML declaration says otherwise. Each record says
    // whether it empties itself first. `logPrefix` is put before the record's own messages in the log. The
    // common failure is nxErrorEnum::InvalidData: the text is no XML document, and the record is untouched
    // but for what it empties first. `xml` must not be a text of the record itself.
    [[nodiscard]] virtual nxErrorEnum ConvertFromXML(const std::string& xml,
                                                     const std::string& logPrefix) = 0;

    // Writes the record as XML in UTF-8, without declaration and without line ends but the line feeds within
    // its texts, in place of what `xmlOut` holds, which must not be a text of the record itself. The second
    // argument is ignored, by every record: pass "". On failure `xmlOut` is untouched;
    // nxErrorEnum::XMLTextNotCarried says that a name or a text in the record cannot stand in an XML
    // document.
    [[nodiscard]] virtual nxErrorEnum ConvertToXML(std::string& xmlOut, const std::string&) = 0;

    // The class's category code.
    virtual nxUnsignedValueWrapper GetDataCategoryTypeID() = 0;

    // A new empty record of the same class, and a copy of this one. The caller owns the result.
    virtual nxXMLDataObject* CreateInstance() const = 0;
    virtual nxXMLDataObject* CopyInstance() const = 0;

    // A new empty record of the class registered for the code, which the caller owns; null for an unknown
    // code.
    static nxXMLDataObject* CreateInstance(const nxUnsignedValueWrapper& id);

protected:
    nxXMLDataObject() = default;
    nxXMLDataObject(const nxXMLDataObject&) = default;
    nxXMLDataObject& operator=(const nxXMLDataObject&) = default;

    // Takes the prototype of a class. When its code is taken already, the first one stays: the second is
    // logged and deleted, and the result is false. To be called while libraries are loaded. The prototype is
    // never given back: a plugin that registers a class of its own stays loaded when it is closed.
    static bool _Register(nxXMLDataObject* prototype);
};
