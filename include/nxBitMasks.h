// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "include/nxBitMask.h"

// The flag sets of the platform. They differ in their names, and one in its valid values: access to a
// security node is made of the bits 0 and 1 alone.
// clang-format off
using nxAttributeChangeBitMask = nxBitMaskClass<"nxAttributeChangeBitMask">;
using nxAttributeTreeDrilldownBitMask = nxBitMaskClass<"nxAttributeTreeDrilldownBitMask">;
using nxAttributeTrendBitMask = nxBitMaskClass<"nxAttributeTrendBitMask">;
using nxConditionalOrderFlagsBitMask = nxBitMaskClass<"nxConditionalOrderFlagsBitMask">;
using nxDataInterestBitMask = nxBitMaskClass<"nxDataInterestBitMask">;
using nxDataObjectCacheObserverBitMask = nxBitMaskClass<"nxDataObjectCacheObserverBitMask">;
using nxDatabaseModeBitMask = nxBitMaskClass<"nxDatabaseModeBitMask">;
using nxExchangePriceFilterBitMask = nxBitMaskClass<"nxExchangePriceFilterBitMask">;
using nxFixMDQuoteConditionBitMask = nxBitMaskClass<"nxFixMDQuoteConditionBitMask">;
using nxFixMDTradeConditionBitMask = nxBitMaskClass<"nxFixMDTradeConditionBitMask">;
using nxGenericBitMask = nxBitMaskClass<"nxGenericBitMask">;
using nxGenericDataAccessLevelBaseBitMask = nxBitMaskClass<"nxGenericDataAccessLevelBaseBitMask">;
using nxHIDEventTargetFilterBitMask = nxBitMaskClass<"nxHIDEventTargetFilterBitMask">;
using nxIntraDayProductDefinitionUpdateBitMask = nxBitMaskClass<"nxIntraDayProductDefinitionUpdateBitMask">;
using nxKeyboardModifierBitMask = nxBitMaskClass<"nxKeyboardModifierBitMask">;
using nxOrderBookInterestBitMask = nxBitMaskClass<"nxOrderBookInterestBitMask">;
using nxOrderFillSummaryFieldBitMask = nxBitMaskClass<"nxOrderFillSummaryFieldBitMask">;
using nxOrderTransactionBroadcastBitMask = nxBitMaskClass<"nxOrderTransactionBroadcastBitMask">;
using nxOrderTransactionFlagsBitMask = nxBitMaskClass<"nxOrderTransactionFlagsBitMask">;
using nxPriceInterestBitMask = nxBitMaskClass<"nxPriceInterestBitMask">;
using nxProductStateBitMask = nxBitMaskClass<"nxProductStateBitMask">;
using nxProductTreeSelectableNodeBaseBitMask = nxBitMaskClass<"nxProductTreeSelectableNodeBaseBitMask">;
using nxProductTypeGUIDisplayBaseBitMask = nxBitMaskClass<"nxProductTypeGUIDisplayBaseBitMask">;
using nxSecurityNodeAccessBaseBitMask = nxBitMaskClass<"nxSecurityNodeAccessBaseBitMask", 4>;
using nxSecurityNodeChangeBitMask = nxBitMaskClass<"nxSecurityNodeChangeBitMask">;
using nxSettlementPriceBitMask = nxBitMaskClass<"nxSettlementPriceBitMask">;
using nxStrategyLegFlagsBitMask = nxBitMaskClass<"nxStrategyLegFlagsBitMask">;
using nxUserOrderFlagsBitMask = nxBitMaskClass<"nxUserOrderFlagsBitMask">;
// clang-format on
