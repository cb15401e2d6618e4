// SPDX-FileCopyrightText: The XMLFramework authors
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "core/nxCoreExport.h"

#include <algorithm>
#include <cstddef>
#include <string>

// A set of up to 30 flags in one unsigned 32-bit word. The two top bits mark the states null and "no change";
// they are ordinary bits to all operations on bits, so setting them gives a mask that state and clearing them
// takes it away. Plain values: copy them freely, share them between threads as you would an unsigned.
class NXCORE_API nxBitMask {
public:
    static constexpr unsigned int NullBit = 0x80000000U;
    static constexpr unsigned int NoChangeBit = 0x40000000U;

    virtual ~nxBitMask();

    // True when neither state bit is set. A class may narrow it further.
    virtual bool IsValid() const;
    virtual bool IsNoChange() const;
    virtual bool IsNull() const;

    // Set bits besides those set already, the state bits of `bits` included. Flags set on a null or no-change
    // mask stand beside its state bit, and the mask stays null or no-change until that bit is cleared.
    virtual void SetBits(const nxBitMask& bits);
    virtual void SetBits(unsigned int bits);

    // Drop all flags and take the state.
    virtual void SetNull();
    virtual void SetNoChange();

    // The texts of the set bits, lowest bit first, with the separator between them; empty when no bit is set.
    // Bit n of a class without texts of its own is "Flag n" (n from 0), in the long form with the bit's value
    // as "Flag 4 (0x10)". The state bits are "NULL" and "NO_CHANGE" in every class.
    virtual std::string GetShortDescription(const std::string& separator) const;
    virtual std::string GetLongDescription(const std::string& separator) const;

    virtual std::string GetClassName() const = 0;

    // Masks of different classes may be assigned and compared: only the bits count.
    nxBitMask& operator=(const nxBitMask&) = default;
    nxBitMask& operator=(unsigned int value) {
        _value = value;
        return *this;
    }
    void SetValue(unsigned int value) { _value = value; }
    unsigned int GetValue() const { return _value; }

    void Clear() { _value = 0; }
    void ClearBits(unsigned int bits) { _value &= ~bits; }
    void ClearBits(const nxBitMask& bits) { ClearBits(bits._value); }

    bool AreAllBitsSet(unsigned int bits) const { return (_value & bits) == bits; } // true for no bits
    bool AreAllBitsSet(const nxBitMask& bits) const { return AreAllBitsSet(bits._value); }
    bool AreAnyBitsSet(unsigned int bits) const { return (_value & bits) != 0; } // false for no bits
    bool AreAnyBitsSet(const nxBitMask& bits) const { return AreAnyBitsSet(bits._value); }

    // SetBits, as the class has it.
    nxBitMask& operator|=(const nxBitMask& bits);
    nxBitMask& operator|=(unsigned int bits);

    bool operator==(const nxBitMask& other) const { return _EqualTo(other._value); }
    bool operator==(unsigned int value) const { return _EqualTo(value); }
    bool operator!=(const nxBitMask& other) const { return _NotEqualTo(other._value); }
    bool operator!=(unsigned int value) const { return _NotEqualTo(value); }

protected:
    nxBitMask() = default;
    explicit nxBitMask(unsigned int value) : _value(value) {}
    nxBitMask(const nxBitMask&) = default;

    bool _EqualTo(unsigned int value) const { return _value == value; }
    bool _NotEqualTo(unsigned int value) const { return _value != value; }

private:
    unsigned int _value = 0;
};

// A class name as a template argument.
template <std::size_t Size>
struct NXCORE_API nxBitMaskName {
    constexpr nxBitMaskName(const char (&name)[Size]) { std::copy_n(name, Size, text); }

    char text[Size] = {};
};

// The mask class of that name: see nxBitMasks.h. Its valid values are those below ValidLimit.
template <nxBitMaskName Name, unsigned int ValidLimit = nxBitMask::NoChangeBit>
class NXCORE_API nxBitMaskClass final : public nxBitMask {
public:
    nxBitMaskClass() = default;
    nxBitMaskClass(unsigned int value) : nxBitMask(value) {}
    nxBitMaskClass(const nxBitMaskClass&) = default;

    nxBitMaskClass& operator=(const nxBitMaskClass&) = default;
    nxBitMaskClass& operator=(const nxBitMask& other) {
        SetValue(other.GetValue());
        return *this;
    }
    nxBitMaskClass& operator=(unsigned int value) {
        SetValue(value);
        return *this;
    }

    bool IsValid() const override { return GetValue() < ValidLimit; }
    std::string GetClassName() const override { return Name.text; }
};
