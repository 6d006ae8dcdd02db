#pragma once

#include <cstddef>
#include <string_view>

#include "plist/Value.hpp"

namespace vornix::plist {

// Whether the bytes start as a binary property list ("bplist00").
bool isBinaryPropertyList(std::string_view bytes);

// How many bytes of values a document may expand to through shared objects (a document may
// refer to one object many times, and every reference reads as a copy): a fixed allowance plus
// an allowance per byte of the document.
struct BinaryLimits {
    std::size_t fixedBudget = std::size_t{64} << 20;
    std::size_t budgetPerByte = 64;
};

// Reads a binary property list ("bplist00"): integers of 1, 2, 4, 8 and 16 bytes (the last
// only when the value fits in 64 bits), 4- and 8-byte reals, booleans, dates, data, ASCII and
// UTF-16 strings, arrays and dictionaries with string keys. Every offset, count and reference
// is checked; throws DataCorrupted, with the byte offset, for a reference outside the object
// table, an object that contains itself, nesting deeper than 512 levels, an object the value
// model has no place for (null, set, UID), or shared objects that expand beyond `limits`.
Value readBinary(std::string_view bytes, const BinaryLimits& limits = {});

}  // namespace vornix::plist
