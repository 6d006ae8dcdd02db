#include "plist/KeyedCoding.hpp"

namespace vornix::plist::detail {
namespace {

constexpr std::string_view nullMarker = "$null";

std::string describe(const Value& value) {
    if (const std::string* text = value.get<std::string>()) {
        return "\"" + *text + "\"";
    }
    if (const std::int64_t* number = value.get<std::int64_t>()) {
        return std::to_string(*number);
    }
    return "a " + std::string(kindName(value.kind()));
}

}  // namespace

CodingPath extended(const CodingPath& path, std::string key) {
    CodingPath longer(path);
    longer.push_back(std::move(key));
    return longer;
}

std::string indexKey(std::size_t index) { return "Index " + std::to_string(index); }

bool isNullMarker(const Value& value) {
    const std::string* text = value.get<std::string>();
    return text != nullptr && *text == nullMarker;
}

const Value& expectKind(const Value& value, Value::Kind kind, const CodingPath& path) {
    if (isNullMarker(value)) {
        throw ValueNotFound(path, "expected " + std::string(kindName(kind)) + " but found null instead");
    }
    if (value.kind() != kind) {
        throw TypeMismatch(path, "expected " + std::string(kindName(kind)) + " but found " +
                                     std::string(kindName(value.kind())) + " instead");
    }
    return value;
}

void throwNullRecord(const CodingPath& path) { throw EncodingError(path, "a required record is null"); }

void throwNotACase(const CodingPath& path) {
    throw EncodingError(path, "the value is none of the enumeration's cases");
}

void throwUnknownRawValue(const CodingPath& path, const Value& raw) {
    throw DataCorrupted(path, "no case of the enumeration has the raw value " + describe(raw));
}

}  // namespace vornix::plist::detail

namespace vornix::plist {

double Coding<double>::decode(const Value& value, const CodingPath& path) {
    if (const std::int64_t* number = value.get<std::int64_t>()) {
        // Exact only: 2^53 + 1 has no double.
        const double converted = static_cast<double>(*number);
        if (converted >= 0x1p63 || static_cast<std::int64_t>(converted) != *number) {
            throw TypeMismatch(path, "the integer " + std::to_string(*number) + " has no exact real");
        }
        return converted;
    }
    return *detail::expectKind(value, Value::Kind::real, path).get<double>();
}

}  // namespace vornix::plist
