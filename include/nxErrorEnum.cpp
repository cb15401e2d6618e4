// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#include "include/nxErrorEnum.h"

namespace {
    constexpr nxEnumRow Table[] = {
        {nxErrorEnum::OK, "OK", "OK", "The operation succeeded"},
        {nxErrorEnum::NoChangeValue, "NO_CHANGE", "No change", "The result is left as it was"},
        {nxErrorEnum::InvalidData, "INVALID_DATA", "Invalid data",
         "The text could not be turned into a document, or the record's content is unusable as a whole"},
        {nxErrorEnum::InvalidRecord, "INVALID_RECORD", "Invalid record", "The record is not valid"},
        {nxErrorEnum::ValueNotFound, "VALUE_NOT_FOUND", "Value not found",
         "The element handle is invalid or the value's node is missing"},
        {nxErrorEnum::ValueNotParsed, "VALUE_NOT_PARSED", "Value not parsed",
         "The text is not a value of the type it was read as"},
        {nxErrorEnum::ValueOutOfRange, "VALUE_OUT_OF_RANGE", "Value out of range",
         "The result of a calculation cannot be held"},
        {nxErrorEnum::InputNotUsable, "INPUT_NOT_USABLE", "Input not usable",
         "A file could not be opened, or an input row could not be used"},
        {nxErrorEnum::OutputNotWritten, "OUTPUT_NOT_WRITTEN", "Output not written",
         "A file could not be written"},
        {nxErrorEnum::XMLParseFailed, "XML_PARSE_FAILED", "XML parse failed",
         "The XML parser reported an error or a warning"},
        {nxErrorEnum::XMLWriteFailed, "XML_WRITE_FAILED", "XML write failed",
         "The XML document could not be written to the file"},
        {nxErrorEnum::XMLDocumentNotCreatable, "XML_DOCUMENT_NOT_CREATABLE", "XML document not creatable",
         "There is no DOM implementation, or the document exists already"},
        {nxErrorEnum::XMLDocumentNotCreated, "XML_DOCUMENT_NOT_CREATED", "XML document not created",
         "The DOM implementation did not create a document"},
        {nxErrorEnum::XMLDocumentMissing, "XML_DOCUMENT_MISSING", "XML document missing",
         "There is no document or no root element to save"},
        {nxErrorEnum::XMLNoDocumentParsed, "XML_NO_DOCUMENT_PARSED", "No XML document parsed",
         "Parsing the file gave no document"},
        {nxErrorEnum::XMLTextNotCarried, "XML_TEXT_NOT_CARRIED", "Text not carried by XML",
         "The document holds a name or a text that XML cannot carry"},
        {nxErrorEnum::XMLTooDeep, "XML_TOO_DEEP", "XML too deep",
         "The document's elements are nested too deeply to be written"},
    };
    static_assert(nxEnumTableIsSound(Table, nxErrorEnum::MinValue, nxErrorEnum::MaxValue));
} // namespace

std::span<const nxEnumRow> nxErrorEnum::Rows() {
    return Table;
}
