// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

// For writing a record outside the library: a class that derives from nxXMLDataObject, states its fields once
// and reads, writes and describes itself by that list. examples/own_record/ is a complete one, and
// docs/guide/own-record.md goes through it.
//
// Promised from here, as of any public class, are these names and what their comments say:
//
// - nxXMLConversion: Source, ReadDocument, Save; ReadElement and WriteElement for items
// - nxXMLFields, the ways to read: ReadInDocumentOrder, ReadFirst, ReadNext, AfterFailure; Outcome's
//   GetResult and GetResultLogged
// - nxXMLFields, to write and to describe: Writer, Describe
// - nxXMLFields, around fields: Required, Attribute, NullIfMalformed, Key; ListOf and Items with Named,
//   Leading, Any, ByKey, ByNumber and KeyedBy
// - nxXMLFields, what a field of a record's own may do: the concepts on top of nxXMLFields.h, DescribeNumber,
//   DescribeNumberWithStates and DescribeEnumeration
// - nxDataCategoryCode, for the category code; codes of the library stand in nxDataCategoryEnum
// - nxXMLItem and nxXMLReadContext's logPrefix, nxXMLNode's reading operations, nxXMLSink's operations
//
// All other names in the headers included here are how these work: they are compiled into whoever uses them,
// so they stay as they are within a first version number, but not for longer, and nobody should spell them.

#include "core/nxDataCategoryEnum.h"
#include "xmlFramework/xml/nxXMLConversion.h"
#include "xmlFramework/xml/nxXMLDataObject.h"
#include "xmlFramework/xml/nxXMLDescription.h"
#include "xmlFramework/xml/nxXMLFields.h"
#include "xmlFramework/xml/nxXMLItem.h"
#include "xmlFramework/xml/nxXMLLists.h"
#include "xmlFramework/xml/nxXMLSink.h"
#include "xmlFramework/xml/nxXMLTree.h"
