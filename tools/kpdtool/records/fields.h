// The fields of a device mode record for people: one table that names every byte of the 584, which
// every command of the tool and docs/record.md are made from.
#pragma once

#include "core/device_mode.h"

#include <cstdint>
#include <span>
#include <string>
#include <type_traits>

namespace kpdtool {

enum class Kind : BYTE { kUnsigned, kSigned, kHex, kBits, kWideText, kByteText };

/// A code, or in a field of bits a mask, and what it stands for.
struct Name {
    DWORD value;
    const char* text;
};

/// What of a field's values is legal. Nothing checks fields whose every value is.
enum class Legal : BYTE { kAny, kRange, kNamed };

struct Field {
    const char* name;
    WORD offset;  ///< in the whole record
    WORD width;   ///< bytes, all elements together
    WORD element;
    Kind kind;
    Legal legal = Legal::kAny;
    std::int64_t low = 0;
    std::int64_t high = 0;
    std::span<const Name> names = {};
    const char* meaning = "";
    DWORD bit = 0;  ///< in dmFields, under which a merge takes the field; 0 for none

    constexpr size_t Count() const { return width / element; }
    constexpr bool IsText() const { return kind == Kind::kWideText || kind == Kind::kByteText; }
    constexpr bool IsArray() const { return Count() > 1 && !IsText(); }
    constexpr bool IsPrivate() const { return offset >= kPublicSize; }
    /// "u16", "8 x s8", "32 characters".
    std::string WidthText() const;
    /// Legal values and names in one line, as documents give them; empty when there is nothing to
    /// say.
    std::string ValuesText() const;

    // What a row of the table adds to a member's place and type.
    constexpr Field Is(const char* text) const {
        Field field = *this;
        field.meaning = text;
        return field;
    }
    constexpr Field Under(DWORD fieldsBit) const {
        Field field = *this;
        field.bit = fieldsBit;
        return field;
    }
    constexpr Field In(std::int64_t lowest, std::int64_t highest) const {
        Field field = *this;
        field.legal = Legal::kRange;
        field.low = lowest;
        field.high = highest;
        return field;
    }
    constexpr Field Named(std::span<const Name> table) const {
        Field field = *this;
        field.names = table;
        return field;
    }
    constexpr Field OneOf(std::span<const Name> table) const {
        Field field = Named(table);
        field.legal = Legal::kNamed;
        return field;
    }
    constexpr Field Bits(std::span<const Name> table) const {
        Field field = OneOf(table);
        field.kind = Kind::kBits;
        return field;
    }
    constexpr Field Hex() const {
        Field field = *this;
        field.kind = Kind::kHex;
        return field;
    }
};

/// Every field in the order of the record.
std::span<const Field> RecordFields();

}  // namespace kpdtool
