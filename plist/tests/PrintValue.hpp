#pragma once

#include <ostream>

#include "plist/TypedJson.hpp"
#include "plist/Value.hpp"

namespace vornix::plist {

// Lets GoogleTest show a Value in a failed assertion as its typed JSON form.
inline void PrintTo(const Value& value, std::ostream* out) {
    try {
        *out << writeTypedJson(value);
    } catch (const std::exception& error) {
        *out << "(a value without a JSON form: " << error.what() << ")";
    }
}

}  // namespace vornix::plist
